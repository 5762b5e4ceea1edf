// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArrayList>
#include <QString>
#include <QStringView>

#include <memory>
#include <variant>

class Connection;

// How much of what others change an open record set would show. A caller says what it needs; since
// all rows are read when a record set is opened, every type is served alike, and none is kept.
enum class CursorType { kKeyset = 1, kDynamic = 2, kStatic = 3 };
enum class LockType { kUnspecified = -1, kReadOnly = 1, kOptimistic = 3 };

// What a field can be set to.
using FieldValue = std::variant<qint32, QString>;

// The rows of one statement, read when it is opened, with a current row. No cursor and no lock
// stays behind in the database. A record set with an optimistic lock can also store new rows in the
// table that the statement, "select * from T ...", reads. All failures are raised as DatabaseError;
// one that fails to open stays closed.
class Recordset {
 public:
  Recordset();
  ~Recordset();
  Recordset(const Recordset&) = delete;
  Recordset& operator=(const Recordset&) = delete;

  void SetCursorType(CursorType cursorType);
  // Used by the next Open where that leaves it out. At first unspecified.
  void SetLockType(LockType lockType);

  // Runs `statement` on `connection`, which must outlive the record set, and stands on the first
  // row, or at the end when there is none. An unspecified lock is read-only. Where `columns` names
  // some, the record set has only these; the drivers take long over each one of many rows.
  void Open(const QString& statement, Connection& connection);
  void Open(const QString& statement, Connection& connection, CursorType cursorType,
            LockType lockType, const QByteArrayList& columns = {});

  bool IsOpen() const;

  // Releases the rows. Fails when not open.
  void Close();

  // True behind the last row; true from the start when there are no rows.
  bool IsEof() const;

  // Each fails when there are no rows; MoveNext also when already at the end.
  void MoveFirst();
  void MoveLast();
  void MoveNext();

  qint32 RecordCount() const;

  // Moves forward, from the current row on and including it, to the first row that `criterion`
  // holds for, or to the end. The criterion has the form "Column='text'", a single quote in the
  // text doubled; texts are compared exactly. Finding many texts in turn takes one pass over the
  // rows in all.
  void Find(const QString& criterion);

  // The current row's value in the column `name`, whose case does not count. A NULL reads as 0 or
  // as the empty text. FieldInteger fails when the value is no 32-bit integer.
  qint32 FieldInteger(const char* name) const { return FieldInteger(ColumnOf(name)); }
  QString FieldText(const char* name) const { return FieldText(ColumnOf(name)); }

  // The same by the column's place, for whoever reads many rows.
  size_t ColumnOf(const char* name) const;
  qint32 FieldInteger(size_t column) const;
  QString FieldText(size_t column) const;
  // A text where it stands, until the record set changes. Fails for a column of numbers.
  QStringView FieldView(size_t column) const;

  // AddNew begins a row, SetField fills it in, Update stores it; in between there is no current
  // row. The new row is then the record set's last and current row; a number that was not set reads
  // as the one that the database gave to this very row. Fails with the lock read-only. When Update
  // fails, the record set stands where it stood before AddNew, and nothing is stored unless the
  // number could not be told.
  void AddNew();
  void SetField(const char* name, FieldValue value);
  void Update();

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};
