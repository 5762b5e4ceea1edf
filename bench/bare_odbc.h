// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <sql.h>

// What a plain program against the ODBC C functions needs for the same statements: the measure that
// the program is held against. A failing call ends the benchmark.
class BareOdbc {
 public:
  BareOdbc();
  ~BareOdbc();
  BareOdbc(const BareOdbc&) = delete;
  BareOdbc& operator=(const BareOdbc&) = delete;

  void Execute(const QString& statement) const;

  // Both fetch every column of every row and return the number of rows: in blocks of 256 rows into
  // bound columns, or row by row and column by column.
  qint64 ReadBound(const QString& statement) const;
  qint64 ReadByGetData(const QString& statement) const;

 private:
  SQLHENV environment_ = nullptr;
  SQLHDBC connection_ = nullptr;
};

// Connects, reads the categories and then each one's words by the program's statements. Returns the
// number of words.
qint64 BareLibraryRead(qint64 (BareOdbc::*read)(const QString&) const);
