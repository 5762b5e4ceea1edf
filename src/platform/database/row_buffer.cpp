// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "row_buffer.h"

#include "database_error.h"

#include <QStringDecoder>

#include <algorithm>
#include <memory>

namespace {

constexpr size_t kBlockRows = 64;
// Up to here, a column's texts have place for all that the column can hold.
constexpr size_t kMostColumnBytes = 16384;
// Up to here, places grow.
constexpr size_t kMostTextBytes = size_t{1} << 24;
// The longest UTF-8 sequence.
constexpr size_t kMostBytes = 4;

// `digits`: behind the decimal point. Some engines have no other integers than decimal numbers.
bool IsInteger(SQLSMALLINT type, SQLSMALLINT digits) {
  return type == SQL_INTEGER || type == SQL_SMALLINT || type == SQL_TINYINT || type == SQL_BIGINT ||
         type == SQL_BIT || ((type == SQL_NUMERIC || type == SQL_DECIMAL) && digits == 0);
}

// Puts the text into `place`, which has room for as many characters as there are bytes, and returns
// its end. Nearly every text has only characters of one and three bytes; any other is left to Qt,
// whose decoder takes several times as long.
QChar* Decode(QByteArrayView utf8, QChar* place) {
  const auto isTail = [](uchar byte) { return (byte & 0xC0) == 0x80; };
  const auto* byte = reinterpret_cast<const uchar*>(utf8.begin());
  const auto* const end = reinterpret_cast<const uchar*>(utf8.end());
  QChar* next = place;
  while (byte != end) {
    if (*byte < 0x80) {
      *next++ = QChar(*byte++);
    } else if (*byte > 0xE0 && *byte < 0xF0 && *byte != 0xED && end - byte >= 3 &&
               isTail(byte[1]) && isTail(byte[2])) {
      *next++ = QChar((byte[0] & 0x0F) << 12 | (byte[1] & 0x3F) << 6 | (byte[2] & 0x3F));
      byte += 3;
    } else {
      QStringDecoder decoder(
          QStringDecoder::Utf8,  // a byte order mark is part of the text
          QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
      return decoder.appendToBuffer(place, utf8);
    }
  }
  return next;
}

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

// A block of rows as the driver delivers it, and what it tells of the texts in all blocks.
struct RowBuffer::Block {
  // Where the driver puts a column: the one or the other, and the length of each text.
  struct Place {
    std::unique_ptr<SQLBIGINT[]> numbers;
    std::unique_ptr<char[]> bytes;
    SQLLEN lengths[kBlockRows] = {};
  };

  Block(const std::vector<Column>& columns, size_t leastTextBytes);
  Block(const Block&) = delete;  // the statement knows where it is
  Block& operator=(const Block&) = delete;

  void Bind(const OdbcHandle& statement, const std::vector<Column>& columns);
  // Has the next rows put into the block. False when there are none, or no use in them.
  bool Fetch(const OdbcHandle& statement);
  // Appends a column's fetched rows.
  void AppendNumbers(const Place& place, std::vector<qint64>& numbers) const;
  void AppendTexts(const Place& place, Column& column);
  // After the last row.
  Outcome Judge() const;

  bool CanGrow() const { return textBytes < kMostTextBytes; }

  size_t textBytes;  // the place of a text
  size_t mostRows;
  std::vector<Place> places;
  SQLULEN rows = 0;  // fetched
  SQLUSMALLINT status[kBlockRows] = {};
  // Drivers differ in how they tell that they cut a text: by a warning, by the length alone, by an
  // error, or by nothing but that no terminator stands behind the text. So each of these is taken
  // for that, until the place cannot grow any more.
  bool isDoubtful = false;
  size_t longest = 0;
};

RowBuffer::Block::Block(const std::vector<Column>& columns, size_t leastTextBytes)
    : textBytes(leastTextBytes), places(columns.size()) {
  for (const Column& c : columns) {
    if (c.bytes <= kMostColumnBytes) textBytes = std::max(textBytes, c.bytes + kMostBytes + 1);
  }
  mostRows = textBytes <= kMostColumnBytes + kMostBytes + 1 ? kBlockRows : 1;
}

void RowBuffer::Block::Bind(const OdbcHandle& statement, const std::vector<Column>& columns) {
  const SQLHSTMT hstmt = statement.Get();
  statement.Check(SQLSetStmtAttr(hstmt, SQL_ATTR_ROW_ARRAY_SIZE, AsOdbcPointer(mostRows), 0));
  statement.Check(SQLSetStmtAttr(hstmt, SQL_ATTR_ROWS_FETCHED_PTR, &rows, 0));
  statement.Check(SQLSetStmtAttr(hstmt, SQL_ATTR_ROW_STATUS_PTR, status, 0));
  for (size_t i = 0; i < columns.size(); ++i) {
    Place& place = places[i];
    if (columns[i].isText) {
      place.bytes.reset(new char[mostRows * textBytes]);
      statement.Check(SQLBindCol(hstmt, columns[i].number, SQL_C_CHAR, place.bytes.get(),
                                 static_cast<SQLLEN>(textBytes), place.lengths));
    } else {
      place.numbers.reset(new SQLBIGINT[mostRows]);
      statement.Check(SQLBindCol(hstmt, columns[i].number, SQL_C_SBIGINT, place.numbers.get(),
                                 sizeof(SQLBIGINT), place.lengths));
    }
  }
}

bool RowBuffer::Block::Fetch(const OdbcHandle& statement) {
  const SQLRETURN result = SQLFetch(statement.Get());
  if (result == SQL_NO_DATA) return false;
  if (result != SQL_SUCCESS) isDoubtful = true;
  if (result == SQL_ERROR && CanGrow()) return false;
  statement.Check(result);
  for (size_t row = 0; row < rows; ++row) {
    if (status[row] == SQL_ROW_ERROR && !CanGrow()) statement.Fail();
    if (status[row] != SQL_ROW_SUCCESS) isDoubtful = true;
  }
  return true;
}

void RowBuffer::Block::AppendNumbers(const Place& place, std::vector<qint64>& numbers) const {
  for (size_t row = 0; row < rows; ++row) {
    numbers.push_back(place.lengths[row] == SQL_NULL_DATA ? 0 : place.numbers[row]);
  }
}

void RowBuffer::Block::AppendTexts(const Place& place, Column& column) {
  const auto bytesOf = [&](size_t row) -> size_t {
    const SQLLEN length = place.lengths[row];
    if (length == SQL_NULL_DATA) return 0;
    return length < 0 ? textBytes : static_cast<size_t>(length);
  };
  size_t all = 0;
  for (size_t row = 0; row < rows; ++row) {
    const size_t bytes = bytesOf(row);
    longest = std::max(longest, bytes);
    all += std::min(bytes, textBytes - 1);
  }
  QString& text = column.text;
  qsizetype end = text.size();
  text.resize(end + static_cast<qsizetype>(all));
  QChar* const begin = text.data();
  for (size_t row = 0; row < rows; ++row) {
    const char* const utf8 = place.bytes.get() + row * textBytes;
    const size_t bytes = std::min(bytesOf(row), textBytes - 1);
    if (place.lengths[row] != SQL_NULL_DATA && utf8[bytes] != 0) isDoubtful = true;
    end = Decode(QByteArrayView(utf8, static_cast<qsizetype>(bytes)), begin + end) - begin;
    column.ends.push_back(end);
  }
  text.truncate(end);
}

RowBuffer::Outcome RowBuffer::Block::Judge() const {
  // A text that fills its place may have been cut, or lost its last character.
  const bool isFull = longest + kMostBytes >= textBytes;
  if (!CanGrow() && isFull) throw DatabaseError(QStringLiteral("数据库中的文字太长。"));
  if (!CanGrow() || (!isFull && !isDoubtful)) return {};
  return {
      .isComplete = false,
      .nextTextBytes = std::min(std::max(longest + kMostBytes + 1, textBytes * 4), kMostTextBytes)};
}

size_t RowBuffer::ColumnOf(const char* name) const {
  for (size_t i = 0; i < columns_.size(); ++i) {
    if (SameName(columns_[i].name.constData(), name)) return i;
  }
  throw DatabaseError(QStringLiteral("记录集中没有名为“%1”的字段。").arg(QString::fromUtf8(name)));
}

void RowBuffer::AppendText(size_t column, QStringView text) {
  Column& c = columns_[column];
  c.text.append(text);
  c.ends.push_back(c.text.size());
}

qint64 RowBuffer::IntegerOfText(size_t column, size_t row) const {
  const QStringView text = Text(column, row);
  if (text.isEmpty()) return 0;
  bool isInteger = false;
  const qint64 number = text.toLongLong(&isInteger);
  if (!isInteger) throw DatabaseError(QStringLiteral("“%1”不是整数。").arg(text));
  return number;
}

void RowBuffer::TakeColumns(const OdbcHandle& statement, const QByteArrayList& columns) {
  columns_.clear();
  rowCount_ = 0;
  SQLSMALLINT count = 0;
  statement.Check(SQLNumResultCols(statement.Get(), &count));
  if (count == 0) throw DatabaseError(QStringLiteral("该语句不返回记录，不能用来打开记录集。"));
  for (SQLUSMALLINT number = 1; number <= count; ++number) {
    char name[1024] = {};
    SQLSMALLINT type = 0;
    SQLULEN size = 0;
    SQLSMALLINT digits = 0;
    statement.Check(SQLDescribeCol(statement.Get(), number, reinterpret_cast<SQLCHAR*>(name),
                                   sizeof name, nullptr, &type, &size, &digits, nullptr));
    const auto isIt = [&](const QByteArray& wanted) { return SameName(name, wanted.constData()); };
    if (!columns.isEmpty() && std::none_of(columns.begin(), columns.end(), isIt)) continue;
    Column& column = columns_.emplace_back();
    column.name = name;
    column.number = number;
    column.isText = !IsInteger(type, digits);
    column.bytes = column.isText ? size * kMostBytes : 0;
  }
}

RowBuffer::Outcome RowBuffer::Read(const OdbcHandle& statement, const QByteArrayList& columns,
                                   size_t textBytes) {
  TakeColumns(statement, columns);
  Block block(columns_, textBytes);
  block.Bind(statement, columns_);
  while (block.Fetch(statement)) {
    for (size_t i = 0; i < columns_.size(); ++i) {
      if (columns_[i].isText) {
        block.AppendTexts(block.places[i], columns_[i]);
      } else {
        block.AppendNumbers(block.places[i], columns_[i].numbers);
      }
    }
    rowCount_ += block.rows;
  }
  return block.Judge();
}
