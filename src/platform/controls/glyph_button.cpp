// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "glyph_button.h"

#include <QPainter>

namespace {

constexpr int kSize = 20;

}  // namespace

GlyphButton::GlyphButton(Glyph glyph, const QString& name, const QString& keys, QWidget* parent)
    : QToolButton(parent), glyph_(glyph) {
  setAccessibleName(name);
  setToolTip(QStringLiteral("%1（%2）").arg(name, keys));
  setFocusPolicy(Qt::NoFocus);
  setFixedSize(kSize, kSize);
}

QSize GlyphButton::sizeHint() const {
  return QSize(kSize, kSize);
}

void GlyphButton::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  QColor color =
      palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::Text);
  const auto fillWith = [&](const QColor& fill) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(fill);
    painter.drawRoundedRect(rect(), 3, 3);
  };
  fillWith(palette().color(QPalette::Active, QPalette::Base));
  if (isEnabled() && (underMouse() || isDown())) {
    QColor fill = color;
    fill.setAlpha(isDown() ? 56 : 28);
    fillWith(fill);
  } else if (isEnabled()) {
    color.setAlpha(190);
  }
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(color, 1.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.translate(QRectF(rect()).center());
  switch (glyph_) {
    case Glyph::kUp:
      painter.drawPolyline(QPolygonF({{-4, 2}, {0, -2}, {4, 2}}));
      break;
    case Glyph::kDown:
      painter.drawPolyline(QPolygonF({{-4, -2}, {0, 2}, {4, -2}}));
      break;
    case Glyph::kCross:
      painter.drawLine(QPointF(-3.5, -3.5), QPointF(3.5, 3.5));
      painter.drawLine(QPointF(-3.5, 3.5), QPointF(3.5, -3.5));
      break;
    case Glyph::kLens:
      painter.drawEllipse(QPointF(-1.3, -1.3), 3.9, 3.9);
      painter.drawLine(QPointF(1.6, 1.6), QPointF(5, 5));
      break;
    case Glyph::kReload:
      painter.drawArc(QRectF(-4.5, -4.5, 9, 9), 60 * 16, 300 * 16);
      painter.drawPolyline(QPolygonF({{4.5, -5}, {4.5, -1.5}, {1, -1.5}}));
      break;
    case Glyph::kCopy:
      painter.drawRoundedRect(QRectF(-1.5, -2.5, 6, 7), 1, 1);
      painter.drawPolyline(QPolygonF({{-4.5, 1}, {-4.5, -5.5}, {1, -5.5}}));
      break;
    case Glyph::kPaste:
      painter.drawRoundedRect(QRectF(-4.5, -4.5, 8, 9), 1, 1);
      painter.drawRect(QRectF(-2.5, -5.5, 4, 2));
      painter.drawPolyline(QPolygonF({{-2.3, 0.7}, {-0.5, 2.5}, {1.3, 0.7}}));
      painter.drawLine(QPointF(-0.5, -1.3), QPointF(-0.5, 2.3));
      break;
    case Glyph::kTakeBack:
      painter.drawPolyline(QPolygonF({{-2, -4.5}, {-5, -1.5}, {-2, 1.5}}));
      painter.drawLine(QPointF(-4.8, -1.5), QPointF(1.5, -1.5));
      painter.drawArc(QRectF(-1.5, -1.5, 6, 6), -90 * 16, 180 * 16);
      painter.drawLine(QPointF(1.5, 4.5), QPointF(-2, 4.5));
      break;
  }
}
