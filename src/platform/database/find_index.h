// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "row_buffer.h"

#include <QString>

// What Recordset::Find looks for.
struct Criterion {
  QByteArray column;
  QString text;
};

// Takes "Column='text'" apart, where a single quote in the text is doubled. Raises DatabaseError
// for a criterion of another form.
Criterion ParseCriterion(const QString& criterion);

// Searches a text column of a row buffer that is not changed meanwhile. The first search goes from
// row to row; from the second one on, a table of the texts is used that is made in one pass.
class FindIndex {
 public:
  // The first row from `firstRow` on whose text in `column` is exactly `text`, or the row count.
  size_t Find(const RowBuffer& rows, size_t column, size_t firstRow, QStringView text);

  // The rows have changed.
  void Clear() { *this = FindIndex(); }

 private:
  void Build(const RowBuffer& rows);

  static constexpr size_t kNone = static_cast<size_t>(-1);
  size_t column_ = kNone;
  // By the text's hash: the first row of the bucket; by row: the next row of the same bucket.
  std::vector<size_t> buckets_;
  std::vector<size_t> next_;
};
