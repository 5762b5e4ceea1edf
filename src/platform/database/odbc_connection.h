// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "connection.h"
#include "dialect.h"
#include "odbc_handle.h"

#include <QByteArray>

struct OdbcConnection {
  QString connectionString;
  QString engineName;
  const Dialect* dialect = nullptr;
  // Destroyed in the opposite order.
  OdbcHandle environment;
  OdbcHandle handle;
  bool inTransaction = false;
  bool canCommit = true;

  std::function<void()> stepHook;

  void RequireOpen() const;
  void TakeStep() const {
    if (stepHook) stepHook();
  }
  OdbcHandle NewStatement() const;
  // Runs a statement that yields no rows.
  void Run(QByteArray statement) const;
  // Disconnects and throws the handles away, whatever the driver says; tells what it said.
  void Disconnect();
};

// The driver takes statement texts in UTF-8.
inline SQLCHAR* OdbcText(QByteArray& utf8) {
  return reinterpret_cast<SQLCHAR*>(utf8.data());
}
