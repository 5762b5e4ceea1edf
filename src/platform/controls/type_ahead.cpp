// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "type_ahead.h"

#include "name_pattern.h"
#include "tree_view.h"

#include <QApplication>

namespace {

// Round at the end.
Node* AfterInSight(const TreeView& tree, Node* node) {
  if (node->Child() != nullptr && tree.Expanded(*node)) return node->Child();
  while (node->Next() == nullptr) {
    if (node->Parent() == nullptr) return tree.Nodes().NodeAt(tree.model()->index(0, 0));
    node = node->Parent();
  }
  return node->Next();
}

}  // namespace

Node* TypeAhead::Search(const TreeView& tree, const QString& typed) {
  const bool isNew =
      !sinceLast_.isValid() || sinceLast_.hasExpired(QApplication::keyboardInputInterval());
  sinceLast_.start();
  typed_ = isNew ? typed : typed_ + typed;
  const bool isOneLetter = typed_.count(typed_.front()) == typed_.size();
  const NamePattern pattern(isOneLetter ? typed_.first(1) : typed_);
  Node* const selected = tree.SelectedItem();
  Node* const first =
      selected != nullptr ? selected : tree.Nodes().NodeAt(tree.model()->index(0, 0));
  if (first == nullptr) return nullptr;
  Node* const start =
      selected != nullptr && (isNew || isOneLetter) ? AfterInSight(tree, first) : first;
  Node* node = start;
  do {
    if (pattern.Begins(node->TextView())) return node;
    node = AfterInSight(tree, node);
  } while (node != start);
  return nullptr;
}
