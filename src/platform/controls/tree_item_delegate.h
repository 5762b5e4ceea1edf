// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QPersistentModelIndex>
#include <QStyledItemDelegate>

// Draws a tree's nodes and, much faster than the style would, a list's items: the picture, and
// behind it the label, which alone carries the highlight.
class TreeItemDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  // Where the label and where picture and label stand in a node's cell `rect`.
  QRect LabelRect(const QRect& rect, const QFontMetrics& metrics, const QString& text) const;
  // Where the text's font stands in the label.
  static QRect TextRect(const QRect& label, const QFontMetrics& metrics);
  QRect ItemRect(const QRect& rect, const QFontMetrics& metrics, const QString& text) const;

  // When on, the selected node's highlight goes while the view has not the focus.
  void SetHideSelection(bool hide) { hideSelection_ = hide; }
  // Also highlighted, as the target of a right button that is down; an invalid index for none.
  void SetDropHighlight(const QModelIndex& index) { dropHighlight_ = index; }

  // Has no label while an editor stands in its place; an invalid index for none.
  void SetEdited(const QModelIndex& index) { edited_ = index; }

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  // The tool tip of a label that is cut is its whole text.
  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override;

 private:
  void PaintLabel(QPainter& painter, const QStyleOptionViewItem& option,
                  const QModelIndex& index) const;

  bool hideSelection_ = true;
  QPersistentModelIndex dropHighlight_;
  QPersistentModelIndex edited_;
};

// The text of a label on one line.
QString OneLine(QString text);
