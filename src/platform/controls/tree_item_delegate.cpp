// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "tree_item_delegate.h"

#include "focus_frame.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QIcon>
#include <QPainter>
#include <QTextLayout>
#include <QToolTip>

namespace {

constexpr int kPictureSize = 16;
constexpr int kPictureLeft = 2;
constexpr int kLabelLeft = kPictureLeft + kPictureSize + 3;
constexpr int kLabelPadding = 4;
// Longer tool tips have several lines.
constexpr int kWidestTip = 480;

}  // namespace

QString OneLine(QString text) {
  for (QChar& c : text) {
    if (c.category() == QChar::Other_Control || c == QChar::LineSeparator ||
        c == QChar::ParagraphSeparator) {
      c = u' ';
    }
  }
  return text;
}

QRect TreeItemDelegate::LabelRect(const QRect& rect, const QFontMetrics& metrics,
                                  const QString& text) const {
  const int width = metrics.horizontalAdvance(OneLine(text)) + 2 * kLabelPadding;
  return QRect(rect.left() + kLabelLeft, rect.top(), width, rect.height());
}

QRect TreeItemDelegate::ItemRect(const QRect& rect, const QFontMetrics& metrics,
                                 const QString& text) const {
  QRect item = LabelRect(rect, metrics, text);
  item.setLeft(rect.left());
  return item;
}

// As a line edit places its text.
QRect TreeItemDelegate::TextRect(const QRect& label, const QFontMetrics& metrics) {
  const int height = metrics.height();
  return QRect(label.left() + kLabelPadding, label.top() + (label.height() - height + 1) / 2,
               label.width() - 2 * kLabelPadding, height);
}

void TreeItemDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const {
  painter->save();
  const QRect picture(option.rect.left() + kPictureLeft,
                      option.rect.top() + (option.rect.height() - kPictureSize) / 2, kPictureSize,
                      kPictureSize);
  index.data(Qt::DecorationRole).value<QIcon>().paint(painter, picture);
  if (!edited_.isValid() || edited_ != index) PaintLabel(*painter, option, index);
  painter->restore();
}

void TreeItemDelegate::PaintLabel(QPainter& painter, const QStyleOptionViewItem& option,
                                  const QModelIndex& index) const {
  const QString text = OneLine(index.data(Qt::DisplayRole).toString());
  // Only where a view gives less room than the label asks for does it end in an ellipsis.
  const QRect wanted = LabelRect(option.rect, option.fontMetrics, text);
  const QRect label = wanted.intersected(option.rect);
  const bool focused = (option.state & QStyle::State_Active) != 0 && option.widget != nullptr &&
                       option.widget->hasFocus();
  const bool dropTarget = dropHighlight_.isValid() && dropHighlight_ == index;
  const bool selected = (option.state & QStyle::State_Selected) != 0 && !dropHighlight_.isValid() &&
                        (focused || !hideSelection_);
  const bool full = dropTarget || (selected && focused);
  const bool current = focused && (option.state & QStyle::State_HasFocus) != 0;

  const QColor highlight = option.palette.color(QPalette::Active, QPalette::Highlight);
  QColor fill = highlight;
  if (!full) {
    const bool hovered = (option.state & QStyle::State_MouseOver) != 0;
    fill.setAlpha((selected ? 60 : 0) + (hovered ? 36 : 0));
  }
  const QRect marked = label.adjusted(0, 1, 0, -1);
  if (fill.alpha() > 0) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(fill);
    painter.drawRoundedRect(marked, kCornerRadius, kCornerRadius);
  }
  // Still seen, but the keyboard is elsewhere; or the keyboard is here, and nothing is selected.
  if (!full && (selected || current)) DrawFocusFrame(painter, marked, highlight);

  painter.setPen(
      option.palette.color(QPalette::Active, full ? QPalette::HighlightedText : QPalette::Text));
  // A name that begins in Arabic or Hebrew reads from the right, as in the editor.
  painter.setLayoutDirection(Qt::LayoutDirectionAuto);
  const QRect place = TextRect(label, option.fontMetrics);
  // As a line edit draws it, to the fraction of a pixel and in the text's own direction.
  QTextLayout layout(
      label == wanted ? text : option.fontMetrics.elidedText(text, Qt::ElideRight, place.width()),
      option.font);
  layout.beginLayout();
  const QTextLine line = layout.createLine();
  layout.endLayout();
  const int top = place.top() + option.fontMetrics.ascent() - qRound(line.ascent());
  layout.draw(&painter, QPointF(place.left(), top));
}

bool TreeItemDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                                 const QStyleOptionViewItem& option, const QModelIndex& index) {
  const QString text = index.data(Qt::DisplayRole).toString();
  const QRect label = LabelRect(option.rect, view->fontMetrics(), OneLine(text));
  QRect seen = label & option.rect & view->viewport()->rect();
  // Something that the view shows above its rows covers the end.
  const QPoint end = view->viewport()->mapTo(view, QPoint(seen.right(), seen.center().y()));
  const QWidget* const above = view->childAt(end);
  if (above != view->viewport() && !view->viewport()->isAncestorOf(above)) {
    seen.setRight(seen.right() - 1);
  }
  if (event->type() != QEvent::ToolTip || !index.isValid() || seen == label ||
      !ItemRect(option.rect, view->fontMetrics(), OneLine(text)).contains(event->pos())) {
    event->ignore();  // whatever else is being told may stay
    return false;
  }
  const QString wrap =
      label.width() > kWidestTip ? QStringLiteral("pre-wrap") : QStringLiteral("pre");
  QToolTip::showText(
      event->globalPos(),
      QStringLiteral("<p style='white-space:%1'>%2</p>").arg(wrap, OneLine(text).toHtmlEscaped()),
      view->viewport(), seen);
  return true;
}

QSize TreeItemDelegate::sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const {
  const QString text = index.data(Qt::DisplayRole).toString();
  const int height = qMax(kPictureSize + 4, option.fontMetrics.height() + 4);
  return QSize(ItemRect(QRect(0, 0, 0, height), option.fontMetrics, text).width() + 2,
               height + (height & 1));
}
