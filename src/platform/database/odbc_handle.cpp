// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "odbc_handle.h"

#include "database_error.h"
#include "failure_reason.h"

#include <QByteArray>
#include <QRegularExpression>
#include <QStringList>

#include <algorithm>

namespace {

// Some drivers answer every record number with the same record.
constexpr SQLSMALLINT kMostRecords = 8;

// What the engine itself says, without what drivers put around it: names in brackets, and
// "ERROR: ...;\nError while executing the query" or the code in "... (19)". What is indented for a
// terminal begins at the margin.
QString EngineText(const QString& message) {
  static const QRegularExpression kForm(
      QStringLiteral("\\A(?:\\[[^\\]]*\\])*\\s*(?:ERROR: )?(.*?)"
                     "(?:\\s*;\\n(?:Error while executing the query|The connection has been lost)|"
                     " \\(\\d+\\))?\\s*\\z"),
      QRegularExpression::DotMatchesEverythingOption);
  QString text = kForm.match(message).captured(1);
  return text.isEmpty() ? message : text.replace(QLatin1String("\n\t"), QLatin1String("\n"));
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
  QString reason;
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
    const QString driverText = QString::fromUtf8(reinterpret_cast<const char*>(text));
    if (number == 1) {
      sqlState = QString::fromLatin1(reinterpret_cast<const char*>(state));
      nativeCode = code;
      reason = FailureReason(sqlState, nativeCode, driverText);
    }
    const QString message = EngineText(driverText);
    if (message.isEmpty() || messages.contains(message)) break;
    messages += message;
  }
  if (messages.isEmpty()) messages += QStringLiteral("数据库驱动程序报告了一个没有说明的错误。");
  if (!reason.isEmpty()) messages.prepend(reason);
  throw DatabaseError(messages.join(u'\n'), sqlState, nativeCode);
}
