// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "layout_arithmetic.h"

#include <gtest/gtest.h>

#include <sstream>

TEST(LayoutArithmetic, PutsEverythingInItsPlace) {
  // The window; the tree pane's width that is asked for; tree pane, tree, list pane, list, grip,
  // bars.
  const std::tuple<LayoutInput, float, const char*> cases[] = {
      // Without both.
      {{6500, 5000, false, 600, false, 450},
       3200.5F,
       "0,50 3200.5x4880; 30,260 3060.5x4550; 3220.5,60 3139.5x4850; 800,10 2319.5x4840; "
       "3160.5,70 60x4820; 0,120 14940x600; 0,8550 14880x450; "},
      // Very small: some steps fail, and what they would have set stays.
      {{100, 100, true, 600, true, 450},
       5000,
       "0,660 5000x7950; 30,260 4860x7620; -1380,740 9840x7860; 800,10 9020x7850; "
       "4960,710 60x7860; 0,120 40x600; 0,8550 14880x450; "},
  };
  for (const auto& [input, treeWidth, places] : cases) {
    Layout layout;
    layout.picShowSplitter.width = 60;
    Arrange(layout, {15000, 9000, true, 600, true, 450}, 5000);
    Arrange(layout, input, treeWidth);
    std::ostringstream text;
    for (const TwipsRect& r :
         {layout.picTreeContain, layout.tvTreeView, layout.picListContain, layout.lvListView,
          layout.picShowSplitter, layout.cbToolBar, layout.cbStatusBar}) {
      text << r.left << "," << r.top << " " << r.width << "x" << r.height << "; ";
    }
    EXPECT_EQ(text.str(), places);
    EXPECT_EQ(layout.columnWidth, layout.lvListView.width);
  }
}
