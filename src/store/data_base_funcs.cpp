// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "data_base_funcs.h"

#include "com_func.h"
#include "connection.h"
#include "database_error.h"
#include "error.h"
#include "recordset.h"
#include "statements.h"

#include <limits>

namespace {

// One more than the last row's number in `column`, 1 when there are no rows. The rows are ordered
// by that column.
qint32 NextNumber(Recordset& rows, const char* column) {
  if (rows.IsEof()) {
    return 1;
  }
  rows.MoveLast();
  const qint32 last = rows.FieldInteger(column);
  if (last == std::numeric_limits<qint32>::max()) {
    throw Error(QStringLiteral("列“%1”的编号已达到最大值 %2，不能再新建。")
                    .arg(QLatin1String(column))
                    .arg(last));
  }
  return last + 1;
}

}  // namespace

bool DataBaseFuncs::AddDict(const QString& SortName, qint32& Position, qint32& TheNewItemID,
                            QString* RetTheErr) {
  DictRows rows;
  return AddDict(SortName, rows, Position, TheNewItemID, RetTheErr);
}

bool DataBaseFuncs::AddDict(const QString& SortName, DictRows& rows, qint32& Position,
                            qint32& TheNewItemID, QString* RetTheErr) {
  qint32 newId = 0;
  QString reason;
  if (!getGUID_.NewID(connection_, QStringLiteral("GUIDLists"), rows.identifiers, newId, &reason)) {
    if (RetTheErr) {
      *RetTheErr = reason;
    }
    return false;
  }

  if (rows.categories == nullptr) {
    rows.categories = std::make_unique<Recordset>();
    rows.categories->Open(Statement::SelectCategoriesByPosition(), connection_,
                          CursorType::kDynamic, LockType::kOptimistic);
  }
  Recordset& categories = *rows.categories;
  const qint32 newPosition = NextNumber(categories, "Position");
  categories.AddNew();
  categories.SetField("GID", newId);
  categories.SetField("SortName", SortName);
  categories.SetField("Position", newPosition);
  categories.Update();
  Position = newPosition;
  TheNewItemID = newId;
  return true;
}

bool DataBaseFuncs::AddItem(const QString& NodeName, qint32 DictID, qint32& RetID,
                            qint32 ParentID) {
  auto rows = std::make_unique<Recordset>();
  rows->Open(Statement::SelectWordsByID(DictID), connection_, CursorType::kDynamic,
             LockType::kOptimistic);
  RetID = NextNumber(*rows, "ID");
  rows->AddNew();
  rows->SetField("SortID", DictID);
  rows->SetField("FatherID", ParentID);
  rows->SetField("NodeName", NodeName);
  rows->SetField("ID", RetID);
  try {
    rows->Update();
  } catch (const DatabaseError& error) {
    if (!error.IsDuplicateKey()) throw;
    throw DatabaseError(
        QStringLiteral(
            "另一个用户刚刚在同一分类条目中加了词，新词没有保存；按 F5 重新读入（或重新打开程序）"
            "后可以再加。\n") +
            error.Description(),
        error.SqlState(), error.NativeCode());
  }
  CloseRecordset(rows);
  return true;
}

bool DataBaseFuncs::UpdateItem(const QString& NewName, qint32 Sel, qint32 DictID, qint32 ID) {
  if (Sel == kSelCategory) {
    connection_.Execute(Statement::RenameCategory(NewName, DictID));
  } else if (Sel == kSelWord) {
    connection_.Execute(Statement::RenameWord(NewName, DictID, ID));
  }
  return true;
}

bool DataBaseFuncs::DeleteItem(qint32 Sel, qint32 DictID, qint32 ID) {
  if (Sel == kSelCategory) {
    connection_.Execute(Statement::DeleteCategory(DictID));
    connection_.Execute(Statement::DeleteWordsOfCategory(DictID));
  } else if (Sel == kSelWord) {
    connection_.Execute(Statement::DeleteWord(DictID, ID));
  }
  return true;
}
