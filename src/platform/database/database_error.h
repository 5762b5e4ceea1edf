// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "error.h"

#include <QString>

// A failure of the database layer. The description is the driver's own, behind a line that says
// what happened where FailureReason knows it; a failure that no driver reported (a record set that
// is not open, an unknown column) has an empty SQLSTATE.
class DatabaseError : public Error {
 public:
  DatabaseError(QString description, QString sqlState, int nativeCode);
  explicit DatabaseError(QString description);

  // The five characters of ISO/IEC 9075, or empty.
  const QString& SqlState() const noexcept { return sqlState_; }
  // Whether a row with the same key is there already, as the supported engines say it:
  // SQLITE_CONSTRAINT with a text about UNIQUE, PostgreSQL's unique_violation, MariaDB's
  // ER_DUP_ENTRY (each in the engine's manual).
  bool IsDuplicateKey() const noexcept;
  // Whether what was to be stored is refused for what it is: a duplicate, too long, of a wrong
  // kind.
  bool IsRowRefused() const noexcept;
  // Whether the table that a statement names is not there: PostgreSQL's undefined_table, SQLSTATE
  // 42S02, and what SQLite says.
  bool IsTableMissing() const noexcept;
  // The engine's own code, 0 where there is none.
  int NativeCode() const noexcept { return nativeCode_; }

 private:
  QString sqlState_;
  int nativeCode_ = 0;
};
