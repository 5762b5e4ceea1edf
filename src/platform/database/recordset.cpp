// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "recordset.h"

#include "database_error.h"
#include "find_index.h"
#include "insert_statement.h"
#include "odbc_connection.h"
#include "row_buffer.h"

#include <QRegularExpression>

#include <exception>

namespace {

// All rows of `statement`, in one go: the driver's cursor is gone before anybody looks at them. A
// forward-only cursor is the fastest one with every driver.
RowBuffer ReadRows(const OdbcConnection& connection, const QString& statement,
                   const QByteArrayList& columns = {}) {
  // Enough for nearly every name; when it is not, the statement is run again.
  constexpr size_t kTextBytes = 1024;
  connection.TakeStep();
  QByteArray text = statement.toUtf8();
  RowBuffer rows;
  RowBuffer::Outcome outcome{.isComplete = false, .nextTextBytes = kTextBytes};
  while (!outcome.isComplete) {
    const OdbcHandle hstmt = connection.NewStatement();
    hstmt.Check(SQLExecDirect(hstmt.Get(), OdbcText(text), SQL_NTS));
    outcome = rows.Read(hstmt, columns, outcome.nextTextBytes);
  }
  return rows;
}

// The table of a statement that reads whole rows of one table, or an empty text.
QString TableOf(const QString& statement) {
  static const QRegularExpression kSelectAll(
      QStringLiteral("\\A\\s*select\\s*\\*\\s*from\\s+([\\w.]++)(?!\\s*,)"),
      QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption);
  return kSelectAll.match(statement).captured(1);
}

}  // namespace

struct Recordset::Impl {
  LockType lockType = LockType::kUnspecified;

  OdbcConnection* connection = nullptr;  // null while closed
  bool readOnly = true;
  QString statement;
  QString table;
  RowBuffer rows;
  size_t current = 0;
  FindIndex findIndex;

  bool adding = false;
  NewRow newRow;
  std::exception_ptr noNumber;  // of the row stored last
  InsertStatement insert;

  void RequireOpen() const;
  // Between AddNew and Update there is nothing to do but to fill in the row.
  void RequireRows() const;
  void RequireCurrentRow() const {
    if (adding || current >= rows.RowCount()) FailWithoutCurrentRow();
  }
  // These stand apart from what runs for every field of many rows, which they would slow down.
  [[noreturn]] void FailWithoutCurrentRow() const;
  [[noreturn]] void FailOutOfRange(size_t column, qint64 number) const;
  [[noreturn]] void FailWithoutText(size_t column) const;
  // The row stored last may have none in `column`.
  void RequireNumber(size_t column) const;
  // The number that the database has given to the row just stored, which stands in `column`.
  qint64 GivenNumber(size_t column) const;
  // The same for a column that was left to the database, which need not be a numbering one: a
  // failure is kept for whoever reads the number, for the row is stored.
  qint64 AskNumber(size_t column);
};

void Recordset::Impl::RequireOpen() const {
  if (connection == nullptr) throw DatabaseError(QStringLiteral("对象关闭时，不允许操作。"));
}

void Recordset::Impl::RequireRows() const {
  RequireOpen();
  if (adding) throw DatabaseError(QStringLiteral("新记录还没有保存，不允许此操作。"));
  if (rows.RowCount() == 0) throw DatabaseError(QStringLiteral("记录集中没有记录。"));
}

void Recordset::Impl::FailWithoutCurrentRow() const {
  RequireRows();
  throw DatabaseError(QStringLiteral("没有当前记录。"));
}

void Recordset::Impl::RequireNumber(size_t column) const {
  const bool isNewRow = current + 1 == rows.RowCount();
  if (isNewRow && !newRow[column]) std::rethrow_exception(noNumber);
}

void Recordset::Impl::FailOutOfRange(size_t column, qint64 number) const {
  throw DatabaseError(QStringLiteral("字段“%1”的值 %2 超出 32 位整数的范围。")
                          .arg(QString::fromUtf8(rows.ColumnName(column)))
                          .arg(number));
}

void Recordset::Impl::FailWithoutText(size_t column) const {
  throw DatabaseError(
      QStringLiteral("字段“%1”不是文字。").arg(QString::fromUtf8(rows.ColumnName(column))));
}

qint64 Recordset::Impl::GivenNumber(size_t column) const {
  const char* identityStatement = connection->dialect->identityStatement;
  const RowBuffer answer =
      ReadRows(*connection,
               identityStatement != nullptr ? QString::fromLatin1(identityStatement) : statement);
  if (answer.RowCount() == 0) throw DatabaseError(QStringLiteral("数据库没有给出新记录的编号。"));
  return answer.Integer(identityStatement != nullptr ? 0 : column, answer.RowCount() - 1);
}

qint64 Recordset::Impl::AskNumber(size_t column) {
  try {
    return GivenNumber(column);
  } catch (const DatabaseError&) {
    noNumber = std::current_exception();
    return 0;
  }
}

Recordset::Recordset() : impl_(std::make_unique<Impl>()) {}

Recordset::~Recordset() = default;

void Recordset::SetLockType(LockType lockType) {
  impl_->lockType = lockType;
}

void Recordset::SetCursorType(CursorType) {}

void Recordset::Open(const QString& statement, Connection& connection) {
  Open(statement, connection, CursorType::kStatic, impl_->lockType);
}

void Recordset::Open(const QString& statement, Connection& connection, CursorType,
                     LockType lockType, const QByteArrayList& columns) {
  if (IsOpen()) throw DatabaseError(QStringLiteral("对象打开时，不允许操作。"));
  connection.impl_->RequireOpen();
  auto opened = std::make_unique<Impl>();
  opened->rows = ReadRows(*connection.impl_, statement, columns);
  opened->lockType = impl_->lockType;
  opened->connection = connection.impl_.get();
  opened->readOnly = lockType != LockType::kOptimistic;
  opened->statement = statement;
  opened->table = TableOf(statement);
  impl_ = std::move(opened);
}

bool Recordset::IsOpen() const {
  return impl_->connection != nullptr;
}

void Recordset::Close() {
  impl_->RequireOpen();
  auto closed = std::make_unique<Impl>();
  closed->lockType = impl_->lockType;
  impl_ = std::move(closed);
}

bool Recordset::IsEof() const {
  impl_->RequireOpen();
  return impl_->current == impl_->rows.RowCount();
}

void Recordset::MoveFirst() {
  impl_->RequireRows();
  impl_->current = 0;
}

void Recordset::MoveLast() {
  impl_->RequireRows();
  impl_->current = impl_->rows.RowCount() - 1;
}

void Recordset::MoveNext() {
  impl_->RequireCurrentRow();
  ++impl_->current;
}

qint32 Recordset::RecordCount() const {
  impl_->RequireOpen();
  return static_cast<qint32>(impl_->rows.RowCount());
}

void Recordset::Find(const QString& criterion) {
  impl_->RequireCurrentRow();
  const Criterion wanted = ParseCriterion(criterion);
  const size_t column = impl_->rows.ColumnOf(wanted.column);
  if (!impl_->rows.IsText(column)) {
    throw DatabaseError(
        QStringLiteral("字段“%1”不是文字，不能查找。").arg(QString::fromUtf8(wanted.column)));
  }
  impl_->current = impl_->findIndex.Find(impl_->rows, column, impl_->current, wanted.text);
}

size_t Recordset::ColumnOf(const char* name) const {
  impl_->RequireOpen();
  return impl_->rows.ColumnOf(name);
}

qint32 Recordset::FieldInteger(size_t column) const {
  impl_->RequireCurrentRow();
  if (impl_->noNumber) impl_->RequireNumber(column);
  const qint64 number = impl_->rows.Integer(column, impl_->current);
  if (number != static_cast<qint32>(number)) impl_->FailOutOfRange(column, number);
  return static_cast<qint32>(number);
}

QString Recordset::FieldText(size_t column) const {
  impl_->RequireCurrentRow();
  if (impl_->rows.IsText(column)) return impl_->rows.Text(column, impl_->current).toString();
  return QString::number(impl_->rows.Number(column, impl_->current));
}

QStringView Recordset::FieldView(size_t column) const {
  impl_->RequireCurrentRow();
  if (!impl_->rows.IsText(column)) impl_->FailWithoutText(column);
  return impl_->rows.Text(column, impl_->current);
}

void Recordset::AddNew() {
  impl_->RequireOpen();
  if (impl_->adding) throw DatabaseError(QStringLiteral("新记录还没有保存，不允许此操作。"));
  if (impl_->readOnly || impl_->table.isEmpty()) {
    throw DatabaseError(QStringLiteral("记录集是只读的，不能添加记录。"));
  }
  impl_->newRow.assign(impl_->rows.ColumnCount(), std::nullopt);
  impl_->adding = true;
}

void Recordset::SetField(const char* name, FieldValue value) {
  impl_->RequireOpen();
  if (!impl_->adding) throw DatabaseError(QStringLiteral("没有正在添加的记录。"));
  const size_t column = impl_->rows.ColumnOf(name);
  if (impl_->rows.IsText(column) != std::holds_alternative<QString>(value)) {
    throw DatabaseError(QStringLiteral("字段“%1”的类型与值不符。").arg(QString::fromUtf8(name)));
  }
  impl_->newRow[column] = std::move(value);
}

void Recordset::Update() {
  impl_->RequireOpen();
  if (!impl_->adding) throw DatabaseError(QStringLiteral("没有正在添加的记录。"));
  impl_->adding = false;
  impl_->connection->RequireOpen();
  impl_->connection->TakeStep();
  RowBuffer& rows = impl_->rows;
  impl_->insert.Run(*impl_->connection, impl_->table, rows, impl_->newRow);
  impl_->noNumber = nullptr;

  std::vector<qint64> numbers(rows.ColumnCount());
  for (size_t column = 0; column < rows.ColumnCount(); ++column) {
    if (rows.IsText(column)) continue;
    const std::optional<FieldValue>& value = impl_->newRow[column];
    numbers[column] = value ? std::get<qint32>(*value) : impl_->AskNumber(column);
  }
  impl_->current = rows.RowCount();
  for (size_t column = 0; column < rows.ColumnCount(); ++column) {
    if (rows.IsText(column)) {
      const std::optional<FieldValue>& value = impl_->newRow[column];
      rows.AppendText(column, value ? std::get<QString>(*value) : QString());
    } else {
      rows.AppendNumber(column, numbers[column]);
    }
  }
  rows.EndRow();
  impl_->findIndex.Clear();
}
