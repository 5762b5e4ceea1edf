// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "tree_corner.h"

#include <QAbstractScrollArea>
#include <QCoreApplication>
#include <QEvent>
#include <QPainter>
#include <QTimer>
#include <QWheelEvent>

#include <utility>

namespace {

constexpr int kEdge = 1;

}  // namespace

TreeCorner::TreeCorner(QAbstractScrollArea& view) : QWidget(&view), view_(view) {
  hide();
  view.installEventFilter(this);
  view.viewport()->installEventFilter(this);
}

GlyphButton& TreeCorner::Add(GlyphButton::Glyph glyph, const QString& name, const QString& keys) {
  auto* button = new GlyphButton(glyph, name, keys, this);
  button->installEventFilter(this);
  connect(button, &QToolButton::clicked, this, [this] { wasClicked_ = true; });
  buttons_.insert(buttons_.empty() ? buttons_.end() : buttons_.end() - 1, button);
  Place();
  return *button;
}

void TreeCorner::SetAway(bool away) {
  isAway_ = away;
  ShowOrHide();
}

void TreeCorner::ShowOrHide() {
  setVisible(!isAway_ && view_.underMouse());
}

void TreeCorner::enterEvent(QEnterEvent* event) {
  Fold(false);
  QWidget::enterEvent(event);
}

void TreeCorner::leaveEvent(QEvent* event) {
  Fold(true);
  // Not before all that the pointer has left with the corner has heard of it.
  if (std::exchange(wasClicked_, false)) QTimer::singleShot(0, this, &TreeCorner::LeftAfterClick);
  QWidget::leaveEvent(event);
}

// A view that is scrolled does not stop where its corner comes under the pointer.
void TreeCorner::wheelEvent(QWheelEvent* event) {
  QCoreApplication::sendEvent(view_.viewport(), event);
}

bool TreeCorner::eventFilter(QObject* watched, QEvent* event) {
  if (watched->parent() == this) {
    // A double click is one, and what a button has told stays where the button's own tip would be.
    return event->type() == QEvent::MouseButtonDblClick ||
           (event->type() == QEvent::ToolTip && wasClicked_);
  }
  if (watched == &view_ && (event->type() == QEvent::Enter || event->type() == QEvent::Leave)) {
    // Not within these events: a button that appears below the pointer gets one of its own.
    QTimer::singleShot(0, this, &TreeCorner::ShowOrHide);
  } else if (event->type() == QEvent::Resize) {
    Place();
  }
  return QWidget::eventFilter(watched, event);
}

void TreeCorner::Fold(bool folded) {
  isFolded_ = folded;
  Place();
  update();
}

void TreeCorner::paintEvent(QPaintEvent* /*event*/) {
  if (isFolded_) return;
  QPainter painter(this);
  const QColor base = palette().color(QPalette::Active, QPalette::Base);
  QColor edge = palette().color(QPalette::Active, QPalette::Text);
  edge.setAlpha(90);
  painter.fillRect(rect(), base);
  painter.fillRect(rect(), edge);
  painter.fillRect(rect().adjusted(kEdge, kEdge, -kEdge, -kEdge), base);
}

// In a narrow view they stand in rows. While it is folded, all but the first lie beyond its left
// edge.
void TreeCorner::Place() {
  if (buttons_.empty()) return;
  const QSize button = buttons_.front()->sizeHint();
  const int count = static_cast<int>(buttons_.size());
  const QRect view = view_.viewport()->geometry();
  const int room = qBound(1, (view.width() - 2 * kEdge) / button.width(), count);
  const int columns = isFolded_ ? count : room;
  const int rows = (count + columns - 1) / columns;
  const QSize size((isFolded_ ? 1 : columns) * button.width() + 2 * kEdge,
                   rows * button.height() + 2 * kEdge);
  const QPoint corner = view.bottomRight();
  setGeometry(QRect(corner - QPoint(size.width(), size.height()), size));
  for (int i = 0; i < count; ++i) {
    const int place = count - 1 - i;  // from the corner, to the left and up
    buttons_[i]->move(size.width() - kEdge - (place % columns + 1) * button.width(),
                      size.height() - kEdge - (place / columns + 1) * button.height());
  }
  raise();
}
