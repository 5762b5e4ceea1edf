// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "database_error.h"

#include <utility>

DatabaseError::DatabaseError(QString description, QString sqlState, int nativeCode)
    : Error(std::move(description)), sqlState_(std::move(sqlState)), nativeCode_(nativeCode) {}

DatabaseError::DatabaseError(QString description) : Error(std::move(description)) {}

bool DatabaseError::IsDuplicateKey() const noexcept {
  constexpr int kSqliteConstraint = 19;
  return sqlState_.startsWith(u"23") || (sqlState_ == u"HY000" && nativeCode_ == kSqliteConstraint);
}
