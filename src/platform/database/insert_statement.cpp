// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "insert_statement.h"

#include "database_error.h"

#include <algorithm>

void InsertStatement::Run(const OdbcConnection& connection, const QString& table,
                          const RowBuffer& columns, const NewRow& values) {
  QByteArray names;
  QByteArray places;
  for (size_t i = 0; i < values.size(); ++i) {
    if (!values[i]) continue;
    names += (names.isEmpty() ? "" : ",") + columns.ColumnName(i);
    places += places.isEmpty() ? "?" : ",?";
  }
  if (names.isEmpty()) throw DatabaseError(QStringLiteral("新记录没有任何字段的值。"));
  const QByteArray text =
      "insert into " + table.toUtf8() + " (" + names + ") values (" + places + ")";
  if (text != text_) Prepare(connection, text);
  try {
    Bind(values);
    handle_.Check(SQLExecute(handle_.Get()));
  } catch (const DatabaseError&) {
    text_.clear();
    throw;
  }
}

void InsertStatement::Prepare(const OdbcConnection& connection, const QByteArray& text) {
  QByteArray statement = text;
  handle_ = connection.NewStatement();
  text_.clear();
  handle_.Check(SQLPrepare(handle_.Get(), OdbcText(statement), SQL_NTS));
  text_ = text;
}

void InsertStatement::Bind(const NewRow& values) {
  // The longest text that goes as an ordinary one.
  constexpr SQLLEN kMostBytes = 8000;
  lengths_.resize(values.size());
  texts_.resize(values.size());
  SQLUSMALLINT place = 0;
  for (size_t i = 0; i < values.size(); ++i) {
    if (!values[i]) continue;
    ++place;
    if (const auto* number = std::get_if<qint32>(&*values[i])) {
      lengths_[i] = 0;
      handle_.Check(SQLBindParameter(handle_.Get(), place, SQL_PARAM_INPUT, SQL_C_SLONG,
                                     SQL_INTEGER, 0, 0, const_cast<qint32*>(number), 0,
                                     &lengths_[i]));
      continue;
    }
    texts_[i] = std::get<QString>(*values[i]).toUtf8();
    lengths_[i] = texts_[i].size();
    handle_.Check(SQLBindParameter(handle_.Get(), place, SQL_PARAM_INPUT, SQL_C_CHAR,
                                   lengths_[i] > kMostBytes ? SQL_WLONGVARCHAR : SQL_WVARCHAR,
                                   static_cast<SQLULEN>(std::max<SQLLEN>(lengths_[i], 1)), 0,
                                   texts_[i].data(), lengths_[i], &lengths_[i]));
  }
}
