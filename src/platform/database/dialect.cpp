// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "dialect.h"

#include <QRegularExpression>

namespace {

constexpr const char* kPostgreSqlSession[] = {"set standard_conforming_strings to on",
                                              "set lock_timeout to 10000"};
constexpr const char* kMariaDbSession[] = {
    "set sql_mode = concat(@@sql_mode, ',NO_BACKSLASH_ESCAPES,STRICT_TRANS_TABLES')",
    "set innodb_lock_wait_timeout = 10, lock_wait_timeout = 10",
    // Whatever the server's default; statements outside of transactions take no notice.
    "set session transaction isolation level repeatable read"};

constexpr Dialect kSqlite = {{}, "begin", "begin immediate", "select last_insert_rowid()"};
constexpr Dialect kPostgreSql = {kPostgreSqlSession, "begin isolation level repeatable read",
                                 "begin", "select lastval()", "overriding system value "};
constexpr Dialect kMariaDb = {kMariaDbSession, "begin", "begin", "select last_insert_id()"};
constexpr Dialect kGeneric = {{}, "begin", "begin", nullptr};

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
