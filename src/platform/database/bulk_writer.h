// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "recordset.h"

#include <QStringList>

#include <vector>

// Stores many rows in a table, several by one statement: what a row costs is the way to the engine
// and back. Only within a Transaction, which a failure leaves with the rows before it stored.
class BulkWriter {
 public:
  // `columns` as in "ID,NodeName".
  BulkWriter(Connection& connection, const QString& table, const QString& columns);

  // A row has a value for each column and is stored at the latest by Finish. Either call may raise
  // DatabaseError for any row that is not stored yet; the one at fault is the first of these when
  // the error tells of a row. Nothing can be added afterwards.
  void Add(const std::vector<FieldValue>& row);
  void Finish();

  // How many rows are stored, in the order in which they were added.
  qsizetype StoredRows() const { return storedRows_; }

 private:
  void Store(const QString& rows, qsizetype count);

  Connection& connection_;
  const QString insert_;
  QStringList rows_;
  qsizetype characters_ = 0;
  qsizetype storedRows_ = 0;
};
