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
    if (category.position) {
      const TreeNodes::Growing growing(nodes, nullptr);
      const EntryKey key = AddNode(TheTree, kRootKey, category.name, kCategoryImage, kCategoryTag);
      wordTree_.colDictPrptys().Add(category.gid, *category.position, key, category.name,
                                    EntryTag(), key);
      AddWords(nodes, wordTree_.colTreePrptys(), key, category.gid, category.words);
      ++pasted.categories;
    } else {
      AddBranches(nodes, category);
    }
    pasted.words += static_cast<qsizetype>(category.words.size());
  }
  return pasted;
}

// Each word under a node that is there already comes together with all that is new below it.
void EditWordsFuncs::AddBranches(TreeNodes& nodes, const PasteStore::Category& category) {
  std::vector<std::vector<WordRow>> branches;
  QHash<qint32, size_t> branchOf;  // of each new word
  for (const WordRow& word : category.words) {
    const size_t branch = branchOf.value(word.fatherId, branches.size());
    if (branch == branches.size()) branches.emplace_back();
    branchOf.insert(word.id, branch);
    branches[branch].push_back(word);
  }
  EntryKey key;
  wordTree_.colDictPrptys().GetKey(category.gid, key);
  for (const std::vector<WordRow>& branch : branches) {
    const TreeNodes::Growing growing(nodes, nullptr);
    AddWords(nodes, wordTree_.colTreePrptys(), key, category.gid, branch);
  }
}
