// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "connection.h"

#include "data_source.h"
#include "database_error.h"
#include "odbc_connection.h"

#include <langinfo.h>

#include <QRegularExpression>

#include <clocale>
#include <cstring>

namespace {

// How long a server may keep silent while the connection is made.
constexpr int kLoginSeconds = 15;
// SQLite's driver has a statement wait for as long as this, and then once more.
constexpr int kSqliteMilliseconds = 5000;

// A value as it may stand in a connection string.
QString Braced(QString value) {
  return u'{' + value.replace(u'}', QLatin1String("}}")) + u'}';
}

// The data source that `connectionString` names, or an empty text.
QString DataSourceOf(const QString& connectionString) {
  static const QRegularExpression kName(QStringLiteral("(?:^|;)\\s*DSN=([^;]*)"),
                                        QRegularExpression::CaseInsensitiveOption);
  return kName.match(connectionString).captured(1);
}

// Drivers convert texts to and from the process's encoding. A user's locale may be none that is
// installed, or not of UTF-8; C.UTF-8 is on every system.
void UseUtf8() {
  const auto isUtf8 = [] { return std::strcmp(nl_langinfo(CODESET), "UTF-8") == 0; };
  if (!isUtf8() && (std::setlocale(LC_CTYPE, "C.UTF-8") == nullptr || !isUtf8())) {
    throw DatabaseError(QStringLiteral("进程的字符编码不是 UTF-8，不能正确读写数据库中的文字。"));
  }
}

}  // namespace

void OdbcConnection::RequireOpen() const {
  if (!handle) throw DatabaseError(QStringLiteral("对象关闭时，不允许操作。"));
}

OdbcHandle OdbcConnection::NewStatement() const {
  OdbcHandle statement(SQL_HANDLE_STMT, &handle);
  // Braces inside a name are no escape sequences. A driver that knows none may refuse to be told.
  SQLSetStmtAttr(statement.Get(), SQL_ATTR_NOSCAN, AsOdbcPointer(SQL_NOSCAN_ON), 0);
  return statement;
}

void OdbcConnection::Run(QByteArray statement) const {
  const OdbcHandle hstmt = NewStatement();
  hstmt.Check(SQLExecDirect(hstmt.Get(), OdbcText(statement), SQL_NTS));
}

void OdbcConnection::Disconnect() {
  const OdbcHandle oldEnvironment = std::move(environment);
  const OdbcHandle oldHandle = std::move(handle);
  inTransaction = false;
  oldHandle.Check(SQLDisconnect(oldHandle.Get()));
}

Connection::Connection() : impl_(std::make_unique<OdbcConnection>()) {}

Connection::~Connection() {
  try {
    if (IsOpen()) impl_->Disconnect();
  } catch (const DatabaseError&) {
    // Nobody is left to be told; Close is where a failure is reported.
  }
}

void Connection::SetConnectionString(const QString& connectionString) {
  impl_->connectionString = connectionString;
}

void Connection::Open(const QString& user, const QString& password) {
  if (IsOpen()) throw DatabaseError(QStringLiteral("对象打开时，不允许操作。"));
  UseUtf8();
  // An empty UID would override the data source's own with one driver, so it is left out.
  QString text = impl_->connectionString;
  if (!user.isEmpty()) text += QStringLiteral(";UID=") + Braced(user);
  if (!password.isEmpty()) text += QStringLiteral(";PWD=") + Braced(password);
  // Each key is of one driver, the others take no notice.
  text += QStringLiteral(";Timeout=%1").arg(kSqliteMilliseconds);
  if (DataSourceValue(text, "CONN_TIMEOUT").isEmpty()) {
    text += QStringLiteral(";CONN_TIMEOUT=%1").arg(kLoginSeconds);
  }
  QByteArray utf8 = text.toUtf8();

  OdbcHandle environment(SQL_HANDLE_ENV);
  environment.Check(
      SQLSetEnvAttr(environment.Get(), SQL_ATTR_ODBC_VERSION, AsOdbcPointer(SQL_OV_ODBC3), 0));
  OdbcHandle handle(SQL_HANDLE_DBC, &environment);
  // PostgreSQL's driver refuses to be told twice. A driver that knows no such time may say so.
  if (!DataSourceValue(DataSourceOf(text), QStringLiteral("Pqopt")).contains(u"connect_timeout")) {
    SQLSetConnectAttr(handle.Get(), SQL_ATTR_LOGIN_TIMEOUT, AsOdbcPointer(kLoginSeconds), 0);
  }
  handle.Check(SQLDriverConnect(handle.Get(), nullptr, OdbcText(utf8), SQL_NTS, nullptr, 0, nullptr,
                                SQL_DRIVER_NOPROMPT));
  UseUtf8();  // a driver may have set the locale from the environment when it was loaded
  impl_->environment = std::move(environment);
  impl_->handle = std::move(handle);
  try {
    char name[256] = {};
    impl_->handle.Check(SQLGetInfo(impl_->handle.Get(), SQL_DBMS_NAME, name, sizeof name, nullptr));
    impl_->engineName = QString::fromUtf8(name);
    impl_->dialect = &DialectOf(impl_->engineName);
    for (const char* statement : impl_->dialect->sessionStatements) impl_->Run(statement);
  } catch (...) {
    SQLDisconnect(impl_->handle.Get());
    impl_->handle = OdbcHandle();
    throw;
  }
}

bool Connection::IsOpen() const {
  return static_cast<bool>(impl_->handle);
}

void Connection::Close() {
  impl_->RequireOpen();
  impl_->Disconnect();
}

void Connection::Execute(const QString& statement) {
  impl_->RequireOpen();
  impl_->TakeStep();
  impl_->Run(WithoutDeleteStar(statement).toUtf8());
}

void Connection::SetStepHook(std::function<void()> hook) {
  impl_->stepHook = std::move(hook);
}

QString Connection::EngineName() const {
  impl_->RequireOpen();
  return impl_->engineName;
}
