// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "engines.h"
#include "recordset.h"

#include <QString>

#include <initializer_list>
#include <string>

// The rows of `statement` as text: the columns divided by '|', each row with a line feed behind it.
inline std::string Rows(const QString& statement, std::initializer_list<const char*> columns,
                        Connection& connection) {
  Recordset rows;
  rows.Open(statement, connection);
  QString text;
  for (; !rows.IsEof(); rows.MoveNext()) {
    QStringList values;
    for (const char* column : columns) {
      values += rows.FieldText(column);
    }
    text += values.join(QLatin1Char('|')) + QLatin1Char('\n');
  }
  return text.toStdString();
}

inline std::string Categories(Connection& connection) {
  return Rows(QStringLiteral("select * from Dictionary order by Position,GID"),
              {"GID", "SortName", "Position"}, connection);
}

inline std::string Words(Connection& connection) {
  return Rows(QStringLiteral("select * from Items order by SortID,ID"),
              {"SortID", "ID", "FatherID", "NodeName"}, connection);
}

inline std::string RegisterRows(Connection& connection) {
  return Rows(QStringLiteral("select * from GUIDLists order by ID"),
              {"ID", "GUIDField1", "GUIDField2", "GUIDField3", "GUIDField4"}, connection);
}
