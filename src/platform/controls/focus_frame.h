// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QPainter>
#include <QRect>

inline constexpr int kCornerRadius = 3;

// The thin frame, inside `rect`, that marks what the keyboard or a command would act on.
inline void DrawFocusFrame(QPainter& painter, const QRect& rect, const QColor& color) {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(color);
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5), kCornerRadius,
                          kCornerRadius);
}
