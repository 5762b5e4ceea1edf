// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "bulk_writer.h"

#include "connection.h"
#include "database_error.h"
#include "dialect.h"

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
    // What a failing statement has done is taken back, so that its rows can be tried one by one.
    connection_.Execute(QStringLiteral("savepoint BulkWriter"));
    connection_.Execute(insert_ + rows.join(u','));
    storedRows_ += rows.size();
  } catch (const DatabaseError& error) {
    if (!error.IsRowRefused()) throw;
    connection_.Execute(QStringLiteral("rollback to savepoint BulkWriter"));
    for (const QString& row : rows) {
      connection_.Execute(insert_ + row);
      ++storedRows_;
    }
  }
  connection_.Execute(QStringLiteral("release savepoint BulkWriter"));
}
