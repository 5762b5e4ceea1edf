// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "tree_lines.h"

#include "tree_nodes.h"

#include <QPainter>

namespace {

constexpr int kBoxSize = 9;

// The colour that lies `share` of the way from `from` to `to`.
QColor Mixed(const QColor& from, const QColor& to, float share) {
  const auto part = [share](float a, float b) { return a + (b - a) * share; };
  return QColor::fromRgbF(part(float(from.redF()), float(to.redF())),
                          part(float(from.greenF()), float(to.greenF())),
                          part(float(from.blueF()), float(to.blueF())));
}

void DrawBox(QPainter& painter, const QPoint& center, const TreeLinesStyle& style) {
  const QColor text = style.palette.color(QPalette::Text);
  const QColor base = style.palette.color(QPalette::Base);
  QRect box(0, 0, kBoxSize, kBoxSize);
  box.moveCenter(center);
  painter.fillRect(box, Mixed(base, text, 0.55F));
  painter.fillRect(box.adjusted(1, 1, -1, -1), base);
  painter.fillRect(box.left() + 2, center.y(), kBoxSize - 4, 1, text);
  if (!style.expanded) painter.fillRect(center.x(), box.top() + 2, 1, kBoxSize - 4, text);
}

}  // namespace

void DrawTreeLines(QPainter& painter, const QRect& area, const Node& node,
                   const TreeLinesStyle& style) {
  const QColor line =
      Mixed(style.palette.color(QPalette::Base), style.palette.color(QPalette::Text), 0.35F);
  const int end = area.right() + 1;
  const int bottom = area.bottom() + 1;
  const QPoint center(end - style.indentation / 2, area.top() + area.height() / 2);
  // From the node's own cell leftwards to the outermost ancestor's.
  int x = center.x();
  for (const Node* level = &node; level != nullptr; level = level->Parent()) {
    if (level->Parent() == nullptr && !style.rootLines) break;
    const bool more = level->Next() != nullptr;
    if (level == &node) {
      const bool first = level->Parent() == nullptr && level->Previous() == nullptr;
      const int top = first ? center.y() : area.top();
      painter.fillRect(x, top, 1, (more ? bottom : center.y() + 1) - top, line);
      painter.fillRect(x, center.y(), end - x, 1, line);
    } else if (more) {
      painter.fillRect(x, area.top(), 1, area.height(), line);
    }
    x -= style.indentation;
  }
  const bool hasBox = style.rootLines || node.Parent() != nullptr;
  if (hasBox && node.Children() > 0) DrawBox(painter, center, style);
}
