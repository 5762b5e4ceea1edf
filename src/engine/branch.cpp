// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "branch.h"

#include "data_base_funcs.h"
#include "entry_scheme.h"
#include "keyed_collections.h"
#include "outline.h"
#include "tree_view.h"

#include <algorithm>

std::vector<EntryKey> BranchOf(const Node& top) {
  std::vector<EntryKey> branch;
  std::vector<const Node*> ahead = {&top};
  while (!ahead.empty()) {
    const Node* const node = ahead.back();
    ahead.pop_back();
    branch.push_back(node->Key());
    const size_t first = ahead.size();
    for (const Node* child = node->Child(); child != nullptr; child = child->Next()) {
      ahead.push_back(child);
    }
    std::reverse(ahead.begin() + static_cast<ptrdiff_t>(first), ahead.end());
  }
  return branch;
}

QByteArray OutlineOf(const Node& top) {
  QByteArray text;
  qsizetype depth = top.Tag() == kRootTag ? -1 : 0;
  for (const Node* node = &top; node != nullptr;) {
    if (depth >= 0) AppendOutlineLine(text, depth, node->Text());
    if (node->Child() != nullptr) {
      node = node->Child();
      ++depth;
      continue;
    }
    while (node != &top && node->Next() == nullptr) {
      node = node->Parent();
      --depth;
    }
    node = node == &top ? nullptr : node->Next();
  }
  return text;
}

std::exception_ptr DeleteBranch(const std::vector<EntryKey>& branch, TreePrptys& words,
                                DataBaseFuncs& funcs, size_t& gone) {
  std::exception_ptr failure;
  gone = 0;
  try {
    for (const EntryKey key : branch) {
      const TreePrpty& word = words.Item(key);
      funcs.DeleteItem(kSelWord, word.DicID(), word.ID());
      ++gone;
    }
  } catch (...) {
    failure = std::current_exception();
  }
  if (gone > 0) {
    for (const EntryKey key : branch) words.Remove(key);
  }
  return failure;
}

PendingNode::PendingNode(TreeView& tree) : tree_(tree), selectedBefore_(tree.SelectedItem()) {}

PendingNode::~PendingNode() {
  const Node* const added = tree_.SelectedItem();
  if (isKept_ || added == selectedBefore_) return;
  const EntryKey key = added->Key();
  tree_.SetSelectedItem(*selectedBefore_);
  tree_.RemoveNode(key);
}
