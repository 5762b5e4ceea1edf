// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "bare_odbc.h"

#include "statements.h"

#include <QByteArray>

#include <sqlext.h>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace {

constexpr size_t kRows = 256;
constexpr size_t kTextBytes = 1024;

SQLRETURN Check(SQLSMALLINT type, SQLHANDLE handle, SQLRETURN result) {
  if (SQL_SUCCEEDED(result) || result == SQL_NO_DATA) return result;
  SQLCHAR text[SQL_MAX_MESSAGE_LENGTH] = {};
  SQLGetDiagRec(type, handle, 1, nullptr, nullptr, text, sizeof text, nullptr);
  std::fprintf(stderr, "bench: %s\n", reinterpret_cast<const char*>(text));
  std::exit(EXIT_FAILURE);
}

SQLPOINTER AsPointer(SQLULEN value) {
  return reinterpret_cast<SQLPOINTER>(value);
}

// An executed statement and its columns.
struct Query {
  Query(SQLHDBC connection, const QString& statement) {
    Check(SQL_HANDLE_DBC, connection, SQLAllocHandle(SQL_HANDLE_STMT, connection, &handle));
    QByteArray text = statement.toUtf8();
    Run(SQLExecDirect(handle, reinterpret_cast<SQLCHAR*>(text.data()), SQL_NTS));
    SQLSMALLINT columns = 0;
    Run(SQLNumResultCols(handle, &columns));
    for (SQLSMALLINT i = 1; i <= columns; ++i) {
      SQLSMALLINT type = 0;
      Run(SQLDescribeCol(handle, static_cast<SQLUSMALLINT>(i), nullptr, 0, nullptr, &type, nullptr,
                         nullptr, nullptr));
      isNumber.push_back(type == SQL_INTEGER);
    }
  }
  ~Query() { SQLFreeHandle(SQL_HANDLE_STMT, handle); }
  Query(const Query&) = delete;
  Query& operator=(const Query&) = delete;

  SQLRETURN Run(SQLRETURN result) const { return Check(SQL_HANDLE_STMT, handle, result); }

  SQLHSTMT handle = nullptr;
  std::vector<bool> isNumber;
};

}  // namespace

BareOdbc::BareOdbc() {
  SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment_);
  SQLSetEnvAttr(environment_, SQL_ATTR_ODBC_VERSION, AsPointer(SQL_OV_ODBC3), 0);
  SQLAllocHandle(SQL_HANDLE_DBC, environment_, &connection_);
  QByteArray source("DSN=HCWordLib");
  Check(SQL_HANDLE_DBC, connection_,
        SQLDriverConnect(connection_, nullptr, reinterpret_cast<SQLCHAR*>(source.data()), SQL_NTS,
                         nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT));
}

BareOdbc::~BareOdbc() {
  SQLDisconnect(connection_);
  SQLFreeHandle(SQL_HANDLE_DBC, connection_);
  SQLFreeHandle(SQL_HANDLE_ENV, environment_);
}

void BareOdbc::Execute(const QString& statement) const {
  SQLHSTMT handle = nullptr;
  Check(SQL_HANDLE_DBC, connection_, SQLAllocHandle(SQL_HANDLE_STMT, connection_, &handle));
  QByteArray text = statement.toUtf8();
  Check(SQL_HANDLE_STMT, handle,
        SQLExecDirect(handle, reinterpret_cast<SQLCHAR*>(text.data()), SQL_NTS));
  SQLFreeHandle(SQL_HANDLE_STMT, handle);
}

qint64 BareOdbc::ReadBound(const QString& statement) const {
  const Query query(connection_, statement);
  struct Column {
    std::array<SQLINTEGER, kRows> numbers;
    std::array<SQLCHAR, kRows * kTextBytes> texts;
    std::array<SQLLEN, kRows> lengths;
  };
  std::vector<Column> columns(query.isNumber.size());
  SQLULEN fetched = 0;
  query.Run(SQLSetStmtAttr(query.handle, SQL_ATTR_ROW_ARRAY_SIZE, AsPointer(kRows), 0));
  query.Run(SQLSetStmtAttr(query.handle, SQL_ATTR_ROWS_FETCHED_PTR, &fetched, 0));
  for (size_t i = 0; i < columns.size(); ++i) {
    Column& column = columns[i];
    const auto number = static_cast<SQLUSMALLINT>(i + 1);
    query.Run(query.isNumber[i]
                  ? SQLBindCol(query.handle, number, SQL_C_SLONG, column.numbers.data(),
                               sizeof(SQLINTEGER), column.lengths.data())
                  : SQLBindCol(query.handle, number, SQL_C_CHAR, column.texts.data(), kTextBytes,
                               column.lengths.data()));
  }
  qint64 rows = 0;
  while (query.Run(SQLFetch(query.handle)) != SQL_NO_DATA) rows += static_cast<qint64>(fetched);
  return rows;
}

qint64 BareOdbc::ReadByGetData(const QString& statement) const {
  const Query query(connection_, statement);
  SQLINTEGER integer = 0;
  SQLCHAR text[kTextBytes];
  SQLLEN length = 0;
  qint64 rows = 0;
  while (query.Run(SQLFetch(query.handle)) != SQL_NO_DATA) {
    for (size_t i = 0; i < query.isNumber.size(); ++i) {
      const auto number = static_cast<SQLUSMALLINT>(i + 1);
      query.Run(query.isNumber[i]
                    ? SQLGetData(query.handle, number, SQL_C_SLONG, &integer, 0, &length)
                    : SQLGetData(query.handle, number, SQL_C_CHAR, text, sizeof text, &length));
    }
    ++rows;
  }
  return rows;
}

qint64 BareLibraryRead(qint64 (BareOdbc::*read)(const QString&) const) {
  const BareOdbc odbc;
  // The generated categories are numbered from 1.
  const qint64 categories = (odbc.*read)(Statement::SelectCategories());
  qint64 words = 0;
  for (qint32 gid = 1; gid <= categories; ++gid) {
    words += (odbc.*read)(Statement::SelectWords(gid));
  }
  return words;
}
