// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "transaction.h"

#include "connection.h"
#include "database_error.h"
#include "odbc_connection.h"

Transaction::Transaction(Connection& connection, Use use) : connection_(connection) {
  OdbcConnection& odbc = *connection.impl_;
  odbc.RequireOpen();
  if (odbc.inTransaction) throw DatabaseError(QStringLiteral("事务已经开始。"));
  odbc.Run(use == Use::kWrite ? odbc.dialect->beginToWrite : odbc.dialect->beginToRead);
  odbc.inTransaction = true;
  odbc.canCommit = true;
}

Transaction::~Transaction() {
  if (!connection_.impl_->inTransaction) return;
  try {
    Rollback();
  } catch (const DatabaseError&) {
    try {
      connection_.Close();
    } catch (const DatabaseError&) {
      // It is closed all the same; what led here is being reported.
    }
  }
}

void Transaction::Commit() {
  if (!connection_.impl_->canCommit) throw DatabaseError(QStringLiteral("事务已经失败。"));
  connection_.impl_->TakeStep();
  End("commit");
}

void Transaction::Rollback() {
  End("rollback");
}

void Transaction::End(const char* statement) {
  OdbcConnection& odbc = *connection_.impl_;
  odbc.RequireOpen();
  if (!odbc.inTransaction) throw DatabaseError(QStringLiteral("没有已经开始的事务。"));
  odbc.Run(statement);
  odbc.inTransaction = false;
}

Savepoint::Savepoint(Connection& connection) : connection_(connection) {
  connection_.Execute(QStringLiteral("savepoint Step"));
}

Savepoint::~Savepoint() {
  if (isReleased_) return;
  try {
    connection_.Execute(QStringLiteral("rollback to savepoint Step"));
    Release();
  } catch (const DatabaseError&) {
    // What led here is being reported; some engines would say that they have committed.
    connection_.impl_->canCommit = false;
  }
}

void Savepoint::Release() {
  connection_.Execute(QStringLiteral("release savepoint Step"));
  isReleased_ = true;
}
