// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "paste_store.h"

#include "bulk_writer.h"
#include "com_func.h"
#include "data_base_funcs.h"
#include "database_error.h"
#include "recordset.h"
#include "statements.h"
#include "transaction.h"
#include "word_tree.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <utility>

namespace {

// All entries in their order, the words of each below it.
std::vector<OutlineWord> AllAsWords(const std::vector<OutlineCategory>& entries) {
  std::vector<OutlineWord> words;
  for (const OutlineCategory& entry : entries) {
    words.push_back({entry.name, 0, entry.line});
    const auto number = static_cast<qint32>(words.size());
    for (const OutlineWord& word : entry.words) {
      words.push_back({word.name, number + word.parent, word.line});
    }
  }
  return words;
}

QString ReasonOf(const DatabaseError& error) {
  if (!error.IsDuplicateKey()) return error.Description();
  return QStringLiteral("另一个用户刚刚在同一分类条目中加了词；可以再粘贴一次。\n") +
         error.Description();
}

}  // namespace

PasteStore::PasteStore(const Outline& outline, Connection& connection, DataBaseFuncs& funcs,
                       WordTree& records)
    : outline_(outline), connection_(connection), funcs_(funcs), records_(records) {}

qsizetype PasteStore::Skipped() const {
  return std::count_if(skippedLines_.begin(), skippedLines_.end(),
                       [this](int line) { return !failure_ || line < failure_->line; });
}

template <class Store>
void PasteStore::InTransaction(Store store) {
  try {
    Transaction transaction(connection_, Transaction::Use::kWrite);
    if (store()) Reaches(std::numeric_limits<int>::max());
    transaction.Commit();
  } catch (const Error& error) {
    stored_.clear();
    failure_ = {0, failure_ ? failure_->text : error.Description()};
  }
}

void PasteStore::StoreCategories() {
  InTransaction([this] {
    QHash<QString, Owner> taken;
    auto rows = std::make_unique<Recordset>();
    rows->Open(Statement::SelectCategories(), connection_);
    for (; !rows->IsEof(); rows->MoveNext()) {
      taken.insert(rows->FieldText("SortName"), {rows->FieldInteger("GID"), 0, false});
    }
    CloseRecordset(rows);
    DataBaseFuncs::DictRows dictRows;
    return std::all_of(
        outline_.categories.begin(), outline_.categories.end(),
        [&](const OutlineCategory& category) { return Add(category, taken, dictRows); });
  });
}

void PasteStore::StoreWords(qint32 dicId, qint32 fatherId) {
  InTransaction([this, dicId, fatherId] {
    stored_.push_back({dicId, std::nullopt, QString(), {}});
    return Add(AllAsWords(outline_.categories), fatherId, stored_.back());
  });
}

// False when `line` is at fault or behind the line that is.
bool PasteStore::Reaches(int line) {
  if (outline_.faults.empty() || line < outline_.faults.front().line) return true;
  failure_ = outline_.faults.front();
  return false;
}

bool PasteStore::Add(const OutlineCategory& category, QHash<QString, Owner>& taken,
                     DataBaseFuncs::DictRows& dictRows) {
  if (!Reaches(category.line)) return false;
  Category added{0, std::nullopt, category.name, {}};
  if (const auto owner = taken.constFind(category.name); owner != taken.cend()) {
    skippedLines_.push_back(category.line);
    EntryKey key;
    if (!owner->isNew && !records_.colDictPrptys().GetKey(owner->id, key)) {
      for (const OutlineWord& word : category.words) skippedLines_.push_back(word.line);
      return true;
    }
    added.gid = owner->id;
  } else {
    try {
      Savepoint savepoint(connection_);
      qint32 position = 0;
      QString reason;
      if (!funcs_.AddDict(category.name, dictRows, position, added.gid, &reason)) {
        throw Error(reason);
      }
      savepoint.Release();
      added.position = position;
    } catch (const Error& error) {
      failure_ = {category.line, error.Description()};
      return false;
    }
    taken.insert(category.name, {added.gid, 0, true});
  }
  stored_.push_back(std::move(added));
  return Add(category.words, 0, stored_.back());
}

bool PasteStore::Add(const std::vector<OutlineWord>& words, qint32 fatherId, Category& category) {
  if (words.empty()) return true;
  qint32 last = 0;
  QHash<QString, Owner> taken;
  if (!category.position) {
    auto rows = std::make_unique<Recordset>();
    rows->Open(Statement::SelectWords(category.gid), connection_, CursorType::kStatic,
               LockType::kUnspecified, {"ID", "FatherID", "NodeName"});
    for (; !rows->IsEof(); rows->MoveNext()) {
      last = std::max(last, rows->FieldInteger("ID"));
      taken.insert(rows->FieldText("NodeName"),
                   {rows->FieldInteger("ID"), rows->FieldInteger("FatherID"), false});
    }
    CloseRecordset(rows);
  }

  std::vector<std::optional<qint32>> idOf(words.size() + 1);  // none where it has no place
  idOf[0] = fatherId;
  std::vector<int> lines;
  bool goesOn = true;
  BulkWriter rows(connection_, QStringLiteral("Items"),
                  QStringLiteral("SortID,ID,FatherID,NodeName"));
  try {
    for (size_t i = 0; i < words.size() && goesOn; ++i) {
      const OutlineWord& word = words[i];
      goesOn = Reaches(word.line);
      if (!goesOn) break;
      const std::optional<qint32> father = idOf[static_cast<size_t>(word.parent)];
      const auto owner = taken.constFind(word.name);
      if (!father || owner != taken.cend()) {
        skippedLines_.push_back(word.line);
        if (father && owner->fatherId == *father &&
            (owner->isNew || IsShown(category.gid, word.name, *owner))) {
          idOf[i + 1] = owner->id;
        }
      } else if (last == std::numeric_limits<qint32>::max()) {
        failure_ = {word.line, QStringLiteral("这个分类条目中的编号已达到最大值。")};
        goesOn = false;
      } else {
        const qint32 id = ++last;
        idOf[i + 1] = id;
        taken.insert(word.name, {id, *father, true});
        category.words.push_back({id, *father, SharedText(word.name)});
        lines.push_back(word.line);
        rows.Add({category.gid, id, *father, word.name});
      }
    }
    rows.Finish();
  } catch (const DatabaseError& error) {
    const auto stored = static_cast<size_t>(rows.StoredRows());
    category.words.resize(stored);
    failure_ = {lines[stored], ReasonOf(error)};
    goesOn = false;
  }
  return goesOn;
}

// Whether the tree shows the word just as it is stored, so that others can be shown below it.
bool PasteStore::IsShown(qint32 dicId, const QString& name, const Owner& owner) const {
  const TreePrptys& words = records_.colTreePrptys();
  EntryKey key;
  return words.GetFatherKey(dicId, owner.id, key) && words.Item(key).NodeName() == name &&
         words.Item(key).FatherID() == owner.fatherId;
}
