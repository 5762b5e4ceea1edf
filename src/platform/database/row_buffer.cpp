// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "row_buffer.h"

#include "database_error.h"

#include <algorithm>
#include <memory>

namespace {

static_assert(sizeof(SQLWCHAR) == sizeof(char16_t));

constexpr size_t kBlockRows = 64;
// Up to here, a column's texts have place for all that the column can hold.
constexpr size_t kMostColumnUnits = 8192;
// Up to here, places grow.
constexpr size_t kMostTextUnits = size_t{1} << 23;

// `digits`: behind the decimal point. Some engines have no other integers than decimal numbers.
bool IsInteger(SQLSMALLINT type, SQLSMALLINT digits) {
  return type == SQL_INTEGER || type == SQL_SMALLINT || type == SQL_TINYINT || type == SQL_BIGINT ||
         type == SQL_BIT || ((type == SQL_NUMERIC || type == SQL_DECIMAL) && digits == 0);
}

// Where the driver puts one column of a block.
struct BlockColumn {
  std::unique_ptr<SQLBIGINT[]> numbers;
  std::unique_ptr<char16_t[]> units;
  SQLLEN lengths[kBlockRows] = {};
};

char Lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

// Runs several times a row, so it is no call into a library.
bool SameName(const char* one, const char* other) {
  while (*one != 0 && (*one == *other || Lower(*one) == Lower(*other))) {
    ++one;
    ++other;
  }
  return *one == *other;
}

}  // namespace

size_t RowBuffer::ColumnOf(const char* name) const {
  for (size_t i = 0; i < columns_.size(); ++i) {
    if (SameName(columns_[i].name.constData(), name)) return i;
  }
  throw DatabaseError(QStringLiteral("记录集中没有名为“%1”的字段。").arg(QString::fromUtf8(name)));
}

void RowBuffer::AppendText(size_t column, QStringView text) {
  Column& c = columns_[column];
  c.text.append(text.utf16(), static_cast<size_t>(text.size()));
  c.ends.push_back(c.text.size());
}

void RowBuffer::TakeColumns(const OdbcHandle& statement) {
  columns_.clear();
  rowCount_ = 0;
  SQLSMALLINT count = 0;
  statement.Check(SQLNumResultCols(statement.Get(), &count));
  if (count == 0) throw DatabaseError(QStringLiteral("该语句不返回记录，不能用来打开记录集。"));
  columns_.resize(static_cast<size_t>(count));
  for (SQLSMALLINT i = 0; i < count; ++i) {
    char name[1024] = {};
    SQLSMALLINT type = 0;
    SQLULEN size = 0;
    SQLSMALLINT digits = 0;
    statement.Check(SQLDescribeCol(statement.Get(), static_cast<SQLUSMALLINT>(i + 1),
                                   reinterpret_cast<SQLCHAR*>(name), sizeof name, nullptr, &type,
                                   &size, &digits, nullptr));
    columns_[i].name = name;
    columns_[i].isText = !IsInteger(type, digits);
    // A character takes up to two units.
    columns_[i].units = columns_[i].isText ? size * 2 : 0;
  }
}

size_t RowBuffer::Read(const OdbcHandle& statement, size_t textUnits) {
  TakeColumns(statement);
  for (const Column& c : columns_) {
    if (c.units <= kMostColumnUnits) textUnits = std::max(textUnits, c.units + 3);
  }
  const size_t blockRows = textUnits <= kMostColumnUnits + 3 ? kBlockRows : 1;
  const SQLHSTMT hstmt = statement.Get();
  SQLULEN rowsFetched = 0;
  SQLUSMALLINT rowStatus[kBlockRows] = {};
  statement.Check(SQLSetStmtAttr(hstmt, SQL_ATTR_ROW_ARRAY_SIZE, AsOdbcPointer(blockRows), 0));
  statement.Check(SQLSetStmtAttr(hstmt, SQL_ATTR_ROWS_FETCHED_PTR, &rowsFetched, 0));
  statement.Check(SQLSetStmtAttr(hstmt, SQL_ATTR_ROW_STATUS_PTR, rowStatus, 0));
  std::vector<BlockColumn> block(columns_.size());
  for (size_t i = 0; i < columns_.size(); ++i) {
    const auto number = static_cast<SQLUSMALLINT>(i + 1);
    if (columns_[i].isText) {
      block[i].units.reset(new char16_t[blockRows * textUnits]);
      statement.Check(SQLBindCol(hstmt, number, SQL_C_WCHAR, block[i].units.get(),
                                 static_cast<SQLLEN>(textUnits * sizeof(char16_t)),
                                 block[i].lengths));
    } else {
      block[i].numbers.reset(new SQLBIGINT[blockRows]);
      statement.Check(SQLBindCol(hstmt, number, SQL_C_SBIGINT, block[i].numbers.get(),
                                 sizeof(SQLBIGINT), block[i].lengths));
    }
  }

  // Drivers differ in how they tell that they cut a text: by a warning, by the length alone, by an
  // error, or by nothing but that no terminator stands behind the text. So each of these is taken
  // for that, until the place cannot grow any more.
  const bool canGrow = textUnits < kMostTextUnits;
  bool isDoubtful = false;
  size_t longest = 0;
  for (;;) {
    const SQLRETURN result = SQLFetch(hstmt);
    if (result == SQL_NO_DATA) break;
    if (result != SQL_SUCCESS) isDoubtful = true;
    if (result == SQL_ERROR && canGrow) break;
    statement.Check(result);
    for (size_t row = 0; row < rowsFetched; ++row) {
      if (rowStatus[row] == SQL_ROW_ERROR && !canGrow) statement.Fail();
      if (rowStatus[row] != SQL_ROW_SUCCESS) isDoubtful = true;
    }
    for (size_t i = 0; i < columns_.size(); ++i) {
      Column& c = columns_[i];
      for (size_t row = 0; row < rowsFetched; ++row) {
        const SQLLEN length = block[i].lengths[row];
        if (!c.isText) {
          c.numbers.push_back(length == SQL_NULL_DATA ? 0 : block[i].numbers[row]);
          continue;
        }
        if (length != SQL_NULL_DATA) {
          const char16_t* place = block[i].units.get() + row * textUnits;
          size_t units = length < 0 ? textUnits : static_cast<size_t>(length) / sizeof(char16_t);
          longest = std::max(longest, units);
          units = std::min(units, textUnits - 1);
          // One driver tells too short a length; its terminator is where it belongs.
          while (units < textUnits - 1 && place[units] != 0) ++units;
          longest = std::max(longest, units);
          if (place[units] != 0) isDoubtful = true;
          c.text.append(place, units);
        }
        c.ends.push_back(c.text.size());
      }
    }
    rowCount_ += rowsFetched;
  }
  // A text that fills its place may have been cut, or lost its last surrogate pair.
  const bool isFull = longest + 2 >= textUnits;
  if (!canGrow && isFull) throw DatabaseError(QStringLiteral("数据库中的文字太长。"));
  if (!canGrow || (!isFull && !isDoubtful)) return 0;
  return std::min(std::max(longest + 3, textUnits * 4), kMostTextUnits);
}
