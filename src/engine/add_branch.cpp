// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "edit_words_funcs.h"

#include "characters.h"
#include "deleted_branches.h"
#include "entry_scheme.h"
#include "tree_view.h"
#include "word_tree.h"

#include <algorithm>
#include <unordered_map>

namespace {

// Null for a category, and for a branch whose top's row was not there.
const WordRow* TopOf(const DeletedRows& rows) {
  if (rows.category) return nullptr;
  const auto top = std::find_if(rows.words.begin(), rows.words.end(),
                                [&rows](const WordRow& word) { return word.id == rows.topId; });
  return top == rows.words.end() ? nullptr : &*top;
}

// The sibling that a category stands before: behind the one that it stood behind, and where that is
// gone in the order of the numbers. Null when it stands last.
const Node* NextCategory(const TreeNodes& nodes, const DictPrptys& categories,
                         const DeletedBranch& branch) {
  const Node* const first = nodes.Item(kRootKey).Child();
  EntryKey previous;
  if (branch.previousGid == 0) return first;
  if (categories.GetKey(branch.previousGid, previous)) return nodes.Item(previous).Next();
  const Node* next = first;
  while (next != nullptr && categories.Item(next->Key()).DicID() < branch.rows.gid) {
    next = next->Next();
  }
  return next;
}

// Words stand in the order of their numbers.
const Node* NextWord(const Node& parent, const TreePrptys& words, qint32 id) {
  const Node* next = parent.Child();
  while (next != nullptr && words.Item(next->Key()).ID() < id) next = next->Next();
  return next;
}

}  // namespace

EntryKey EditWordsFuncs::ParentOf(const DeletedRows& rows) {
  EntryKey parent;
  const WordRow* const top = TopOf(rows);
  if (rows.category) {
    parent = kRootKey;
  } else if (top == nullptr || top->fatherId == 0) {
    wordTree_.colDictPrptys().GetKey(rows.gid, parent);
  } else {
    wordTree_.colTreePrptys().GetFatherKey(rows.gid, top->fatherId, parent);
  }
  return parent;
}

QString EditWordsFuncs::BranchHindrance(const TreeView& TheTree, const DeletedRows& rows) {
  const TreeNodes& nodes = TheTree.Nodes();
  if (nodes.Find(ParentOf(rows)) == nullptr) return QStringLiteral("它的上级已不在树中");
  if (rows.category) return QString();
  for (const WordRow& word : rows.words) {
    EntryKey shown;
    if (!wordTree_.colTreePrptys().GetFatherKey(rows.gid, word.id, shown)) continue;
    return QStringLiteral("编号 %1 已被分类词“%2”使用")
        .arg(QString::number(word.id), Shortened(nodes.Item(shown).Text()));
  }
  return QString();
}

Node* EditWordsFuncs::AddBranch(TreeView& TheTree, const DeletedBranch& branch,
                                const std::vector<WordRow>& stored) {
  const DeletedRows& rows = branch.rows;
  TreeNodes& nodes = TheTree.Nodes();
  DictPrptys& categories = wordTree_.colDictPrptys();
  TreePrptys& words = wordTree_.colTreePrptys();
  const WordRow* const top = TopOf(rows);
  if (!rows.category && top == nullptr) return nullptr;
  const EntryKey parentKey = ParentOf(rows);
  // Of those that are added, by the FatherID of the words below them.
  std::unordered_map<qint32, EntryKey> keys;
  const auto add = [&](EntryKey fatherKey, const SharedText& name, int image, EntryTag tag) {
    const EntryKey key = NextKey();
    nodes.Add(fatherKey, Relationship::kChild, key, name, image).SetTag(tag);
    return key;
  };
  const auto addWord = [&](const WordRow& word, EntryKey fatherKey) {
    const EntryKey key = add(fatherKey, word.name, kWordImage, kWordTag);
    words.Add(rows.gid, word.id, word.fatherId, word.name, key, kWordTag, fatherKey, key);
    if (word.id != 0) keys.emplace(word.id, key);  // under number 0 hangs what has no parent word
    return key;
  };
  const TreeNodes::Growing growing(nodes, rows.category
                                              ? NextCategory(nodes, categories, branch)
                                              : NextWord(nodes.Item(parentKey), words, top->id));
  EntryKey key;
  if (rows.category) {
    const QString& name = rows.category->name;
    key = add(parentKey, name, kCategoryImage, kCategoryTag);
    categories.Add(rows.gid, rows.category->position, key, name, EntryTag(), key);
    keys.emplace(0, key);
    words.RemoveWordsOf(rows.gid);  // which a category's delete leaves behind
  } else {
    key = addWord(*top, parentKey);
  }
  for (const WordRow& word : stored) {
    const auto father = keys.find(word.fatherId);
    const bool isTop = top != nullptr && word.id == top->id;
    if (!isTop && father != keys.end()) addWord(word, father->second);
  }
  return &nodes.Item(key);
}
