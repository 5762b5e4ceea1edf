// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "identifier_counter.h"

#include "connection.h"
#include "dialect.h"
#include "recordset.h"

namespace {

constexpr QLatin1String kTable("GUIDLists");
constexpr QLatin1String kColumn("ID");

qint32 NumberOf(const char* statement, qint32 number, Connection& connection) {
  QString text = QString::fromLatin1(statement);
  text.replace(QLatin1String("%1"), kTable).replace(QLatin1String("%2"), kColumn);
  Recordset rows;
  rows.Open(text.replace(QLatin1String("%3"), QString::number(number)), connection);
  return rows.IsEof() ? 0 : rows.FieldInteger(size_t{0});
}

}  // namespace

qint32 LastIdentifier(Connection& connection) {
  const char* statement = DialectOf(connection.EngineName()).lastNumberStatement;
  return NumberOf(statement ? statement : "select max(%2) from %1", 0, connection);
}

void RaiseLastIdentifier(Connection& connection, qint32 identifier) {
  if (LastIdentifier(connection) >= identifier) return;
  if (const char* raise = DialectOf(connection.EngineName()).raiseNumberStatement) {
    NumberOf(raise, identifier, connection);
    return;
  }
  connection.Execute(
      QStringLiteral("insert into %1 (GUIDField1,GUIDField2,GUIDField3,GUIDField4,%2) "
                     "values (0,0,0,0,%3)")
          .arg(kTable, kColumn)
          .arg(identifier));
  connection.Execute(
      QStringLiteral("delete from %1 where %2=%3").arg(kTable, kColumn).arg(identifier));
}
