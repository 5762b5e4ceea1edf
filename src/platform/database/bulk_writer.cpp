// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "bulk_writer.h"

#include "connection.h"
#include "database_error.h"
#include "dialect.h"
#include "transaction.h"

#include <utility>

namespace {

// More rows in a statement gain nothing more.
constexpr qsizetype kMostRows = 500;
// No engine refuses a statement of this length.
constexpr qsizetype kMostTextUnits = 100'000;

}  // namespace

BulkWriter::BulkWriter(Connection& connection, const QString& table, const QString& columns)
    : connection_(connection),
      insert_(QStringLiteral("insert into %1 (%2) %3values ")
                  .arg(table, columns,
                       QLatin1String(DialectOf(connection.EngineName()).beforeGivenNumbers))) {}

void BulkWriter::Add(const std::vector<FieldValue>& row) {
  QString text;
  for (const FieldValue& value : row) {
    text += text.isEmpty() ? u'(' : u',';
    if (const auto* number = std::get_if<qint32>(&value)) {
      text += QString::number(*number);
    } else {
      text += Quoted(std::get<QString>(value));
    }
  }
  text += u')';
  characters_ += text.size();
  rows_ += std::move(text);
  if (rows_.size() >= kMostRows || characters_ >= kMostTextUnits) Finish();
}

void BulkWriter::Finish() {
  if (rows_.isEmpty()) return;
  const QStringList rows = std::exchange(rows_, {});
  characters_ = 0;
  try {
    Store(rows.join(u','), rows.size());
    return;
  } catch (const DatabaseError& error) {
    if (!error.IsRowRefused()) throw;
  }
  for (const QString& row : rows) Store(row, 1);
}

void BulkWriter::Store(const QString& rows, qsizetype count) {
  Savepoint savepoint(connection_);
  connection_.Execute(insert_ + rows);
  savepoint.Release();
  storedRows_ += count;
}
