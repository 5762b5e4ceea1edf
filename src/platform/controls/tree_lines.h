// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QPalette>
#include <QRect>

class Node;
class QPainter;

struct TreeLinesStyle {
  QPalette palette;
  int indentation;  // pixels a level
  bool rootLines;   // the nodes without a parent have lines and boxes as well
  bool expanded;    // the node whose row is drawn is
};

// Draws what stands left of a node in its row, whose part up to the node is `area`: the lines that
// lead to the node and past it, and its plus/minus box if it has children.
void DrawTreeLines(QPainter& painter, const QRect& area, const Node& node,
                   const TreeLinesStyle& style);
