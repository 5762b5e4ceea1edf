// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "library_check.h"

#include "connection.h"
#include "data_base_funcs.h"
#include "dialect.h"
#include "error.h"
#include "library_structure.h"
#include "progress_bar.h"
#include "recordset.h"
#include "transaction.h"
#include "word_faults.h"

#include <QSet>

#include <algorithm>
#include <iterator>
#include <limits>
#include <optional>
#include <utility>

namespace {

constexpr qint64 kLast = std::numeric_limits<qint32>::max();

qint64 Number(const Recordset& rows, size_t column) {
  return rows.FieldText(column).toLongLong();
}

QString CategoryLabel(const QString& name, qint64 gid) {
  return QStringLiteral("分类条目%1（GID=%2）：").arg(Shown(name), QString::number(gid));
}

// One passage through all rows, which tells what is wrong and mends it when it is asked to.
class Passage {
 public:
  Passage(Connection& connection, bool mends) : connection_(connection), mends_(mends) {}

  Checked Run();

 private:
  struct Category {
    qint64 gid;
    QString name;
    qint64 position;
    bool sharesGid = false;  // with another row, from which it cannot be told apart
  };

  void ReadCategories();
  void ExamineIdentifiers();
  void ExamineRegisterAgainst(const std::vector<qint64>& owners);
  void ExaminePositions();
  void ExamineCategoryNames();
  void ExamineWordsOf(qint64 gid, bool isThere, Room& room);
  void Apply(qint64 gid, const CheckedWord& word, const WordChange& change);
  qint64 HomeGid();
  // The column's numbers in all rows of a statement.
  std::vector<qint64> Numbers(const QString& statement, const char* column);
  void Tell(Fault fault) { checked_.faults.push_back(std::move(fault)); }

  Connection& connection_;
  const bool mends_;
  DataBaseFuncs funcs_{connection_};
  Checked checked_;
  std::vector<Category> categories_;  // by GID
  std::optional<qint64> homeGid_;
  Room home_;
  // Texts of SQLite may have null characters, at which its driver ends them.
  QSet<std::pair<qint64, qint64>> cutNames_;
};

Checked Passage::Run() {
  if (connection_.EngineName() == u"SQLite") {
    Recordset rows;
    rows.Open(QStringLiteral("select SortID,ID from Items where instr(NodeName,char(0))>0"),
              connection_);
    for (; !rows.IsEof(); rows.MoveNext()) cutNames_.insert({Number(rows, 0), Number(rows, 1)});
  }
  ReadCategories();
  const auto owners =
      Numbers(QStringLiteral("select distinct SortID from Items order by SortID"), "SortID");
  ExamineRegisterAgainst(owners);
  ExamineIdentifiers();
  ExaminePositions();
  ExamineCategoryNames();

  ProgressBar progress(QStringLiteral("检查"), static_cast<qsizetype>(owners.size()) + 1);
  // What comes home finds the names there taken.
  if (homeGid_) ExamineWordsOf(*homeGid_, true, home_);
  QSet<qint64> done;
  for (const Category& category : categories_) {
    if (done.contains(category.gid)) continue;
    done.insert(category.gid);
    if (category.gid == homeGid_) continue;
    Room room;
    ExamineWordsOf(category.gid, true, room);
    progress.Advance(1);
  }
  for (const qint64 owner : owners) {
    if (done.contains(owner)) continue;
    Room room;
    ExamineWordsOf(owner, false, room);
    progress.Advance(1);
  }
  checked_.categories = static_cast<qsizetype>(categories_.size());
  const qint64 homeless =
      Numbers(QStringLiteral("select count(*) as n from Items where SortID is null"), "n").at(0);
  if (homeless > 0) {
    Tell({QStringLiteral("%1 个分类词没有 SortID，请先用数据库的工具改正").arg(homeless),
          QString()});
  }
  return std::move(checked_);
}

std::vector<qint64> Passage::Numbers(const QString& statement, const char* column) {
  Recordset rows;
  rows.Open(statement, connection_);
  std::vector<qint64> numbers;
  for (; !rows.IsEof(); rows.MoveNext()) numbers.push_back(rows.FieldText(column).toLongLong());
  return numbers;
}

void Passage::ReadCategories() {
  Recordset rows;
  rows.Open(QStringLiteral("select * from Dictionary order by GID,Position"), connection_);
  for (; !rows.IsEof(); rows.MoveNext()) {
    Category category{rows.FieldText("GID").toLongLong(), rows.FieldText("SortName"),
                      rows.FieldText("Position").toLongLong()};
    if (!categories_.empty() && categories_.back().gid == category.gid) {
      categories_.back().sharesGid = category.sharesGid = true;
      Tell({CategoryLabel(category.name, category.gid) +
                QStringLiteral("与另一个分类条目编号相同，请先用数据库的工具改正"),
            QString()});
    }
    categories_.push_back(std::move(category));
  }
}

void Passage::ExamineRegisterAgainst(const std::vector<qint64>& owners) {
  qint64 greatest = 0;
  const auto take = [&](qint64 gid) {
    if (IsInRange(gid)) greatest = std::max(greatest, gid);
  };
  for (const Category& category : categories_) take(category.gid);
  for (const qint64 owner : owners) take(owner);
  for (const qint64 id : Numbers(QStringLiteral("select max(ID) as n from GUIDLists"), "n"))
    take(id);
  const Register state = ExamineRegister(connection_);
  if (!state.countsUp) {
    Tell({QStringLiteral("GUIDLists 的 ID 不是自动编号，新建分类条目会失败，或得到用过的编号，请用 "
                         "hcwordlib-admin copy 复制到新的数据库"),
          QString()});
  } else if (!state.isVisible) {
    Tell({QStringLiteral("帐号没有权限看 GUIDLists 的序列，不能核对编号，请换有此权限的帐号检查"),
          QString()});
  } else if (state.counter >= kLast - 1) {
    Tell({QStringLiteral("GUIDLists 的编号已经用完，不能新建分类条目，请导出后在新的数据库中导入"),
          QString()});
  } else if (state.counter < greatest) {
    Tell({QStringLiteral(
              "GUIDLists 给出的下一个编号是 %1，而 %2 已经用过，新的分类条目会与旧的编号相同")
              .arg(state.counter + 1)
              .arg(greatest),
          QStringLiteral("改为从 %1 开始").arg(greatest + 1)});
    if (mends_) AdvanceRegister(connection_, greatest);
  }
}

void Passage::ExamineIdentifiers() {
  for (Category& category : categories_) {
    if (IsInRange(category.gid) || category.sharesGid) continue;
    Tell({CategoryLabel(category.name, category.gid) +
              QStringLiteral("编号用尽或超出了 32 位整数的范围"),
          QStringLiteral("另给编号")});
    if (!mends_) continue;
    qint32 gid = 0;
    QString reason;
    GetGUID identifiers;
    if (!identifiers.NewID(connection_, QStringLiteral("GUIDLists"), gid, &reason)) {
      throw Error(reason);
    }
    for (const char* form : {"update Dictionary set GID=%1 where GID=%2",
                             "update Items set SortID=%1 where SortID=%2"}) {
      connection_.Execute(QString::fromLatin1(form).arg(gid).arg(category.gid));
    }
    category.gid = gid;
  }
}

void Passage::ExaminePositions() {
  const bool isFull = std::any_of(categories_.begin(), categories_.end(),
                                  [](const Category& each) { return !IsInRange(each.position); });
  if (!isFull) return;
  Tell({QStringLiteral("分类条目的 Position 用完了 32 位整数，不能新建分类条目"),
        QStringLiteral("依原来的顺序从 1 重新编排")});
  if (!mends_) return;
  std::vector<Category*> inOrder;
  for (Category& category : categories_) inOrder.push_back(&category);
  std::stable_sort(inOrder.begin(), inOrder.end(), [](const Category* one, const Category* other) {
    return one->position < other->position;
  });
  for (qsizetype position = 0; const Category* category : inOrder) {
    connection_.Execute(QStringLiteral("update Dictionary set Position=%1 where GID=%2")
                            .arg(++position)
                            .arg(category->gid));
  }
}

void Passage::ExamineCategoryNames() {
  std::vector<QString> names;
  for (const Category& category : categories_) names.push_back(category.name);
  const std::vector<QString> newNames = Names().Settle(
      names, QStringLiteral("新建条目"),
      [&](size_t i) { return CategoryLabel(categories_[i].name, categories_[i].gid); },
      checked_.faults);
  for (size_t i = 0; i < newNames.size(); ++i) {
    Category& category = categories_[i];
    if (mends_ && !newNames[i].isNull() && !category.sharesGid) {
      connection_.Execute(QStringLiteral("update Dictionary set SortName=%1 where GID=%2")
                              .arg(Quoted(newNames[i]), QString::number(category.gid)));
    }
    if (category.name == HomeName() && !homeGid_) homeGid_ = category.gid;
  }
}

void Passage::ExamineWordsOf(qint64 gid, bool isThere, Room& room) {
  std::vector<CheckedWord> words;
  {
    Recordset rows;
    rows.Open(QStringLiteral("select * from Items where SortID=%1 order by ID").arg(gid),
              connection_);
    const size_t id = rows.ColumnOf("ID");
    const size_t fatherId = rows.ColumnOf("FatherID");
    const size_t name = rows.ColumnOf("NodeName");
    for (; !rows.IsEof(); rows.MoveNext()) {
      CheckedWord word{Number(rows, id), Number(rows, fatherId), rows.FieldText(name)};
      if (cutNames_.contains({gid, word.id})) word.name += QChar(u'\0');
      words.push_back(std::move(word));
    }
  }
  checked_.words += static_cast<qsizetype>(words.size());
  const auto changes = ExamineWords(words, gid, isThere, room, home_, checked_.faults);
  if (!mends_) return;
  for (const WordChange& change : changes) Apply(gid, words[change.word], change);
}

void Passage::Apply(qint64 gid, const CheckedWord& word, const WordChange& change) {
  if (!IsInRange(change.id)) {
    throw Error(
        QStringLiteral("分类条目 GID=%1 的分类词编号已经用完，没有修复；请导出后在新的数据库中"
                       "导入。")
            .arg(change.goesHome ? HomeGid() : gid));
  }
  // A name that stays does not pass through the driver.
  connection_.Execute(QStringLiteral("update Items set SortID=%1,ID=%2,FatherID=%3%4"
                                     " where SortID=%5 and ID=%6")
                          .arg(change.goesHome ? HomeGid() : gid)
                          .arg(change.id)
                          .arg(change.fatherId)
                          .arg(change.name.isNull()
                                   ? QString()
                                   : QStringLiteral(",NodeName=") + Quoted(change.name))
                          .arg(gid)
                          .arg(word.id));
}

qint64 Passage::HomeGid() {
  if (!homeGid_) {
    qint32 position = 0;
    qint32 gid = 0;
    QString reason;
    if (!funcs_.AddDict(HomeName(), position, gid, &reason)) throw Error(reason);
    homeGid_ = gid;
  }
  return *homeGid_;
}

// Keeps others from writing until the transaction ends. SQLite's does so from its beginning.
void LockTables(Connection& connection) {
  if (connection.EngineName() == u"PostgreSQL") {
    connection.Execute(
        QStringLiteral("lock table Dictionary,Items,GUIDLists in share row exclusive mode"));
  } else if (connection.EngineName() == u"MariaDB") {
    // The key's index is locked, as every row stands in it, unless the table has none.
    Recordset keys;
    keys.Open(QStringLiteral("select table_name from information_schema.statistics where"
                             " table_schema=database() and index_name='PRIMARY'"),
              connection);
    QSet<QString> withKey;
    for (; !keys.IsEof(); keys.MoveNext()) withKey += keys.FieldText(size_t{0}).toLower();
    for (const char* table : {"Dictionary", "Items"}) {
      const QString name = QLatin1String(table);
      Recordset rows;
      rows.Open(
          QStringLiteral("select count(*) from %1 %2 for update")
              .arg(name, withKey.contains(name.toLower()) ? QStringLiteral("force index (primary)")
                                                          : QString()),
          connection);
    }
  }
}

Checked Examine(Connection& connection) {
  Faults faults = ExamineStructure(connection).faults;
  Checked checked = Passage(connection, false).Run();
  checked.faults.insert(checked.faults.begin(), faults.begin(), faults.end());
  return checked;
}

}  // namespace

Checked CheckLibrary(Connection& connection) {
  const Transaction transaction(connection, Transaction::Use::kRead);
  return Examine(connection);
}

Repaired RepairLibrary(Connection& connection) {
  Faults found;
  const auto mendStructure = [&] {
    Structure structure = ExamineStructure(connection);
    for (const QString& statement : structure.statements) connection.Execute(statement);
    found = std::move(structure.faults);
  };
  const bool commitsAtOnce = connection.EngineName() == u"MariaDB";
  if (commitsAtOnce) mendStructure();
  Transaction transaction(connection, Transaction::Use::kWrite);
  LockTables(connection);
  if (!commitsAtOnce) mendStructure();
  const Checked before = Passage(connection, true).Run();
  found.insert(found.end(), before.faults.begin(), before.faults.end());

  Repaired repaired{{}, Examine(connection)};
  if (repaired.left.words != before.words) {
    throw Error(QStringLiteral("修复前有 %1 个分类词，修复后却有 %2 个，没有修复。")
                    .arg(before.words)
                    .arg(repaired.left.words));
  }
  transaction.Commit();
  QSet<QString> left;
  for (const Fault& fault : repaired.left.faults) left.insert(fault.text);
  std::copy_if(found.begin(), found.end(), std::back_inserter(repaired.mended),
               [&](const Fault& fault) { return !left.contains(fault.text); });
  return repaired;
}
