// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "library.h"

#include "com_func.h"
#include "component.h"
#include "connection.h"
#include "error.h"
#include "recordset.h"
#include "statements.h"

#include <memory>

namespace {

bool HasRows(Connection& connection, const QString& query) {
  auto rows = std::make_unique<Recordset>();
  rows->Open(query, connection, CursorType::kStatic, LockType::kUnspecified);
  const bool hasRows = !rows->IsEof();
  CloseRecordset(rows);
  return hasRows;
}

}  // namespace

void OpenLibrary(Connection& connection) {
  connection.SetConnectionString(QStringLiteral("DSN=HCWordLib"));
  connection.Open(QString(), QString());
}

void CloseLibrary(Connection& connection) {
  connection.Close();
}

std::vector<WordRow> WordsOf(Connection& connection, qint32 DictID) {
  auto rows = std::make_unique<Recordset>();
  rows->Open(Statement::SelectWords(DictID), connection, CursorType::kKeyset,
             LockType::kUnspecified, {"ID", "FatherID", "NodeName"});
  std::vector<WordRow> words;
  if (rows->IsEof()) return words;
  rows->MoveLast();
  const qint32 count = rows->RecordCount();
  rows->MoveFirst();
  const size_t idColumn = rows->ColumnOf("ID");
  const size_t fatherIdColumn = rows->ColumnOf("FatherID");
  const size_t nodeNameColumn = rows->ColumnOf("NodeName");
  words.reserve(static_cast<size_t>(count));
  for (qint32 i = 0; i < count; ++i) {
    words.push_back({rows->FieldInteger(idColumn), rows->FieldInteger(fatherIdColumn),
                     SharedText(rows->FieldView(nodeNameColumn))});
    rows->MoveNext();
  }
  CloseRecordset(rows);
  return words;
}

bool IsCategoryNameTaken(Connection& connection, const QString& SortName) {
  return HasRows(connection, Statement::SelectCategoryNamed(SortName));
}

bool IsWordNameTaken(Connection& connection, const QString& NodeName, qint32 DictID) {
  return HasRows(connection, Statement::SelectWordNamed(NodeName, DictID));
}

bool IsCategoryStored(Connection& connection, qint32 GID) {
  try {
    Recordset rows;
    rows.Open(Statement::SelectCategories(), connection, CursorType::kKeyset,
              LockType::kUnspecified);
    for (; !rows.IsEof(); rows.MoveNext()) {
      if (rows.FieldInteger("GID") == GID) return true;
    }
    return false;
  } catch (const Error&) {
    return true;
  }
}

bool IsGeneratorThere() {
  try {
    return CreateComponent(QString::fromLatin1(kGUIDGenProgId)) != nullptr;
  } catch (const std::exception&) {
    return false;
  }
}

bool SaysNoGenerator(const QString& reason) {
  return reason == CannotCreateObjectText();
}
