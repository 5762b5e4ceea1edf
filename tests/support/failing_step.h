// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "connection.h"
#include "database_error.h"

#include <memory>

// Makes the n-th database step of `connection` from now on fail, once, before anything reaches the
// driver. What is returned counts down the steps until then: 0 or less when it has failed.
inline std::shared_ptr<const int> FailStep(Connection& connection, int n) {
  const auto left = std::make_shared<int>(n);
  connection.SetStepHook([left] {
    if (--*left == 0) {
      throw DatabaseError(QStringLiteral("injected fault"), QStringLiteral("HY000"), 0);
    }
  });
  return left;
}
