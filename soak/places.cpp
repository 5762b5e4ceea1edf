// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

// The points of the window that a session's mouse goes to.

#include "frm_main.h"
#include "list_view.h"
#include "session.h"
#include "tree_view.h"

#include <QScrollBar>

#include <algorithm>

namespace {

template <class Row>
QList<Row> Visible(const TreeView& tree, Row (*of)(const QModelIndex&)) {
  QList<Row> rows;
  const QRect viewport = tree.viewport()->rect();
  for (QModelIndex index = tree.indexAt(QPoint(1, 1));
       index.isValid() && tree.visualRect(index).top() < viewport.bottom();
       index = tree.indexBelow(index)) {
    rows += of(index);
  }
  return rows;
}

}  // namespace

QPoint Session::Middle(const QString& name, QPoint offset) {
  const auto* widget = window_->findChild<QWidget*>(name);
  return widget->mapTo(window_.get(), widget->rect().center() + offset);
}

std::pair<QPoint, QString> Session::Place() {
  const auto inTree = [this](QPoint point) {
    return tree_->viewport()->mapTo(window_.get(), point);
  };
  const QList<QModelIndex> rows =
      Visible<QModelIndex>(*tree_, [](const QModelIndex& index) { return index; });
  const Node* node = rows.isEmpty() ? nullptr : tree_->Nodes().NodeAt(OneOf(rows));
  const int kind = Below(20);
  if (node != nullptr && kind < 10) {
    const QString name = node->Text().left(12);
    const QRect label = tree_->LabelRect(*node);
    const int row = label.center().y();
    const int right = tree_->viewport()->width() - 4;
    if (kind < 6) {
      return {inTree({std::min(label.left() + 6, right), row}), QStringLiteral("label ") + name};
    }
    if (kind == 6) return {inTree({label.left() - 10, row}), QStringLiteral("picture ") + name};
    if (kind < 9) return {inTree({label.left() - 29, row}), QStringLiteral("box ") + name};
    return {inTree({right, row}), QStringLiteral("right of ") + name};
  }
  static const QStringList kPanes = {
      QStringLiteral("picTreeContain"), QStringLiteral("picListContain"),
      QStringLiteral("Image1"),         QStringLiteral("Label1"),
      QStringLiteral("cbStatusBar"),    QStringLiteral("sbStatusBar"),
      QStringLiteral("tbToolBar"),      QStringLiteral("picForCBToolBar")};
  switch (kind) {
    case 10:
      if (OneIn(2)) {
        return {inTree({tree_->viewport()->width() - 12, tree_->viewport()->height() - 12}),
                QStringLiteral("tree's corner")};
      }
      return {inTree({30, tree_->viewport()->height() - 4}), QStringLiteral("tree's lower edge")};
    case 11:
      if (const auto* editor = tree_->findChild<QLineEdit*>(QStringLiteral("txtLabel"))) {
        return {editor->mapTo(window_.get(), editor->rect().center()), QStringLiteral("editor")};
      }
      [[fallthrough]];
    case 12:
      return {list_->mapTo(window_.get(), QPoint(30, 10 + Below(60))), QStringLiteral("list")};
    case 13:
      return {Middle(QStringLiteral("lvListView")), QStringLiteral("list's middle")};
    case 14: {
      QScrollBar* bar = OneIn(2) ? tree_->verticalScrollBar() : tree_->horizontalScrollBar();
      if (bar->isVisible()) {
        return {bar->mapTo(window_.get(), bar->rect().center()), QStringLiteral("scroll bar")};
      }
      [[fallthrough]];
    }
    case 15:
      return {window_->findChild<QWidget*>(QStringLiteral("picTreeContain"))
                  ->mapTo(window_.get(), QPoint(40, 8)),
              QStringLiteral("caption bar")};
    case 16:
      return {Middle(QStringLiteral("picShowSplitter")), QStringLiteral("splitter")};
    default: {
      const QString& name = OneOf(kPanes);
      return {Middle(name), name};
    }
  }
}
