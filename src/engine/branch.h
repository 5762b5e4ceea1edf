// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "entry_key.h"

#include <QByteArray>

#include <exception>
#include <vector>

class DataBaseFuncs;
class Node;
class TreePrptys;
class TreeView;

// The keys of the node and of all nodes below it, each before its children and siblings in their
// order, however deep they nest.
std::vector<EntryKey> BranchOf(const Node& top);

// The branch as an outline in UTF-8, the node itself at its left edge; of the root, the categories.
QByteArray OutlineOf(const Node& top);

// Deletes the rows of the words of a branch one by one, as far as it goes, and forgets the records:
// when the first row is gone, those of the whole branch, for what is left of it hangs on nothing.
// Returns what kept a row from being deleted, null when all are gone. `gone` tells how many are.
std::exception_ptr DeleteBranch(const std::vector<EntryKey>& branch, TreePrptys& words,
                                DataBaseFuncs& funcs, size_t& gone);

// Takes a node that was added for a new entry away again unless the entry was stored: the tree
// shows nothing that the database does not hold. What was selected before is selected again.
class PendingNode {
 public:
  explicit PendingNode(TreeView& tree);
  ~PendingNode();
  PendingNode(const PendingNode&) = delete;
  PendingNode& operator=(const PendingNode&) = delete;

  // The node that was added and is selected now stays.
  void Keep() { isKept_ = true; }

 private:
  TreeView& tree_;
  Node* const selectedBefore_;
  bool isKept_ = false;
};
