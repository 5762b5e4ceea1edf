// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "database_error.h"

#include <utility>

DatabaseError::DatabaseError(QString description, QString sqlState, int nativeCode)
    : Error(std::move(description)), sqlState_(std::move(sqlState)), nativeCode_(nativeCode) {}

DatabaseError::DatabaseError(QString description) : Error(std::move(description)) {}

bool DatabaseError::IsDuplicateKey() const noexcept {
  // SQLite's driver has one code for constraints of every kind, MariaDB's one SQLSTATE.
  constexpr int kSqliteConstraint = 19;
  constexpr int kMariaDbDuplicateEntry = 1062;
  if (sqlState_ == u"HY000" && nativeCode_ == kSqliteConstraint) {
    return Description().startsWith(u"UNIQUE");
  }
  return sqlState_ == u"23505" || (sqlState_ == u"23000" && nativeCode_ == kMariaDbDuplicateEntry);
}
