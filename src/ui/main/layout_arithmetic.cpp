// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "layout_arithmetic.h"

namespace {

void SetSize(float& size, float value) {
  if (value >= 0) size = value;
}

// Moves and resizes in one step, or not at all.
void Move(TwipsRect& rect, const TwipsRect& to) {
  if (to.width >= 0 && to.height >= 0) rect = to;
}

}  // namespace

void Arrange(Layout& layout, const LayoutInput& input, float treeWidth) {
  TwipsRect& tree = layout.picTreeContain;
  TwipsRect& list = layout.picListContain;
  if (treeWidth < 1500) treeWidth = 1500;
  if (treeWidth > input.width - 1500) treeWidth = input.width - 1500;

  tree.left = 0;
  SetSize(tree.width, treeWidth);
  layout.tvTreeView.left = 30;
  SetSize(layout.tvTreeView.width, tree.width - 140);
  list.left = treeWidth + 20;
  SetSize(list.width, input.width - (tree.width + 160));
  layout.lvListView.left = 800;
  SetSize(layout.lvListView.width, list.width - 20 - 800);
  layout.columnWidth = layout.lvListView.width;

  layout.cbToolBar.top = 120;
  layout.cbToolBar.height = input.toolBarHeight;
  float allowance = 60;
  if (input.toolBarVisible) {
    tree.top = input.toolBarHeight + 60;
    list.top = tree.top + 80;
    allowance = input.toolBarHeight;
    layout.cbToolBar.left = 0;
    SetSize(layout.cbToolBar.width, input.width - 60);
  } else {
    tree.top = 50;
    list.top = tree.top + 10;
  }
  layout.tvTreeView.top = 260;
  layout.lvListView.top = 10;

  if (input.statusBarVisible) {
    Move(layout.cbStatusBar,
         {0, input.scaleHeight - input.statusBarHeight, input.width - 120, input.statusBarHeight});
    SetSize(tree.height, input.scaleHeight - input.statusBarHeight - allowance);
  } else {
    SetSize(tree.height, input.scaleHeight - allowance - 60);
  }
  SetSize(layout.tvTreeView.height, tree.height - 330);
  SetSize(list.height, tree.height - (input.toolBarVisible ? 90.0F : 30.0F));
  layout.Image1.left = 100;
  layout.Image1.top = 150;
  layout.Label1.left = 150;
  layout.Label1.top = 1200;
  SetSize(layout.lvListView.height, list.height - 10);

  const bool toolBar = input.toolBarVisible;
  Move(layout.picShowSplitter,
       {tree.width - 40, tree.top + (toolBar ? 50.0F : 20.0F), layout.picShowSplitter.width,
        tree.height - (toolBar ? 90.0F : 60.0F)});
}
