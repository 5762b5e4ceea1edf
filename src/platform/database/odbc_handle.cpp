// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "odbc_handle.h"

#include "database_error.h"

#include <QByteArray>
#include <QStringList>

#include <algorithm>

namespace {

// Some drivers answer every record number with the same record.
constexpr SQLSMALLINT kMostRecords = 8;

// "[vendor][driver]text" without the names in brackets.
QString WithoutPrefixes(const QString& message) {
  qsizetype start = 0;
  while (start < message.size() && message[start] == u'[') {
    const qsizetype end = message.indexOf(u']', start);
    if (end < 0) break;
    start = end + 1;
  }
  const QString text = message.mid(start).trimmed();
  return text.isEmpty() ? message : text;
}

}  // namespace

OdbcHandle::OdbcHandle(SQLSMALLINT type, const OdbcHandle* parent) : type_(type) {
  const SQLRETURN result =
      SQLAllocHandle(type, parent != nullptr ? parent->Get() : nullptr, &handle_);
  if (SQL_SUCCEEDED(result)) return;
  handle_ = nullptr;
  if (parent != nullptr) parent->Fail();
  throw DatabaseError(QStringLiteral("ODBC 环境不能创建。"));
}

OdbcHandle::~OdbcHandle() {
  if (handle_ != nullptr) SQLFreeHandle(type_, handle_);
}

void OdbcHandle::Fail() const {
  QStringList messages;
  QString sqlState;
  SQLINTEGER nativeCode = 0;
  for (SQLSMALLINT number = 1; number <= kMostRecords; ++number) {
    SQLCHAR state[SQL_SQLSTATE_SIZE + 1] = {};
    SQLINTEGER code = 0;
    SQLCHAR text[SQL_MAX_MESSAGE_LENGTH * 4] = {};
    SQLSMALLINT length = 0;
    if (!SQL_SUCCEEDED(
            SQLGetDiagRec(type_, handle_, number, state, &code, text, sizeof text, &length))) {
      break;
    }
    if (number == 1) {
      sqlState = QString::fromLatin1(reinterpret_cast<const char*>(state));
      nativeCode = code;
    }
    const QString message = WithoutPrefixes(QString::fromUtf8(reinterpret_cast<const char*>(text)));
    if (message.isEmpty() || messages.contains(message)) break;
    messages += message;
  }
  if (messages.isEmpty()) messages += QStringLiteral("数据库驱动程序报告了一个没有说明的错误。");
  throw DatabaseError(messages.join(u'\n'), sqlState, nativeCode);
}
