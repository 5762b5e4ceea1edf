// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "duplicates.h"

#include "characters.h"
#include "name_faults.h"

#include <QHash>

#include <utility>

namespace {

// Which of `entries`, called `kind`, are to be left out; others are renamed, or refused with a
// fault. `lines` has the names that are taken, at first those of the library with the line 0.
template <class Entry>
std::vector<bool> Settle(std::vector<Entry>& entries, const QString& kind, Duplicates how,
                         QHash<QString, int> lines, std::vector<LineRemark>& remarks,
                         std::vector<LineRemark>& faults) {
  std::vector<size_t> again;
  for (size_t i = 0; i < entries.size(); ++i) {
    const Entry& entry = entries[i];
    if (entry.name.isNull()) continue;
    if (lines.contains(entry.name)) {
      again.push_back(i);
    } else {
      lines.insert(entry.name, entry.line);
    }
  }
  std::vector<bool> leftOut(entries.size());
  QHash<QString, int> numbers;  // the last one tried behind each name
  const auto isTaken = [&lines](const QString& name) { return lines.contains(name); };
  for (const size_t i : again) {
    Entry& entry = entries[i];
    const int first = lines.value(entry.name);
    QString text = first == 0 ? QStringLiteral("词句库中已有%1%2").arg(kind, Shown(entry.name))
                              : QStringLiteral("%1%2与第 %3 行重名")
                                    .arg(kind, Shown(entry.name), QString::number(first));
    bool isRefused = how == Duplicates::kRefuse;
    if (how == Duplicates::kSkip) {
      leftOut[i] = true;
      text += QStringLiteral("，连同其下的词没有导入");
    } else if (how == Duplicates::kNumber) {
      const QString name = FreeName(entry.name, numbers, isTaken);
      isRefused = name.isNull();
      if (isRefused) {
        text += QStringLiteral("，加上数字后超过 %1 个字符").arg(kMostCharacters);
      } else {
        text += QStringLiteral("，改名为") + Shown(name);
        lines.insert(name, entry.line);
        entry.name = name;
      }
    }
    (isRefused ? faults : remarks).push_back({entry.line, text + u'。'});
  }
  return leftOut;
}

// Takes the words that are left out away, those below them too, and numbers the others anew.
void Erase(std::vector<OutlineWord>& words, const std::vector<bool>& leftOut) {
  std::vector<qint32> numberOf(words.size() + 1);  // 0 for none
  std::vector<OutlineWord> kept;
  for (size_t i = 0; i < words.size(); ++i) {
    OutlineWord& word = words[i];
    const qint32 parent = numberOf[static_cast<size_t>(word.parent)];
    if (leftOut[i] || (word.parent != 0 && parent == 0)) continue;
    word.parent = parent;
    kept.push_back(std::move(word));
    numberOf[i + 1] = static_cast<qint32>(kept.size());
  }
  words = std::move(kept);
}

}  // namespace

std::vector<LineRemark> SettleDuplicates(std::vector<OutlineCategory>& categories,
                                         const QSet<QString>& taken, Duplicates how,
                                         std::vector<LineRemark>& faults) {
  std::vector<LineRemark> remarks;
  QHash<QString, int> lines;
  for (const QString& name : taken) lines.insert(name, 0);
  const std::vector<bool> leftOut =
      Settle(categories, QStringLiteral("分类条目"), how, std::move(lines), remarks, faults);
  std::vector<OutlineCategory> kept;
  for (size_t i = 0; i < categories.size(); ++i) {
    if (leftOut[i]) continue;
    auto& words = kept.emplace_back(std::move(categories[i])).words;
    Erase(words, Settle(words, QStringLiteral("分类词"), how, {}, remarks, faults));
  }
  categories = std::move(kept);
  return remarks;
}
