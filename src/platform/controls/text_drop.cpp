// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "text_drop.h"

#include "tree_item_delegate.h"
#include "tree_view.h"

#include <QDragMoveEvent>
#include <QDropEvent>
#include <QMimeData>

TextDrop::TextDrop(TreeView& tree) : QObject(&tree), tree_(tree) {
  tree.setAcceptDrops(true);
  tree.viewport()->setAcceptDrops(true);
  tree.viewport()->installEventFilter(this);
}

bool TextDrop::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop: {
      auto& drop = static_cast<QDropEvent&>(*event);
      Node* const node = drop.mimeData()->hasText() ? NodeUnder(drop) : nullptr;
      const bool isOver = event->type() == QEvent::Drop;
      Highlight(isOver ? nullptr : node);
      // Where it came from, it stays.
      drop.setDropAction(Qt::CopyAction);
      // Over what is no node, it may still be dragged on.
      drop.setAccepted(node != nullptr || event->type() == QEvent::DragEnter);
      if (isOver && node != nullptr) Q_EMIT Dropped(node, *drop.mimeData());
      return true;
    }
    case QEvent::DragLeave:
      Highlight(nullptr);
      return true;
    default:
      return QObject::eventFilter(watched, event);
  }
}

Node* TextDrop::NodeUnder(const QDropEvent& event) const {
  const QPoint position = event.position().toPoint();
  Node* const node = tree_.Nodes().NodeAt(tree_.indexAt(position));
  return node != nullptr && tree_.ItemRect(*node).contains(position) ? node : nullptr;
}

void TextDrop::Highlight(const Node* node) {
  static_cast<TreeItemDelegate*>(tree_.itemDelegate())
      ->SetDropHighlight(tree_.Nodes().IndexOf(node));
  tree_.viewport()->update();
}
