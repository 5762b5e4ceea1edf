// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "library_copy.h"

#include "bulk_writer.h"
#include "connection.h"
#include "database_error.h"
#include "library_structure.h"
#include "library_tasks.h"
#include "name_faults.h"
#include "progress_bar.h"
#include "recordset.h"
#include "transaction.h"

#include <QHash>
#include <QSet>

#include <algorithm>
#include <deque>
#include <limits>
#include <utility>

namespace {

struct Table {
  QString name;
  QString entry;        // what a row is called
  QStringList columns;  // first the key, or the part of it that tells a category's words apart
  size_t numbers;       // so many columns of numbers, then perhaps one of names

  bool HasNames() const { return static_cast<size_t>(columns.size()) > numbers; }
};

const Table kCategories{
    QStringLiteral("Dictionary"),
    QStringLiteral("分类条目"),
    {QStringLiteral("GID"), QStringLiteral("Position"), QStringLiteral("SortName")},
    2};
const Table kWords{QStringLiteral("Items"),
                   QStringLiteral("分类词"),
                   {QStringLiteral("ID"), QStringLiteral("SortID"), QStringLiteral("FatherID"),
                    QStringLiteral("NodeName")},
                   3};
const Table kRegister{
    QStringLiteral("GUIDLists"),
    QStringLiteral("登记的编号"),
    {QStringLiteral("ID"), QStringLiteral("GUIDField1"), QStringLiteral("GUIDField2"),
     QStringLiteral("GUIDField3"), QStringLiteral("GUIDField4")},
    5};

using Row = std::vector<FieldValue>;  // as the table's columns

qint32 NumberIn(const Row& row, size_t column) {
  return std::get<qint32>(row[column]);
}

Row RowOf(const Recordset& rows, const Table& table) {
  Row row;
  row.reserve(table.numbers + 1);
  for (size_t i = 0; i < table.numbers; ++i) row.emplace_back(rows.FieldInteger(i));
  if (table.HasNames()) row.emplace_back(rows.FieldText(table.numbers));
  return row;
}

QString Description(const Row& row, const Table& table) {
  QStringList numbers;
  for (size_t i = 0; i < table.numbers; ++i) {
    numbers +=
        QStringLiteral("%1=%2").arg(table.columns[static_cast<qsizetype>(i)]).arg(NumberIn(row, i));
  }
  const QString name = table.HasNames() ? Shown(std::get<QString>(row.back())) : QString();
  return table.entry + name + u'（' + numbers.join(u'，') + u'）';
}

QString SelectRows(const Table& table, const QString& condition) {
  return QStringLiteral("select %1 from %2 where ").arg(table.columns.join(u','), table.name) +
         condition;
}

QString WordsOf(qint32 gid) {
  return QStringLiteral("SortID=%1").arg(gid);
}

qint32 CountRows(Connection& connection, const Table& table) {
  Recordset rows;
  rows.Open(QStringLiteral("select count(*) from ") + table.name, connection);
  return rows.FieldInteger(size_t{0});
}

// The rows of a table that the condition holds for, in the order of their keys, a part at a time.
class RowReader {
 public:
  RowReader(Connection& connection, const Table& table, const QString& condition)
      : connection_(connection),
        statement_(SelectRows(table, condition) + QStringLiteral(" and %1>%3 order by %1 limit %2")
                                                      .arg(table.columns[0])
                                                      .arg(kRowsOfPart)) {}

  // Goes to the next row, at first to the first one. False behind the last row.
  bool Next() {
    if (rows_.IsOpen()) {
      rows_.MoveNext();
      if (!rows_.IsEof()) return true;
      if (rows_.RecordCount() < kRowsOfPart) return false;
      rows_.Close();
    }
    rows_.Open(statement_.arg(lastKey_), connection_);
    if (rows_.IsEof()) return false;
    rows_.MoveLast();
    lastKey_ = rows_.FieldInteger(size_t{0});
    rows_.MoveFirst();
    return true;
  }

  const Recordset& Current() const { return rows_; }

 private:
  static constexpr qint32 kRowsOfPart = 10'000;

  Connection& connection_;
  const QString statement_;
  Recordset rows_;
  qint64 lastKey_ = qint64{std::numeric_limits<qint32>::min()} - 1;
};

// Stores rows, and tells the one that is refused.
class RowWriter {
 public:
  RowWriter(Connection& connection, const Table& table, ProgressBar& progress)
      : table_(table),
        progress_(progress),
        rows_(connection, table.name, table.columns.join(u',')) {}

  void Add(Row row) {
    pending_.push_back(std::move(row));
    progress_.Advance(1);
    Store([&] { rows_.Add(pending_.back()); });
  }

  void Finish() {
    Store([&] { rows_.Finish(); });
  }

 private:
  template <class Step>
  void Store(const Step& step) {
    try {
      step();
    } catch (const DatabaseError& error) {
      if (!error.IsRowRefused()) throw;
      const Row& refused = pending_[static_cast<size_t>(rows_.StoredRows() - done_)];
      throw Error(QStringLiteral("%1不能复制，什么也没有复制：%2")
                      .arg(Description(refused, table_), error.Description()));
    }
    for (; done_ < rows_.StoredRows(); ++done_) pending_.pop_front();
  }

  const Table& table_;
  ProgressBar& progress_;
  BulkWriter rows_;
  std::deque<Row> pending_;
  qsizetype done_ = 0;  // rows that are stored and no longer pending
};

[[noreturn]] void FailForStrays() {
  throw Error(QStringLiteral(
      "有的分类词没有分类条目或上级词，或与上级成环，什么也没有复制；用 hcwordlib-admin "
      "check 逐一列出，用 check --repair 修复后再复制。"));
}

class LibraryCopy {
 public:
  LibraryCopy(Connection& source, Connection& target)
      : source_(source),
        target_(target),
        words_(CountRows(source, kWords)),
        progress_(QStringLiteral("复制"), qsizetype{2} * (words_ + CountRows(source, kCategories) +
                                                          CountRows(source, kRegister))) {}

  Copied Run() {
    const std::vector<qint32> identifiers = CopyTable(kRegister);
    const std::vector<qint32> categories = CopyTable(kCategories);
    qsizetype words = 0;
    for (const qint32 gid : categories) words += CopyWords(gid);
    if (words != words_) FailForStrays();
    lastIdentifier_ = std::max(lastIdentifier_, ExamineRegister(source_).counter);
    if (ExamineRegister(target_).counter < lastIdentifier_) {
      AdvanceRegister(target_, lastIdentifier_);
      if (std::find(identifiers.begin(), identifiers.end(), lastIdentifier_) == identifiers.end()) {
        // The row that advanced it; it goes on behind the number of this all the same.
        target_.Execute(
            QStringLiteral("delete from %1 where ID=%2").arg(kRegister.name).arg(lastIdentifier_));
      }
    }
    Compare(categories);
    return {static_cast<qsizetype>(categories.size()), words};
  }

 private:
  // In the order in which the source shows its rows. Returns their keys.
  std::vector<qint32> CopyTable(const Table& table) {
    Recordset rows;
    rows.Open(SelectRows(table, QStringLiteral("1=1")), source_);
    RowWriter writer(target_, table, progress_);
    std::vector<qint32> keys;
    for (; !rows.IsEof(); rows.MoveNext()) {
      Row row = RowOf(rows, table);
      keys.push_back(NumberIn(row, 0));
      lastIdentifier_ = std::max<qint64>(lastIdentifier_, keys.back());
      writer.Add(std::move(row));
    }
    writer.Finish();
    return keys;
  }

  // Each word behind its parent, as the target may want it.
  qsizetype CopyWords(qint32 gid) {
    RowReader words(source_, kWords, WordsOf(gid));
    RowWriter writer(target_, kWords, progress_);
    QSet<qint32> added;
    QHash<qint32, std::vector<Row>> waiting;  // by the parent
    while (words.Next()) {
      std::vector<Row> ready{RowOf(words.Current(), kWords)};
      if (const qint32 parent = NumberIn(ready[0], 2); parent != 0 && !added.contains(parent)) {
        waiting[parent].push_back(std::move(ready[0]));
        continue;
      }
      while (!ready.empty()) {
        Row row = std::move(ready.back());
        ready.pop_back();
        const qint32 id = NumberIn(row, 0);
        added += id;
        writer.Add(std::move(row));
        auto children = waiting.take(id);
        std::move(children.begin(), children.end(), std::back_inserter(ready));
      }
    }
    writer.Finish();
    if (!waiting.isEmpty()) FailForStrays();
    return added.size();
  }

  void Compare(const std::vector<qint32>& categories) {
    CompareRows(kRegister, QStringLiteral("1=1"));
    CompareRows(kCategories, QStringLiteral("1=1"));
    for (const qint32 gid : categories) CompareRows(kWords, WordsOf(gid));
    if (CountRows(target_, kWords) != words_ ||
        ExamineRegister(target_).counter < lastIdentifier_) {
      FailForDifference(QStringLiteral("分类词的个数或登记的最后编号"));
    }
  }

  void CompareRows(const Table& table, const QString& condition) {
    RowReader source(source_, table, condition);
    RowReader target(target_, table, condition);
    for (;;) {
      const bool hasSource = source.Next();
      const bool hasTarget = target.Next();
      if (!hasSource && !hasTarget) return;
      if (!hasSource || !hasTarget || !SameRow(source.Current(), target.Current(), table)) {
        const Recordset& rows = hasSource ? source.Current() : target.Current();
        FailForDifference(Description(RowOf(rows, table), table));
      }
      progress_.Advance(1);
    }
  }

  static bool SameRow(const Recordset& one, const Recordset& other, const Table& table) {
    for (size_t i = 0; i < table.numbers; ++i) {
      if (one.FieldInteger(i) != other.FieldInteger(i)) return false;
    }
    return !table.HasNames() || one.FieldView(table.numbers) == other.FieldView(table.numbers);
  }

  [[noreturn]] static void FailForDifference(const QString& what) {
    throw Error(QStringLiteral("核对时%1在两个数据源中不同，什么也没有复制。").arg(what));
  }

  Connection& source_;
  Connection& target_;
  const qint32 words_;  // of the source
  ProgressBar progress_;
  qint64 lastIdentifier_ = 0;  // that was ever given, as far as the source can tell
};

void RequireNoNullCharacters(Connection& source, const Table& table) {
  if (source.EngineName() == u"PostgreSQL") return;  // has none
  Recordset rows;
  rows.Open(
      SelectRows(table, QStringLiteral("instr(%1, char(0))>0 limit 1").arg(table.columns.back())),
      source);
  if (rows.IsEof()) return;
  throw Error(QStringLiteral("%1的名称中有空字符，什么也没有复制；改名后再复制。")
                  .arg(Description(RowOf(rows, table), table)));
}

void Require32Bits(Connection& source, const Table& table) {
  QStringList outside;
  for (size_t i = 0; i < table.numbers; ++i) {
    outside += table.columns[static_cast<qsizetype>(i)] +
               QStringLiteral(" not between -2147483648 and 2147483647");
  }
  Recordset rows;
  rows.Open(QStringLiteral("select count(*) from %1 where ").arg(table.name) +
                outside.join(QStringLiteral(" or ")),
            source);
  const qint32 count = rows.FieldInteger(size_t{0});
  if (count == 0) return;
  throw Error(QStringLiteral("%1 个%2的编号超出了 32 位整数的范围，什么也没有复制；用 "
                             "hcwordlib-admin check --repair 修复后再复制。")
                  .arg(QString::number(count), table.entry));
}

void RequireEmpty(Connection& target, const Table& table) {
  Recordset rows;
  rows.Open(SelectRows(table, QStringLiteral("1=1 limit 1")), target);
  if (rows.IsEof()) return;
  throw Error(QStringLiteral("目标数据源的表 %1 不是空的，什么也没有复制。").arg(table.name));
}

}  // namespace

Copied CopyLibrary(Connection& source, Connection& target) {
  Transaction reading(source, Transaction::Use::kRead);
  for (const Table* table : {&kCategories, &kWords}) {
    Require32Bits(source, *table);
    RequireNoNullCharacters(source, *table);
  }
  if (!TablesExist(target)) CreateTables(target);
  Transaction writing(target, Transaction::Use::kWrite);
  for (const Table* table : {&kCategories, &kWords, &kRegister}) RequireEmpty(target, *table);
  if (!ExamineRegister(target).countsUp) {
    throw Error(QStringLiteral("目标数据源的表 GUIDLists 的 ID 不是自动编号，什么也没有复制。"));
  }
  const Copied copied = LibraryCopy(source, target).Run();
  writing.Commit();
  reading.Commit();
  return copied;
}
