// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "system_colors.h"

QColor ResolveColor(OleColor color, const QPalette& palette) {
  const QColor window = palette.color(QPalette::Active, QPalette::Window);
  const bool dark = window.lightness() < 128;
  switch (color) {
    case kWindowBackground:
      return dark ? window.lighter(230) : palette.color(QPalette::Active, QPalette::Base);
    case kWindowFrame:
      return dark ? QColor(Qt::black) : palette.color(QPalette::Active, QPalette::WindowText);
    case kCaptionText:
      return dark ? window.lighter(190) : QColor(Qt::white);
    case kInactiveBorder:
      return window;
    case kApplicationWorkspace:
      return dark ? window.darker(200) : window.darker(150);
    case kBlack:
      return dark ? palette.color(QPalette::Active, QPalette::WindowText) : QColor(Qt::black);
    case kWhite:
      return dark ? palette.color(QPalette::Active, QPalette::Base) : QColor(Qt::white);
    default:
      return QColor(color & 0xFF, (color >> 8) & 0xFF, (color >> 16) & 0xFF);
  }
}
