// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "odbc_connection.h"
#include "recordset.h"
#include "row_buffer.h"

#include <optional>
#include <vector>

// A new row's values by column; a column without one is left to the database.
using NewRow = std::vector<std::optional<FieldValue>>;

// Stores rows in a table. The statement stays prepared as long as the same columns are given.
class InsertStatement {
 public:
  // `columns` has the names of the columns of `table`. Raises DatabaseError, then nothing is
  // stored.
  void Run(const OdbcConnection& connection, const QString& table, const RowBuffer& columns,
           const NewRow& values);

 private:
  void Prepare(const OdbcConnection& connection, const QByteArray& text);
  void Bind(const NewRow& values);

  OdbcHandle handle_;
  QByteArray text_;
  // What the driver reads while the statement runs.
  std::vector<QByteArray> texts_;
  std::vector<SQLLEN> lengths_;
};
