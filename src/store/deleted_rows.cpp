// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "deleted_rows.h"

#include "bulk_writer.h"
#include "characters.h"
#include "connection.h"
#include "database_error.h"
#include "recordset.h"
#include "statements.h"
#include "transaction.h"

#include <QSet>

#include <algorithm>
#include <unordered_set>

namespace {

// How many words are asked for by one statement.
constexpr size_t kMostIDs = 500;

bool IsBefore(const WordRow& a, const WordRow& b) {
  return a.id < b.id;
}

std::optional<DeletedRows::Category> CategoryOf(Connection& connection, qint32 gid) {
  Recordset rows;
  rows.Open(Statement::SelectCategory(gid), connection, CursorType::kStatic, LockType::kReadOnly);
  if (rows.IsEof()) return std::nullopt;
  return DeletedRows::Category{rows.FieldText("SortName"), rows.FieldInteger("Position")};
}

// What keeps the category from coming back, or the branch from hanging where it hung.
QString CategoryHindrance(Connection& connection, const DeletedRows& rows) {
  const auto stored = CategoryOf(connection, rows.gid);
  if (!rows.category) return stored ? QString() : QStringLiteral("所在的分类条目已被删除");
  if (stored) {
    return QStringLiteral("编号 %1 已被分类条目“%2”使用")
        .arg(rows.gid)
        .arg(Shortened(stored->name));
  }
  return IsCategoryNameTaken(connection, rows.category->name) ? QStringLiteral("已有同名的分类条目")
                                                              : QString();
}

QString WordsHindrance(const DeletedRows& rows, const std::vector<WordRow>& stored) {
  std::unordered_set<qint32> ids;
  QSet<QString> names;
  qint32 fatherId = 0;
  for (const WordRow& word : rows.words) {
    ids.insert(word.id);
    if (!stored.empty()) names.insert(word.name.ToString());
    if (!rows.category && word.id == rows.topId) fatherId = word.fatherId;
  }
  bool isFatherStored = fatherId == 0;
  for (const WordRow& word : stored) {
    const QString name = word.name.ToString();
    if (ids.contains(word.id)) {
      return QStringLiteral("编号 %1 已被分类词“%2”使用").arg(word.id).arg(Shortened(name));
    }
    if (names.contains(name)) {
      return QStringLiteral("同一分类条目中已有分类词“%1”").arg(Shortened(name));
    }
    isFatherStored = isFatherStored || word.id == fatherId;
  }
  return isFatherStored ? QString() : QStringLiteral("它的上级词已被删除");
}

// A word whose parent is not stored before it, as only other programs leave some behind, is stored
// without one first: the tables refuse it otherwise.
void StoreWords(Connection& connection, const DeletedRows& rows,
                const std::vector<WordRow>& stored) {
  std::unordered_set<qint32> parents = {0};
  for (const WordRow& word : stored) parents.insert(word.id);
  std::vector<const WordRow*> parentless;
  BulkWriter writer(connection, QStringLiteral("Items"),
                    QStringLiteral("SortID,ID,FatherID,NodeName"));
  for (const WordRow& word : rows.words) {
    const bool hasParent = parents.contains(word.fatherId);
    if (!hasParent) parentless.push_back(&word);
    writer.Add({rows.gid, word.id, hasParent ? word.fatherId : 0, word.name.ToString()});
    parents.insert(word.id);
  }
  writer.Finish();
  for (const WordRow* const word : parentless) {
    connection.Execute(Statement::HangWord(word->fatherId, rows.gid, word->id));
  }
}

}  // namespace

QString DeletedRows::Name() const {
  if (category) return category->name;
  const auto top = std::find_if(words.begin(), words.end(),
                                [this](const WordRow& word) { return word.id == topId; });
  return top == words.end() ? QString() : top->name.ToString();
}

DeletedRows CategoryRows(Connection& connection, qint32 gid) {
  return {gid, CategoryOf(connection, gid), 0, WordsOf(connection, gid)};
}

DeletedRows BranchRows(Connection& connection, qint32 gid, const std::vector<qint32>& branch) {
  DeletedRows rows{gid, std::nullopt, branch.front(), {}};
  for (size_t i = 0; i < branch.size(); i += kMostIDs) {
    const auto first = branch.begin() + static_cast<ptrdiff_t>(i);
    const auto count = static_cast<ptrdiff_t>(std::min(kMostIDs, branch.size() - i));
    Recordset words;
    words.Open(Statement::SelectWordsNumbered(gid, {first, first + count}), connection,
               CursorType::kStatic, LockType::kReadOnly);
    for (; !words.IsEof(); words.MoveNext()) {
      rows.words.push_back({words.FieldInteger("ID"), words.FieldInteger("FatherID"),
                            SharedText(words.FieldText("NodeName"))});
    }
  }
  std::sort(rows.words.begin(), rows.words.end(), &IsBefore);
  return rows;
}

void LeaveOutStored(Connection& connection, DeletedRows& rows) {
  if (CategoryOf(connection, rows.gid)) rows.category.reset();
  std::unordered_set<qint32> stored;
  for (const WordRow& word : WordsOf(connection, rows.gid)) stored.insert(word.id);
  std::erase_if(rows.words, [&stored](const WordRow& word) { return stored.contains(word.id); });
}

// As with every name that is given, somebody who gives the same one at the same moment is not
// noticed; with numbers and parents the tables themselves see to it.
QString PutBack(Connection& connection, const DeletedRows& rows, std::vector<WordRow>& stored) {
  try {
    Transaction transaction(connection, Transaction::Use::kWrite);
    stored = WordsOf(connection, rows.gid);
    QString hindrance = CategoryHindrance(connection, rows);
    if (hindrance.isEmpty()) hindrance = WordsHindrance(rows, stored);
    if (!hindrance.isEmpty()) return hindrance;
    if (rows.category) {
      BulkWriter writer(connection, QStringLiteral("Dictionary"),
                        QStringLiteral("GID,SortName,Position"));
      writer.Add({rows.gid, rows.category->name, rows.category->position});
      writer.Finish();
    }
    StoreWords(connection, rows, stored);
    transaction.Commit();
    stored.insert(stored.end(), rows.words.begin(), rows.words.end());
    std::sort(stored.begin(), stored.end(), &IsBefore);
    return QString();
  } catch (const DatabaseError& error) {
    if (!error.IsDuplicateKey()) throw;
    return QStringLiteral("它的编号刚刚被另一个用户使用");
  }
}
