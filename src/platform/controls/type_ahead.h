// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QElapsedTimer>
#include <QString>

class Node;
class TreeView;

// Typing in a tree goes to the next node in sight, round at the end, whose name begins with what
// was typed, as it is written or in pinyin. What is typed quickly belongs together, and the same
// letter again goes on.
class TypeAhead {
 public:
  // Null when there is none.
  Node* Search(const TreeView& tree, const QString& typed);

 private:
  QString typed_;
  QElapsedTimer sinceLast_;
};
