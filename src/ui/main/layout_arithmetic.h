// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "twips.h"

// What the layout of the main window follows from, in twips.
struct LayoutInput {
  float width = 0;        // of the window, frame included
  float scaleHeight = 0;  // of the client area, below the menu bar
  bool toolBarVisible = true;
  float toolBarHeight = 0;
  bool statusBarVisible = true;
  float statusBarHeight = 0;
};

// Where every pane, view and bar of the main window stands, each in its parent's coordinates.
struct Layout {
  TwipsRect picTreeContain;
  TwipsRect tvTreeView;
  TwipsRect picListContain;
  TwipsRect lvListView;
  float columnWidth = 0;  // of the list view's one column
  TwipsRect cbToolBar;
  TwipsRect cbStatusBar;
  TwipsRect Image1;
  TwipsRect Label1;
  TwipsRect picShowSplitter;
};

// The least width and height of the window: one that is too small becomes 5000.
inline float EnoughFor(float size) {
  return size < 4000 ? 5000 : size;
}

// Lays out anew for the wanted width of the tree pane, which is clamped first. A step that would
// give something a negative size is skipped, and what it would have set stays as it is in `layout`.
void Arrange(Layout& layout, const LayoutInput& input, float treeWidth);
