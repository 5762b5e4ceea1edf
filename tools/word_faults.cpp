// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "word_faults.h"

#include <algorithm>
#include <limits>

namespace {

constexpr size_t kNone = std::numeric_limits<size_t>::max();

// The words of one category, linked by their numbers.
class Branches {
 public:
  Branches(const std::vector<CheckedWord>& words, qint64 gid, bool isThere, Faults& faults)
      : words_(words), gid_(gid), isThere_(isThere), faults_(faults), states_(words.size()) {}

  bool HasEqualNumbers();
  void Link();
  void CutRings();
  std::vector<WordChange> Place(Room& room, Room& home);

 private:
  // Where a word hangs.
  struct State {
    size_t parent = kNone;  // directly under its category when there is none
    bool isLost = false;    // the category or the parent is missing
    size_t mark = 0;        // of the walk that passed here, counted from 1
  };

  QString Label(size_t word) const {
    return QStringLiteral("分类词%1（SortID=%2，ID=%3）：")
        .arg(Shown(words_[word].name), QString::number(gid_), QString::number(words_[word].id));
  }
  std::vector<size_t> ParentsFirst() const;
  void TellLost(const std::vector<size_t>& order, bool isHome);
  void TellNumber(size_t word);

  const std::vector<CheckedWord>& words_;
  const qint64 gid_;
  const bool isThere_;
  Faults& faults_;
  std::vector<State> states_;
};

bool Branches::HasEqualNumbers() {
  bool has = false;
  for (size_t i = 1; i < words_.size(); ++i) {
    if (words_[i].id != words_[i - 1].id) continue;
    has = true;
    faults_.push_back(
        {Label(i) + QStringLiteral("与另一个词编号相同，请先用数据库的工具改正"), {}});
  }
  return has;
}

void Branches::Link() {
  for (size_t i = 0; i < words_.size(); ++i) {
    State& state = states_[i];
    const qint64 father = words_[i].fatherId;
    if (father == 0) {
      state.isLost = !isThere_;
      continue;
    }
    const auto found =
        std::lower_bound(words_.begin(), words_.end(), father,
                         [](const CheckedWord& word, qint64 id) { return word.id < id; });
    if (found != words_.end() && found->id == father) {
      state.parent = static_cast<size_t>(found - words_.begin());
    } else {
      state.isLost = true;
    }
  }
}

void Branches::CutRings() {
  for (size_t i = 0; i < words_.size(); ++i) {
    size_t at = i;
    for (; at != kNone && states_[at].mark == 0; at = states_[at].parent) states_[at].mark = i + 1;
    if (at == kNone || states_[at].mark != i + 1) continue;
    size_t smallest = at;
    qsizetype count = 1;
    for (size_t next = states_[at].parent; next != at; next = states_[next].parent, ++count) {
      smallest = std::min(smallest, next);
    }
    states_[smallest].parent = kNone;
    states_[smallest].isLost = !isThere_;
    if (!isThere_) continue;  // told as lost
    faults_.push_back(
        {Label(smallest) + (count == 1 ? QStringLiteral("是自己的上级")
                                       : QStringLiteral("与上级成环，共 %1 个词").arg(count)),
         QStringLiteral("直接放到分类条目之下")});
  }
}

std::vector<size_t> Branches::ParentsFirst() const {
  std::vector<size_t> children(words_.size() + 1);  // where those of each word begin, then end
  std::vector<size_t> order;
  order.reserve(words_.size());
  for (size_t i = 0; i < words_.size(); ++i) {
    if (states_[i].parent == kNone) {
      order.push_back(i);
    } else {
      ++children[states_[i].parent + 1];
    }
  }
  for (size_t i = 1; i < children.size(); ++i) children[i] += children[i - 1];
  std::vector<size_t> byParent(words_.size());
  std::vector<size_t> ends(children.begin(), children.end() - 1);
  for (size_t i = 0; i < words_.size(); ++i) {
    if (states_[i].parent != kNone) byParent[ends[states_[i].parent]++] = i;
  }
  for (size_t done = 0; done < order.size(); ++done) {
    const size_t word = order[done];
    for (size_t c = children[word]; c < children[word + 1]; ++c) order.push_back(byParent[c]);
  }
  return order;
}

void Branches::TellLost(const std::vector<size_t>& order, bool isHome) {
  std::vector<qsizetype> below(words_.size());
  for (size_t i = order.size(); i > 0; --i) {
    const size_t word = order[i - 1];
    if (const size_t parent = states_[word].parent; parent != kNone) {
      below[parent] += below[word] + 1;
    }
  }
  for (size_t i = 0; i < words_.size(); ++i) {
    if (!states_[i].isLost) continue;
    QString text =
        Label(i) + (isThere_ ? QStringLiteral("上级 FatherID=%1 不存在").arg(words_[i].fatherId)
                             : QStringLiteral("分类条目不存在"));
    if (below[i] > 0) text += QStringLiteral("，其下还有 %1 个词").arg(below[i]);
    faults_.push_back({text, isHome ? QStringLiteral("直接放到分类条目之下")
                                    : QStringLiteral("移到“%1”").arg(HomeName())});
  }
}

void Branches::TellNumber(size_t word) {
  const qint64 id = words_[word].id;
  if (id == 0 || !IsInRange(id)) {
    faults_.push_back({Label(word) + (id == 0 ? QStringLiteral("编号不能是 0")
                                              : QStringLiteral("编号用尽或超出了 32 位整数的范围")),
                       QStringLiteral("另给编号")});
  }
  const size_t parent = states_[word].parent;
  if (parent != kNone && parent > word) {
    faults_.push_back({Label(word) + QStringLiteral("上级 FatherID=%1 的编号比它大，程序不显示它")
                                         .arg(words_[word].fatherId),
                       QStringLiteral("另给编号")});
  }
}

std::vector<WordChange> Branches::Place(Room& room, Room& home) {
  const bool isHome = &room == &home;
  const std::vector<size_t> order = ParentsFirst();
  TellLost(order, isHome);
  for (const CheckedWord& word : words_) {
    if (IsInRange(word.id)) room.nextId = std::max(room.nextId, word.id + 1);
  }
  std::vector<WordChange> changes;  // of all words, in `order`
  std::vector<size_t> placeOf(words_.size());
  changes.reserve(words_.size());
  for (const size_t word : order) {
    const State& state = states_[word];
    const WordChange* parent = state.parent == kNone ? nullptr : &changes[placeOf[state.parent]];
    const qint64 id = words_[word].id;
    const bool goesHome = !isHome && (parent != nullptr ? parent->goesHome : state.isLost);
    WordChange change{word, goesHome, id, parent == nullptr ? 0 : parent->id, QString()};
    if (!goesHome) TellNumber(word);
    if (goesHome || id == 0 || !IsInRange(id) || (parent != nullptr && parent->id >= id)) {
      change.id = (goesHome ? home : room).nextId++;
    }
    placeOf[word] = changes.size();
    changes.push_back(std::move(change));
  }

  // Those that stay keep their names before those that come.
  for (const bool goesHome : {false, true}) {
    std::vector<size_t> settled;
    std::vector<QString> names;
    for (size_t word = 0; word < words_.size(); ++word) {
      if (changes[placeOf[word]].goesHome != goesHome) continue;
      settled.push_back(word);
      names.push_back(words_[word].name);
    }
    const auto label = [&](size_t i) {
      return Label(settled[i]) + (goesHome ? QStringLiteral("作为找回的词，") : QString());
    };
    std::vector<QString> newNames =
        (goesHome ? home : room).names.Settle(names, QStringLiteral("新加词"), label, faults_);
    for (size_t i = 0; i < settled.size(); ++i) {
      changes[placeOf[settled[i]]].name = std::move(newNames[i]);
    }
  }
  std::erase_if(changes, [&](const WordChange& change) {
    const CheckedWord& word = words_[change.word];
    return !change.goesHome && change.id == word.id && change.fatherId == word.fatherId &&
           change.name.isNull();
  });
  return changes;
}

}  // namespace

bool IsInRange(qint64 identifier) {
  return identifier >= std::numeric_limits<qint32>::min() &&
         identifier < std::numeric_limits<qint32>::max();
}

QString HomeName() {
  return QStringLiteral("找回的词");
}

std::vector<WordChange> ExamineWords(const std::vector<CheckedWord>& words, qint64 gid,
                                     bool isThere, Room& room, Room& home, Faults& faults) {
  Branches branches(words, gid, isThere, faults);
  if (branches.HasEqualNumbers()) return {};
  branches.Link();
  branches.CutRings();
  return branches.Place(room, home);
}
