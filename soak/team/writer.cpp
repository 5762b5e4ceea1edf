// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "writer.h"

#include "error.h"
#include "recordset.h"
#include "statements.h"

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <set>

namespace {

constexpr int kActsPerLook = 25;
constexpr size_t kFewCategories = 6;

}  // namespace

void Journal::Write(const QStringList& fields) {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  const QByteArray line = QByteArray::number(qint64{std::chrono::nanoseconds(now).count()}) + '\t' +
                          (fields.join(u'\t') + u'\n').toUtf8();
  if (write(STDOUT_FILENO, line.constData(), static_cast<size_t>(line.size())) != line.size()) {
    _exit(EXIT_FAILURE);
  }
}

Writer::Writer(const QString& name, quint32 seed) : random_(seed), name_(name) {
  connection_.SetConnectionString(QStringLiteral("DSN=HCWordLib"));
  connection_.Open();
}

void Writer::Act() {
  if (acts_++ % kActsPerLook == 0) Look();
  if (library_.size() < kFewCategories) return AddCategory();
  const size_t index = static_cast<size_t>(Below(library_.size()));
  Category& category = library_[index];
  switch (Below(100)) {
    case 0:
      return DropCategory(index);
    case 1:
    case 2:
      return AddCategory();
    default:
      break;
  }
  const int kind = Below(10);
  if (kind < 6 || category.words.empty()) return AddWord(category);
  if (kind < 8) return RenameWord(category);
  DeleteBranch(category);
}

void Writer::Look() {
  library_.clear();
  Recordset categories;
  categories.Open(Statement::SelectCategories(), connection_);
  for (; !categories.IsEof(); categories.MoveNext()) {
    library_.push_back({categories.FieldInteger("GID"), categories.FieldText("SortName"), {}});
  }
  for (Category& category : library_) {
    Recordset words;
    words.Open(Statement::SelectWords(category.gid), connection_);
    for (; !words.IsEof(); words.MoveNext()) {
      category.words.push_back(
          {words.FieldInteger("ID"), words.FieldInteger("FatherID"), words.FieldText("NodeName")});
    }
  }
}

template <class Change>
bool Writer::Confirmed(const Change& change) {
  try {
    journal_.Done(change());
    return true;
  } catch (const Error& error) {
    journal_.Refused(error.Description());
    return false;
  }
}

// Hostile in every statement, and the only one in the library.
QString Writer::FreshName() {
  return QStringLiteral("词'%%{?}😀-%1-%2").arg(name_).arg(++names_);
}

void Writer::AddCategory() {
  Category category{0, FreshName(), {}};
  journal_.Try({QStringLiteral("create"), QStringLiteral("0"), QStringLiteral("0"), category.name});
  const bool isStored = Confirmed([&] {
    qint32 position = 0;
    QString reason;
    if (!funcs_.AddDict(category.name, position, category.gid, &reason)) throw Error(reason);
    return category.gid;
  });
  if (isStored) library_.push_back(std::move(category));
}

void Writer::AddWord(Category& category) {
  const bool isTop = category.words.empty() || Below(3) == 0;
  Word word{0, isTop ? 0 : category.words[static_cast<size_t>(Below(category.words.size()))].id,
            FreshName()};
  journal_.Try({QStringLiteral("create"), QString::number(category.gid),
                QString::number(word.fatherId), word.name});
  const bool isStored = Confirmed([&] {
    funcs_.AddItem(word.name, category.gid, word.id, word.fatherId);
    return word.id;
  });
  if (isStored) category.words.push_back(std::move(word));
}

void Writer::RenameWord(Category& category) {
  Word& word = category.words[static_cast<size_t>(Below(category.words.size()))];
  const QString name = FreshName();
  journal_.Try({QStringLiteral("rename"), QString::number(category.gid), QString::number(word.id),
                word.name, name});
  const bool isStored = Confirmed([&] {
    funcs_.UpdateItem(name, kSelWord, category.gid, word.id);
    return 0;
  });
  if (isStored) word.name = name;
}

void Writer::DeleteBranch(Category& category) {
  std::vector<Word>& words = category.words;
  std::vector<Word> branch{words[static_cast<size_t>(Below(words.size()))]};
  std::set<qint32> ids{branch[0].id};
  for (size_t i = 0; i < branch.size(); ++i) {
    for (const Word& word : words) {
      // Of a number that was given again since, the view may hold both words.
      if (word.fatherId == branch[i].id && ids.insert(word.id).second) branch.push_back(word);
    }
  }
  QStringList fields{QStringLiteral("delete"), QString::number(category.gid)};
  for (const Word& word : branch) fields << QString::number(word.id) << word.name;
  journal_.Try(fields);
  Confirmed([&] {
    for (const Word& word : branch) funcs_.DeleteItem(kSelWord, category.gid, word.id);
    return 0;
  });
  words.erase(std::remove_if(words.begin(), words.end(),
                             [&](const Word& word) { return ids.count(word.id) != 0; }),
              words.end());
}

void Writer::DropCategory(size_t index) {
  const Category& category = library_[index];
  journal_.Try({QStringLiteral("drop"), QString::number(category.gid), category.name});
  Confirmed([&] {
    funcs_.DeleteItem(kSelCategory, category.gid);
    return 0;
  });
  library_.erase(library_.begin() + static_cast<ptrdiff_t>(index));
}
