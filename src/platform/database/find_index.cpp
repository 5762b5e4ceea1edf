// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "find_index.h"

#include "database_error.h"

#include <QHash>
#include <QRegularExpression>

#include <bit>
#include <utility>

Criterion ParseCriterion(const QString& criterion) {
  static const QRegularExpression kForm(
      QStringLiteral("\\A\\s*(\\w+)\\s*=\\s*'((?:[^']|'')*+)'\\s*\\z"));
  const QRegularExpressionMatch match = kForm.match(criterion);
  if (!match.hasMatch()) {
    throw DatabaseError(QStringLiteral("查找条件“%1”的形式不正确。").arg(criterion));
  }
  return {match.captured(1).toUtf8(),
          match.captured(2).replace(QLatin1String("''"), QLatin1String("'"))};
}

size_t FindIndex::Find(const RowBuffer& rows, size_t column, size_t firstRow, QStringView text) {
  const size_t count = rows.RowCount();
  if (column_ != column) {
    Clear();
    column_ = column;
    size_t row = firstRow;
    while (row < count && rows.Text(column, row) != text) ++row;
    return row;
  }
  if (buckets_.empty()) Build(rows);
  size_t row = buckets_[qHash(text) & (buckets_.size() - 1)];
  while (row != kNone && (row < firstRow || rows.Text(column, row) != text)) row = next_[row];
  return row == kNone ? count : row;
}

void FindIndex::Build(const RowBuffer& rows) {
  const size_t count = rows.RowCount();
  buckets_.assign(std::bit_ceil(count + 1), kNone);
  next_.resize(count);
  // From the last row to the first, so that each bucket is in the order of the rows.
  for (size_t row = count; row-- > 0;) {
    size_t& bucket = buckets_[qHash(rows.Text(column_, row)) & (buckets_.size() - 1)];
    next_[row] = std::exchange(bucket, row);
  }
}
