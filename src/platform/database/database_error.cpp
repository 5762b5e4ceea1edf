// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "database_error.h"

#include <utility>

DatabaseError::DatabaseError(QString description, QString sqlState, int nativeCode)
    : Error(std::move(description)), sqlState_(std::move(sqlState)), nativeCode_(nativeCode) {}

DatabaseError::DatabaseError(QString description) : Error(std::move(description)) {}
