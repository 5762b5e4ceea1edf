// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "odbc_handle.h"

#include <QByteArrayList>
#include <QString>
#include <QStringView>

#include <vector>

// The rows of a statement, column by column: numbers side by side, the texts of a column end to end
// in one UTF-16 string, so that a row costs no allocation of its own. A NULL is 0 or empty.
class RowBuffer {
 public:
  struct Outcome {
    bool isComplete = true;
    size_t nextTextBytes = 0;  // the place to try next when the rows are not complete
  };
  // Takes the columns of the executed `statement`, or those of them that `columns` names if any,
  // and its rows, in blocks with a place of at least `textBytes` bytes for each text, which drivers
  // give in UTF-8. The rows are complete when every text had room.
  Outcome Read(const OdbcHandle& statement, const QByteArrayList& columns, size_t textBytes);

  size_t RowCount() const { return rowCount_; }
  size_t ColumnCount() const { return columns_.size(); }
  const QByteArray& ColumnName(size_t column) const { return columns_[column].name; }
  bool IsText(size_t column) const { return columns_[column].isText; }
  // The column called `name`, its case not counting. Raises DatabaseError when there is none.
  size_t ColumnOf(const char* name) const;

  qint64 Number(size_t column, size_t row) const { return columns_[column].numbers[row]; }
  QStringView Text(size_t column, size_t row) const {
    const Column& c = columns_[column];
    const qsizetype begin = row == 0 ? 0 : c.ends[row - 1];
    return QStringView(c.text.constData() + begin, c.ends[row] - begin);
  }
  // A number, or what a text says, of which an empty one is 0. Raises DatabaseError for any other.
  qint64 Integer(size_t column, size_t row) const {
    return IsText(column) ? IntegerOfText(column, row) : Number(column, row);
  }

  // A row is appended by one call for each column and one of EndRow.
  void AppendNumber(size_t column, qint64 number) { columns_[column].numbers.push_back(number); }
  void AppendText(size_t column, QStringView text);
  void EndRow() { ++rowCount_; }

 private:
  struct Column {
    QByteArray name;
    SQLUSMALLINT number = 0;  // in the statement
    bool isText = false;
    size_t bytes = 0;  // the longest text as far as the driver knows
    std::vector<qint64> numbers;
    QString text;
    std::vector<qsizetype> ends;
  };

  struct Block;

  qint64 IntegerOfText(size_t column, size_t row) const;
  void TakeColumns(const OdbcHandle& statement, const QByteArrayList& columns);

  std::vector<Column> columns_;
  size_t rowCount_ = 0;
};
