// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "dialect.h"

#include <QRegularExpression>

namespace {

constexpr const char* kPostgreSqlSession[] = {"set standard_conforming_strings to on",
                                              "set lock_timeout to 10000"};
constexpr const char* kMariaDbSession[] = {
    "set sql_mode = concat(@@sql_mode, ',NO_BACKSLASH_ESCAPES,STRICT_TRANS_TABLES')",
    "set innodb_lock_wait_timeout = 10, lock_wait_timeout = 10"};

constexpr Dialect kSqlite = {
    .sessionStatements = {},
    .beginToRead = "begin",
    .beginToWrite = "begin immediate",
    .identityStatement = "select last_insert_rowid()",
    .lastNumberStatement = "select seq from sqlite_sequence where name = '%1' collate nocase",
    .holdsNullCharacters = true};
constexpr Dialect kPostgreSql = {
    .sessionStatements = kPostgreSqlSession,
    .beginToRead = "begin isolation level repeatable read",
    .beginToWrite = "begin",
    .identityStatement = "select lastval()",
    .lastNumberStatement =
        "select last_value from pg_sequences where quote_ident(schemaname) || "
        "'.' || quote_ident(sequencename) = pg_get_serial_sequence('%1', "
        "lower('%2'))",
    .raiseNumberStatement = "select setval(pg_get_serial_sequence('%1', lower('%2')), %3)",
    .beforeGivenNumbers = "overriding system value "};
constexpr Dialect kMariaDb = {.sessionStatements = kMariaDbSession,
                              .beginToRead = "begin",
                              .beginToWrite = "begin",
                              .identityStatement = "select last_insert_id()",
                              .lastNumberStatement =
                                  "select auto_increment - 1 from information_schema.tables where "
                                  "table_schema = database() and lower(table_name) = lower('%1')",
                              .holdsNullCharacters = true};
constexpr Dialect kGeneric = {.sessionStatements = {},
                              .beginToRead = "begin",
                              .beginToWrite = "begin",
                              .identityStatement = nullptr};

}  // namespace

const Dialect& DialectOf(const QString& dbmsName) {
  const auto named = [&](const char* name) {
    return dbmsName.startsWith(QLatin1String(name), Qt::CaseInsensitive);
  };
  if (named("SQLite")) return kSqlite;
  if (named("PostgreSQL")) return kPostgreSql;
  if (named("MariaDB") || named("MySQL")) return kMariaDb;
  return kGeneric;
}

QString Quoted(QString text) {
  return u'\'' + text.replace(u'\'', QLatin1String("''")) + u'\'';
}

QString WithoutDeleteStar(const QString& statement) {
  static const QRegularExpression kDeleteStar(QStringLiteral("^\\s*delete\\s*\\*\\s*from(?=\\s)"),
                                              QRegularExpression::CaseInsensitiveOption);
  const QRegularExpressionMatch match = kDeleteStar.match(statement);
  if (!match.hasMatch()) return statement;
  return QStringLiteral("delete from") + statement.mid(match.capturedLength());
}
