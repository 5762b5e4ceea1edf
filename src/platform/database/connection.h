// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <memory>

class Recordset;
struct OdbcConnection;

// A connection to a database through ODBC. Every statement takes effect at once unless a
// transaction was begun. All failures are raised as DatabaseError.
class Connection {
 public:
  Connection();
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  // What Open connects to, in ODBC's connection-string form, for instance "DSN=HCWordLib".
  void SetConnectionString(const QString& connectionString);

  // Connects. An empty user or password is left to the data source. Fails when already open, and
  // when a server has not answered for 15 seconds; a data source may set another time. From then on
  // a statement fails that has waited for other users for 10 seconds.
  void Open(const QString& user = QString(), const QString& password = QString());

  bool IsOpen() const;

  // Disconnects; an open transaction is rolled back. Fails when not open.
  void Close();

  // Runs a statement that yields no rows. How many rows it changed, none included, is not told.
  // "delete * from T" is accepted on every engine.
  void Execute(const QString& statement);

  // From here on, statements take effect together at CommitTransaction.
  void BeginTransaction();
  void CommitTransaction();
  void RollbackTransaction();

  // The engine's name as its driver reports it, for instance "SQLite" or "PostgreSQL".
  QString EngineName() const;

 private:
  friend class Recordset;
  std::unique_ptr<OdbcConnection> impl_;
};
