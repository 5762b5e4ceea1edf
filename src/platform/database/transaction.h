// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

class Connection;

// From its making on, the statements of a connection take effect together at Commit. What is not
// committed is taken back. A connection has one at a time. Failures are raised as DatabaseError.
class Transaction {
 public:
  enum class Use { kRead, kWrite };

  // Reading shows one state of the database throughout where the engine isolates it so. For
  // writing, SQLite waits here until other writers are done, and not half-way.
  Transaction(Connection& connection, Use use);
  // Rolls back what is neither committed nor rolled back. When that fails, the connection is
  // closed: the engine then takes everything back itself, and every later statement is refused.
  ~Transaction();
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  void Commit();
  void Rollback();

 private:
  void End(const char* statement);

  Connection& connection_;
};

// Within a Transaction: lets what the statements from its making on have done be taken back alone,
// as happens at its end unless it was released. Engines that refuse every statement after a failing
// one take further ones then. One at a time.
class Savepoint {
 public:
  explicit Savepoint(Connection& connection);
  // When it cannot be taken back, the transaction cannot be committed either.
  ~Savepoint();
  Savepoint(const Savepoint&) = delete;
  Savepoint& operator=(const Savepoint&) = delete;

  // What was done belongs to the transaction.
  void Release();

 private:
  Connection& connection_;
  bool isReleased_ = false;
};
