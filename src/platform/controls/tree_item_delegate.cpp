// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "tree_item_delegate.h"

#include <QIcon>
#include <QPainter>

namespace {

constexpr int kPictureSize = 16;
constexpr int kPictureLeft = 2;
constexpr int kLabelLeft = kPictureLeft + kPictureSize + 3;
constexpr int kLabelPadding = 4;

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

void TreeItemDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const {
  painter->save();
  const QString text = OneLine(index.data(Qt::DisplayRole).toString());
  // Only where a view gives less room than the label asks for does it end in an ellipsis.
  const QRect wanted = LabelRect(option.rect, option.fontMetrics, text);
  const QRect label = wanted.intersected(option.rect);
  const bool selected = (option.state & QStyle::State_Selected) != 0;
  const bool focused = (option.state & QStyle::State_Active) != 0 && option.widget != nullptr &&
                       option.widget->hasFocus();
  const bool dropTarget = dropHighlight_.isValid() && dropHighlight_ == index;
  const bool highlighted =
      dropTarget || (selected && !dropHighlight_.isValid() && (focused || !hideSelection_));

  QColor textColor = option.palette.color(QPalette::Active, QPalette::Text);
  QColor fill = option.palette.color(QPalette::Active, QPalette::Highlight);
  if (highlighted && (focused || dropTarget)) {
    textColor = option.palette.color(QPalette::Active, QPalette::HighlightedText);
  } else if (highlighted) {
    fill.setAlpha(80);  // still seen, but the keyboard is elsewhere
  } else if ((option.state & QStyle::State_MouseOver) != 0) {
    fill.setAlpha(36);
  } else {
    fill = Qt::transparent;
  }
  if (fill.alpha() > 0) {
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(fill);
    painter->drawRoundedRect(label.adjusted(0, 1, 0, -1), 3, 3);
  }

  const QRect picture(option.rect.left() + kPictureLeft,
                      option.rect.top() + (option.rect.height() - kPictureSize) / 2, kPictureSize,
                      kPictureSize);
  index.data(Qt::DecorationRole).value<QIcon>().paint(painter, picture);

  painter->setFont(option.font);
  painter->setPen(textColor);
  painter->drawText(
      label.adjusted(kLabelPadding, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
      label == wanted
          ? text
          : option.fontMetrics.elidedText(text, Qt::ElideRight, label.width() - kLabelPadding));
  painter->restore();
}

QSize TreeItemDelegate::sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const {
  const QString text = index.data(Qt::DisplayRole).toString();
  const int height = qMax(kPictureSize + 4, option.fontMetrics.height() + 4);
  return QSize(ItemRect(QRect(0, 0, 0, height), option.fontMetrics, text).width() + 2,
               height + (height & 1));
}
