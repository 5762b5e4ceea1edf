// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "database_error.h"

#include <utility>

namespace {
constexpr int kSqliteError = 1;
constexpr int kSqliteTooBig = 18;
constexpr int kSqliteConstraint = 19;
}  // namespace

DatabaseError::DatabaseError(QString description, QString sqlState, int nativeCode)
    : Error(std::move(description)), sqlState_(std::move(sqlState)), nativeCode_(nativeCode) {}

DatabaseError::DatabaseError(QString description) : Error(std::move(description)) {}

bool DatabaseError::IsDuplicateKey() const noexcept {
  // SQLite's driver has one code for constraints of every kind, MariaDB's one SQLSTATE.
  constexpr int kMariaDbDuplicateEntry = 1062;
  if (sqlState_ == u"HY000" && nativeCode_ == kSqliteConstraint) {
    return Description().startsWith(u"UNIQUE");
  }
  return sqlState_ == u"23505" || (sqlState_ == u"23000" && nativeCode_ == kMariaDbDuplicateEntry);
}

bool DatabaseError::IsRowRefused() const noexcept {
  if (sqlState_ == u"HY000") {
    return nativeCode_ == kSqliteConstraint || nativeCode_ == kSqliteTooBig;
  }
  return sqlState_.startsWith(u"22") || sqlState_.startsWith(u"23");
}

bool DatabaseError::IsTableMissing() const noexcept {
  return sqlState_ == u"42P01" || sqlState_ == u"42S02" ||
         (sqlState_ == u"HY000" && nativeCode_ == kSqliteError &&
          Description().contains(u"no such table"));
}
