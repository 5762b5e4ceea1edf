// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "library_tasks.h"

#include "bulk_writer.h"
#include "characters.h"
#include "com_func.h"
#include "connection.h"
#include "data_base_funcs.h"
#include "database_error.h"
#include "name_faults.h"
#include "progress_bar.h"
#include "recordset.h"
#include "schema.h"
#include "statements.h"
#include "transaction.h"

#include <QHash>
#include <QIODevice>
#include <QSet>

#include <algorithm>
#include <array>
#include <memory>

namespace {

constexpr std::array kTables{"Dictionary", "Items", "GUIDLists"};

std::unique_ptr<Recordset> OpenToRead(const QString& statement, Connection& connection) {
  auto rows = std::make_unique<Recordset>();
  rows->Open(statement, connection);
  return rows;
}

bool TableExists(const char* table, Connection& connection) {
  try {
    auto rows = OpenToRead(QStringLiteral("select * from %1 where 1=0").arg(QLatin1String(table)),
                           connection);
    CloseRecordset(rows);
    return true;
  } catch (const DatabaseError& error) {
    if (!error.IsTableMissing()) throw;
    return false;
  }
}

// MariaDB commits what each statement makes, whatever the transaction.
void DropTables(const QStringList& made, Connection& connection) {
  for (const char* table : kTables) {
    const QString name = QLatin1String(table);
    if (made.filter(QStringLiteral("create table %1 ").arg(name)).isEmpty()) continue;
    try {
      connection.Execute(QStringLiteral("drop table if exists ") + name);
    } catch (const DatabaseError&) {
      // The failure that led here is what counts.
    }
  }
}

// Runs `store`; a row that it is refused is told by the line that `lineOf` names.
template <class Store, class LineOf>
void StoreLines(const Store& store, const LineOf& lineOf) {
  try {
    store();
  } catch (const DatabaseError& error) {
    if (!error.IsRowRefused()) throw;
    throw Error(TextOf({{lineOf(), error.Description()}}));
  }
}

void StoreCategory(const OutlineCategory& category, Connection& connection, DataBaseFuncs& funcs,
                   DataBaseFuncs::DictRows& dictRows, ProgressBar& progress) {
  qint32 gid = 0;
  StoreLines(
      [&] {
        qint32 position = 0;
        QString reason;
        if (!funcs.AddDict(category.name, dictRows, position, gid, &reason)) throw Error(reason);
      },
      [&] { return category.line; });
  progress.Advance(1);

  BulkWriter rows(connection, QStringLiteral("Items"),
                  QStringLiteral("SortID,ID,FatherID,NodeName"));
  StoreLines(
      [&] {
        qint32 id = 0;
        for (const OutlineWord& word : category.words) {
          rows.Add({gid, ++id, word.parent, word.name});
          progress.Advance(1);
        }
        rows.Finish();
      },
      [&] { return category.words[static_cast<size_t>(rows.StoredRows())].line; });
}

// What keeps `name` from being imported as it is, or an empty text; `names` are those before it.
QString Obstacle(const QString& name, QSet<QString>& names) {
  const qsizetype before = names.size();
  names.insert(name);
  if (names.size() == before) return QStringLiteral("与前面的一个重名：已导出，导入前须改名。");
  if (name.contains(QChar(u'\0'))) {
    return QStringLiteral("的名称中有空字符：已导出，导入前须改名。");
  }
  if (Characters(name) > kMostCharacters) {
    return QStringLiteral("的名称超过 %1 个字符：已导出，导入前须改名。").arg(kMostCharacters);
  }
  return QString();
}

// The words of one category, linked as the tree has them.
class WordForest {
 public:
  void Add(qint32 id, qint32 fatherId, QString name) {
    words_.push_back({id, fatherId, std::move(name)});
  }

  // Appends the lines of all words that hang on the category, and to `remarks` the others and the
  // names that cannot be imported as they are.
  void AppendTo(QByteArray& text, qint32 gid, QStringList& remarks) {
    Link();
    QSet<QString> names;
    qsizetype depth = 1;
    for (qsizetype at = firstRoot_; at != kNone;) {
      Word& word = words_[at];
      AppendOutlineLine(text, depth, word.name);
      word.isWritten = true;
      if (const QString why = Obstacle(word.name, names); !why.isEmpty()) {
        remarks += Description(word, gid) + why;
      }
      if (word.firstChild != kNone) {
        at = word.firstChild;
        ++depth;
        continue;
      }
      while (at != kNone && words_[at].next == kNone) {
        at = words_[at].parent;
        --depth;
      }
      at = at == kNone ? kNone : words_[at].next;
    }
    for (const Word& word : words_) {
      if (!word.isWritten) {
        remarks += Description(word, gid) +
                   QStringLiteral("的上级 FatherID=%1 不在树中，未导出。").arg(word.fatherId);
      }
    }
  }

 private:
  static constexpr qsizetype kNone = -1;

  struct Word {
    qint32 id;
    qint32 fatherId;
    QString name;
    qsizetype parent = kNone;
    qsizetype firstChild = kNone;
    qsizetype next = kNone;
    bool isWritten = false;
  };

  static QString Description(const Word& word, qint32 gid) {
    return QStringLiteral("分类词%1（SortID=%2，ID=%3）")
        .arg(Shown(word.name), QString::number(gid), QString::number(word.id));
  }

  // Hangs every word before the earlier linked ones of its parent, from the last word to the first.
  void Link() {
    QHash<qint32, qsizetype> indexOf;
    indexOf.reserve(static_cast<qsizetype>(words_.size()));
    for (qsizetype i = static_cast<qsizetype>(words_.size()) - 1; i >= 0; --i) {
      indexOf.insert(words_[i].id, i);
    }
    for (qsizetype i = static_cast<qsizetype>(words_.size()) - 1; i >= 0; --i) {
      Word& word = words_[i];
      qsizetype* first = &firstRoot_;
      if (word.fatherId != 0) {
        word.parent = indexOf.value(word.fatherId, kNone);
        if (word.parent == kNone) {
          continue;
        }
        first = &words_[word.parent].firstChild;
      }
      word.next = *first;
      *first = i;
    }
  }

  std::vector<Word> words_;
  qsizetype firstRoot_ = kNone;
};

void Write(QIODevice& device, const QByteArray& text) {
  // A device that becomes full takes a part first and says why with the next piece.
  for (qsizetype done = 0; done < text.size();) {
    const qint64 count = device.write(text.constData() + done, text.size() - done);
    if (count <= 0) throw Error(QStringLiteral("无法写入：%1").arg(device.errorString()));
    done += count;
  }
}

}  // namespace

bool TablesExist(Connection& connection) {
  return std::all_of(kTables.begin(), kTables.end(),
                     [&](const char* table) { return TableExists(table, connection); });
}

void CreateTables(Connection& connection) {
  const QStringList statements = SchemaOf(connection);
  for (const char* table : kTables) {
    if (TableExists(table, connection)) {
      throw Error(QStringLiteral("表 %1 已经存在，没有建立任何表。").arg(QLatin1String(table)));
    }
  }

  QStringList made;
  try {
    Transaction transaction(connection, Transaction::Use::kWrite);
    for (const QString& statement : statements) {
      connection.Execute(statement);
      made += statement;
    }
    transaction.Commit();
  } catch (const DatabaseError&) {
    DropTables(made, connection);
    throw;
  }
}

Imported ImportLibrary(Connection& connection, Outline outline, Duplicates how) {
  Transaction transaction(connection, Transaction::Use::kWrite);
  QSet<QString> taken;
  auto rows = OpenToRead(Statement::SelectCategories(), connection);
  for (; !rows->IsEof(); rows->MoveNext()) taken += rows->FieldText("SortName");
  CloseRecordset(rows);
  Imported imported;
  imported.duplicates = SettleDuplicates(outline.categories, taken, how, outline.faults);
  if (!outline.faults.empty()) throw Error(TextOf(outline.faults));

  imported.categories = static_cast<qsizetype>(outline.categories.size());
  for (const OutlineCategory& category : outline.categories) {
    imported.words += static_cast<qsizetype>(category.words.size());
  }
  DataBaseFuncs funcs(connection);
  DataBaseFuncs::DictRows dictRows;
  ProgressBar progress(QStringLiteral("导入"), imported.categories + imported.words);
  for (const OutlineCategory& category : outline.categories) {
    StoreCategory(category, connection, funcs, dictRows, progress);
  }
  transaction.Commit();
  return imported;
}

QStringList ExportLibrary(Connection& connection, QIODevice& device, bool showProgress) {
  // One transaction: engines that isolate it so show one state of the library throughout.
  Transaction transaction(connection, Transaction::Use::kRead);
  QStringList remarks;
  auto categories = OpenToRead(Statement::SelectCategories(), connection);
  std::unique_ptr<ProgressBar> progress;
  if (showProgress && !categories->IsEof()) {
    categories->MoveLast();
    progress = std::make_unique<ProgressBar>(QStringLiteral("导出"), categories->RecordCount());
    categories->MoveFirst();
  }
  QSet<QString> categoryNames;
  for (; !categories->IsEof(); categories->MoveNext()) {
    const qint32 gid = categories->FieldInteger("GID");
    const QString sortName = categories->FieldText("SortName");
    if (const QString why = Obstacle(sortName, categoryNames); !why.isEmpty()) {
      remarks +=
          QStringLiteral("分类条目%1（GID=%2）").arg(Shown(sortName), QString::number(gid)) + why;
    }
    QByteArray text;
    AppendOutlineLine(text, 0, sortName);
    WordForest words;
    auto rows = OpenToRead(Statement::SelectWords(gid), connection);
    for (; !rows->IsEof(); rows->MoveNext()) {
      words.Add(rows->FieldInteger("ID"), rows->FieldInteger("FatherID"),
                rows->FieldText("NodeName"));
    }
    CloseRecordset(rows);
    words.AppendTo(text, gid, remarks);
    Write(device, text);
    if (progress) {
      progress->Advance(1);
    }
  }
  CloseRecordset(categories);

  auto strays = OpenToRead(
      QStringLiteral("select * from Items where SortID not in (select GID from Dictionary)"),
      connection);
  for (; !strays->IsEof(); strays->MoveNext()) {
    remarks += QStringLiteral("分类词%1（SortID=%2，ID=%3）的分类条目不存在，未导出。")
                   .arg(Shown(strays->FieldText("NodeName")), strays->FieldText("SortID"),
                        strays->FieldText("ID"));
  }
  CloseRecordset(strays);
  transaction.Commit();
  return remarks;
}
