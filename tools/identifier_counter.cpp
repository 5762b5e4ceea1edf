// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "identifier_counter.h"

#include "connection.h"
#include "dialect.h"
#include "recordset.h"

#include <algorithm>

namespace {

const QString kRegister = QStringLiteral("GUIDLists");
const QString kColumn = QStringLiteral("ID");

qint32 NumberOf(const QString& statement, Connection& connection) {
  Recordset rows;
  rows.Open(statement, connection);
  return rows.IsEof() ? 0 : rows.FieldInteger(size_t{0});
}

}  // namespace

qint32 LastIdentifier(Connection& connection) {
  const char* statement = DialectOf(connection.EngineName()).lastNumberStatement;
  const qint32 stored =
      NumberOf(QStringLiteral("select max(%1) from %2").arg(kColumn, kRegister), connection);
  if (statement == nullptr) return stored;
  return std::max(
      stored, NumberOf(QString::fromLatin1(statement).arg(kRegister, kColumn), connection));
}

void RaiseLastIdentifier(Connection& connection, qint32 identifier) {
  if (const char* raise = DialectOf(connection.EngineName()).raiseNumberStatement) {
    // Asked of the register alone: a row may stand in it that the database has not numbered.
    NumberOf(QString::fromLatin1(raise).arg(kRegister, kColumn).arg(identifier), connection);
    return;
  }
}
