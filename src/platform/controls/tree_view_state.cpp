// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "tree_view_state.h"

#include "tree_view.h"

#include <QScrollBar>
#include <QSignalBlocker>

std::vector<EntryKey> PathUp(const Node& node) {
  std::vector<EntryKey> path;
  for (const Node* above = &node; above != nullptr; above = above->Parent()) {
    path.push_back(above->Key());
  }
  return path;
}

Node* NearestOf(const TreeNodes& nodes, const std::vector<EntryKey>& path) {
  for (const EntryKey key : path) {
    if (Node* const node = nodes.Find(key); node != nullptr) return node;
  }
  return nullptr;
}

TreeViewState::TreeViewState(TreeView& tree) : left_(tree.horizontalScrollBar()->value()) {
  const TreeNodes& nodes = tree.Nodes();
  if (const Node* const selected = tree.SelectedItem(); selected != nullptr) {
    selected_ = PathUp(*selected);
  }
  std::vector<const Node*> ahead;
  const auto add = [&ahead](const Node* node) {
    for (; node != nullptr; node = node->Next()) {
      if (node->Children() > 0) ahead.push_back(node);
    }
  };
  add(nodes.NodeAt(nodes.index(0, 0)));
  while (!ahead.empty()) {
    const Node* const node = ahead.back();
    ahead.pop_back();
    if (tree.Expanded(*node)) expanded_.push_back(node->Key());
    add(node->Child());
  }

  const QModelIndex first = tree.indexAt(QPoint(0, 0));
  const int height = tree.viewport()->height();
  for (QModelIndex index = first; index.isValid(); index = tree.indexBelow(index)) {
    const int top = tree.visualRect(index).top();
    if (top >= height) break;
    const Node* const node = nodes.NodeAt(index);
    tops_.emplace(node == tree.SelectedItem() ? tops_.begin() : tops_.end(), node->Key(), top);
  }
  if (!first.isValid()) return;
  for (const EntryKey above : PathUp(*nodes.NodeAt(first))) tops_.emplace_back(above, 0);
}

void TreeViewState::Restore(TreeView& tree) const {
  const TreeNodes& nodes = tree.Nodes();
  {
    // The view lays itself out once, when it is asked for a place.
    const QSignalBlocker blocker(tree);
    for (const EntryKey key : expanded_) {
      if (Node* const node = nodes.Find(key); node != nullptr) tree.SetExpanded(*node, true);
    }
  }
  if (Node* const selected = NearestOf(nodes, selected_); selected != nullptr) {
    tree.SetSelectedItem(*selected);
  }
  for (const auto& [key, top] : tops_) {
    const Node* const node = nodes.Find(key);
    const QRect row = node == nullptr ? QRect() : tree.visualRect(nodes.IndexOf(node));
    if (!row.isValid()) continue;  // gone, or below a node that is not expanded
    const bool byPixel = tree.verticalScrollMode() == QAbstractItemView::ScrollPerPixel;
    QScrollBar* const bar = tree.verticalScrollBar();
    bar->setValue(bar->value() + (row.top() - top) / (byPixel ? 1 : row.height()));
    break;
  }
  tree.horizontalScrollBar()->setValue(left_);
}
