// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "layout_arithmetic.h"

namespace {

// All in twips.
constexpr float kLeastPaneWidth = 1500;
constexpr float kPaneGap = 20;  // between the panes
// How much narrower or lower than its surroundings something is.
constexpr float kTreeWidthLess = 140;
constexpr float kTreeHeightLess = 330;
constexpr float kPanesWidthLess = 160;
constexpr float kListWidthLess = 20;
constexpr float kListHeightLess = 10;
constexpr float kToolBarWidthLess = 60;
constexpr float kStatusBarWidthLess = 120;

constexpr float kTreeLeft = 30;
constexpr float kTreeTop = 260;  // below the caption bar
constexpr float kListLeft = 800;
constexpr float kListTop = 10;
constexpr float kToolBarTop = 120;
constexpr float kImageLeft = 100;
constexpr float kImageTop = 150;
constexpr float kTitleLeft = 150;
constexpr float kTitleTop = 1200;
constexpr float kGripOverlap = 40;  // of the tree pane

// What depends on whether the tool bar shows.
struct Heights {
  float treeTop;
  float listBelowTree;
  float allowance;  // what of the height is not the tree pane's
  float listLess;   // than the tree pane's height
  float gripBelowTree;
  float gripLess;
};
constexpr float kNoToolBarAllowance = 60;
constexpr float kNoStatusBarAllowance = 60;

Heights HeightsFor(const LayoutInput& input) {
  if (input.toolBarVisible) {
    return {input.toolBarHeight + 60, 80, input.toolBarHeight, 90, 50, 90};
  }
  return {50, 10, kNoToolBarAllowance, 30, 20, 60};
}

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
  const Heights heights = HeightsFor(input);
  if (treeWidth < kLeastPaneWidth) treeWidth = kLeastPaneWidth;
  if (treeWidth > input.width - kLeastPaneWidth) treeWidth = input.width - kLeastPaneWidth;

  tree.left = 0;
  SetSize(tree.width, treeWidth);
  layout.tvTreeView.left = kTreeLeft;
  SetSize(layout.tvTreeView.width, tree.width - kTreeWidthLess);
  list.left = treeWidth + kPaneGap;
  SetSize(list.width, input.width - (tree.width + kPanesWidthLess));
  layout.lvListView.left = kListLeft;
  SetSize(layout.lvListView.width, list.width - kListWidthLess - kListLeft);
  layout.columnWidth = layout.lvListView.width;

  layout.cbToolBar.top = kToolBarTop;
  layout.cbToolBar.height = input.toolBarHeight;
  tree.top = heights.treeTop;
  list.top = tree.top + heights.listBelowTree;
  if (input.toolBarVisible) {
    layout.cbToolBar.left = 0;
    SetSize(layout.cbToolBar.width, input.width - kToolBarWidthLess);
  }
  layout.tvTreeView.top = kTreeTop;
  layout.lvListView.top = kListTop;

  if (input.statusBarVisible) {
    const float top = input.scaleHeight - input.statusBarHeight;
    Move(layout.cbStatusBar, {0, top, input.width - kStatusBarWidthLess, input.statusBarHeight});
    SetSize(tree.height, top - heights.allowance);
  } else {
    SetSize(tree.height, input.scaleHeight - heights.allowance - kNoStatusBarAllowance);
  }
  SetSize(layout.tvTreeView.height, tree.height - kTreeHeightLess);
  SetSize(list.height, tree.height - heights.listLess);
  layout.Image1.left = kImageLeft;
  layout.Image1.top = kImageTop;
  layout.Label1.left = kTitleLeft;
  layout.Label1.top = kTitleTop;
  SetSize(layout.lvListView.height, list.height - kListHeightLess);

  Move(layout.picShowSplitter, {tree.width - kGripOverlap, tree.top + heights.gripBelowTree,
                                layout.picShowSplitter.width, tree.height - heights.gripLess});
}
