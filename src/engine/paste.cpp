// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "edit_words_funcs.h"
#include "entry_scheme.h"
#include "paste_store.h"
#include "tree_view.h"
#include "word_tree.h"

#include <QHash>

EditWordsFuncs::Pasted EditWordsFuncs::Paste(TreeView& TheTree, EntryKey ParentKey,
                                             const Outline& outline, DataBaseFuncs& rows) {
  PasteStore store(outline, connection_, rows, wordTree_);
  const EntryTag tag = TheTree.Nodes().Item(ParentKey).Tag();
  if (tag == kRootTag) {
    store.StoreCategories();
  } else if (tag == kCategoryTag) {
    store.StoreWords(wordTree_.colDictPrptys().Item(ParentKey).DicID(), 0);
  } else {
    const TreePrpty& word = wordTree_.colTreePrptys().Item(ParentKey);
    store.StoreWords(word.DicID(), word.ID());
  }

  Pasted pasted;
  pasted.skipped = store.Skipped();
  pasted.failure = store.Failure();
  TreeNodes& nodes = TheTree.Nodes();
  for (const PasteStore::Category& category : store.Stored()) {
    EntryKey key;
    const TreeNodes::Adding adding(nodes, nodes.Item(kRootKey), category.position ? 1 : 0);
    if (category.position) {
      key = AddNode(TheTree, kRootKey, category.name, kCategoryImage, kCategoryTag);
      wordTree_.colDictPrptys().Add(category.gid, *category.position, key, category.name,
                                    EntryTag(), key);
      ++pasted.categories;
    } else {
      wordTree_.colDictPrptys().GetKey(category.gid, key);
    }
    AddPasted(nodes, key, category);
    pasted.words += static_cast<qsizetype>(category.words.size());
  }
  return pasted;
}

// Words under nodes that are there already come together with all that is new below them.
void EditWordsFuncs::AddPasted(TreeNodes& nodes, EntryKey categoryKey,
                               const PasteStore::Category& category) {
  struct Group {
    qint32 fatherId;  // of the words that hang on what was there
    int count;        // of those
    std::vector<Word> words;
  };
  std::vector<Group> groups;
  QHash<qint32, size_t> groupOf;  // of the words below a word
  for (const PasteStore::Word& word : category.words) {
    if (!groupOf.contains(word.fatherId)) {
      groupOf.insert(word.fatherId, groups.size());
      groups.push_back({word.fatherId, 0, {}});
    }
    const size_t group = groupOf.value(word.fatherId);
    groupOf.insert(word.id, group);
    groups[group].words.push_back({word.id, word.fatherId, SharedText(word.name)});
    if (word.fatherId == groups[group].fatherId) ++groups[group].count;
  }

  TreePrptys& records = wordTree_.colTreePrptys();
  for (const Group& group : groups) {
    EntryKey key = categoryKey;
    if (group.fatherId != 0) records.GetFatherKey(category.gid, group.fatherId, key);
    const TreeNodes::Adding adding(nodes, nodes.Item(key), group.count);
    AddWords(nodes, records, categoryKey, category.gid, group.words);
  }
}
