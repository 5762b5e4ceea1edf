// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "entry_key.h"

#include <utility>
#include <vector>

class Node;
class TreeNodes;
class TreeView;

// The keys of the node and of those above it, from the node up.
std::vector<EntryKey> PathUp(const Node& node);
// The first node of such a path that exists, null when none does.
Node* NearestOf(const TreeNodes& nodes, const std::vector<EntryKey>& path);

// How a tree stands: which nodes are expanded, which one is selected, where it is scrolled to. It
// outlives the nodes, which are found again by their keys.
class TreeViewState {
 public:
  explicit TreeViewState(TreeView& tree);

  // Makes the tree, which has been loaded anew, stand like that as far as the nodes exist. The
  // nearest node above a selected one that is gone is selected.
  void Restore(TreeView& tree) const;

 private:
  std::vector<EntryKey> expanded_;
  std::vector<EntryKey> selected_;
  // The nodes of which the first that exists comes to its place again, each with its top in the
  // viewport: the selected one and those from the top down that are in sight, then those that the
  // topmost hangs on.
  std::vector<std::pair<EntryKey, int>> tops_;
  int left_;
};
