// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

class Node;
class QDropEvent;
class QMimeData;
class TreeView;

// Lets text that is dragged from elsewhere be dropped on the nodes of a tree. The node under the
// pointer is highlighted meanwhile.
class TextDrop : public QObject {
  Q_OBJECT

 public:
  // Belongs to the tree.
  explicit TextDrop(TreeView& tree);

 Q_SIGNALS:
  // `data` is there during the call only, in which the other program waits.
  void Dropped(Node* node, const QMimeData& data);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  Node* NodeUnder(const QDropEvent& event) const;
  void Highlight(const Node* node);

  TreeView& tree_;
};
