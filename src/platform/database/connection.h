// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <functional>
#include <memory>

class Recordset;
struct OdbcConnection;

// A connection to a database through ODBC. Every statement takes effect at once unless there is a
// Transaction. All failures are raised as DatabaseError.
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

  // Lets a test make the database fail: `hook` runs at the beginning of each step, and what it
  // raises is the step's failure. A step is the execution of a statement, the storing of a new row,
  // the opening of a record set, the asking for a new row's number or a commit. An empty one is
  // none.
  void SetStepHook(std::function<void()> hook);

  // The engine's name as its driver reports it, for instance "SQLite" or "PostgreSQL".
  QString EngineName() const;

 private:
  friend class Recordset;
  friend class Savepoint;
  friend class Transaction;
  std::unique_ptr<OdbcConnection> impl_;
};
