// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "tree_corner.h"

#include <QAbstractScrollArea>
#include <QCoreApplication>
#include <QEvent>
#include <QTimer>
#include <QWheelEvent>

namespace {

constexpr int kEdge = 1;

}  // namespace

TreeCorner::TreeCorner(QAbstractScrollArea& view) : QFrame(&view), view_(view) {
  hide();
  view.installEventFilter(this);
  view.viewport()->installEventFilter(this);
}

GlyphButton& TreeCorner::Add(GlyphButton::Glyph glyph, const QString& name, const QString& keys) {
  auto* button = new GlyphButton(glyph, name, keys, this);
  buttons_.insert(buttons_.empty() ? buttons_.end() : buttons_.end() - 1, button);
  Place();
  return *button;
}

void TreeCorner::enterEvent(QEnterEvent* event) {
  Fold(false);
  QFrame::enterEvent(event);
}

void TreeCorner::leaveEvent(QEvent* event) {
  Fold(true);
  QFrame::leaveEvent(event);
}

// A view that is scrolled does not stop where its corner comes under the pointer.
void TreeCorner::wheelEvent(QWheelEvent* event) {
  QCoreApplication::sendEvent(view_.viewport(), event);
}

bool TreeCorner::eventFilter(QObject* watched, QEvent* event) {
  if (watched == &view_ && (event->type() == QEvent::Enter || event->type() == QEvent::Leave)) {
    // Not within these events: a button that appears below the pointer gets one of its own.
    QTimer::singleShot(0, this, [this] { setVisible(view_.underMouse()); });
  } else if (event->type() == QEvent::Resize) {
    Place();
  }
  return QFrame::eventFilter(watched, event);
}

void TreeCorner::Fold(bool folded) {
  isFolded_ = folded;
  setFrameShape(folded ? QFrame::NoFrame : QFrame::StyledPanel);
  setAutoFillBackground(!folded);
  Place();
}

// While it is folded, the other buttons lie beyond its left edge.
void TreeCorner::Place() {
  if (buttons_.empty()) return;
  const QSize button = buttons_.front()->sizeHint();
  const int count = static_cast<int>(buttons_.size());
  const QSize size((isFolded_ ? 1 : count) * button.width() + 2 * kEdge,
                   button.height() + 2 * kEdge);
  const QPoint corner = view_.viewport()->geometry().bottomRight();
  setGeometry(QRect(corner - QPoint(size.width(), size.height()), size));
  for (int i = 0; i < count; ++i) {
    buttons_[i]->move(size.width() - kEdge - (count - i) * button.width(), kEdge);
  }
  raise();
}
