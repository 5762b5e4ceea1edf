// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "layout_arithmetic.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

// The window before its first layout.
Layout Fresh() {
  Layout layout;
  layout.Image1 = {0, 0, 480, 480};
  layout.Label1 = {0, 0, 345, 1635};
  layout.picShowSplitter.width = 60;
  return layout;
}

// `places`: tree pane, tree, list pane, list, grip; then the bars that are shown.
void Expect(const char* name, Layout layout, const LayoutInput& input, float treeWidth,
            const char* places) {
  Arrange(layout, input, treeWidth);
  std::vector<TwipsRect> rects = {layout.picTreeContain, layout.tvTreeView, layout.picListContain,
                                  layout.lvListView, layout.picShowSplitter};
  if (input.toolBarVisible) rects.push_back(layout.cbToolBar);
  if (input.statusBarVisible) rects.push_back(layout.cbStatusBar);
  std::ostringstream text;
  for (const TwipsRect& r : rects) {
    text << r.left << "," << r.top << " " << r.width << "x" << r.height << "; ";
  }
  EXPECT_EQ(text.str(), places) << name;
  EXPECT_EQ(layout.Image1, (TwipsRect{100, 150, 480, 480})) << name;
  EXPECT_EQ(layout.Label1, (TwipsRect{150, 1200, 345, 1635})) << name;
  EXPECT_EQ(layout.columnWidth, layout.lvListView.width) << name;
}

TEST(LayoutArithmetic, PutsEverythingInItsPlace) {
  const LayoutInput wideInput{15000, 9000, true, 600, true, 450};
  Expect("wide", Fresh(), wideInput, 5000,
         "0,660 5000x7950; 30,260 4860x7620; 5020,740 9840x7860; 800,10 9020x7850; "
         "4960,710 60x7860; 0,120 14940x600; 0,8550 14880x450; ");
  Expect("narrow, without the tool bar", Fresh(), {6000, 6000, false, 600, true, 450}, 5000,
         "0,50 4500x5490; 30,260 4360x5160; 4520,60 1340x5460; 800,10 520x5450; "
         "4460,70 60x5430; 0,5550 5880x450; ");
  Expect("without the status bar", Fresh(), {6500, 5000, true, 600, false, 450}, 1499,
         "0,660 1500x4340; 30,260 1360x4010; 1520,740 4840x4250; 800,10 4020x4240; "
         "1460,710 60x4250; 0,120 6440x600; ");
  Expect("without both", Fresh(), {6500, 5000, false, 600, false, 450}, 3200.5F,
         "0,50 3200.5x4880; 30,260 3060.5x4550; 3220.5,60 3139.5x4850; 800,10 2319.5x4840; "
         "3160.5,70 60x4820; ");
  Layout wide = Fresh();
  Arrange(wide, wideInput, 5000);
  Expect("narrower than 3000", wide, {2400, 4000, true, 600, true, 450}, 5000,
         "0,660 900x2950; 30,260 760x2620; 920,740 1340x2860; 800,10 520x2850; "
         "860,710 60x2860; 0,120 2340x600; 0,3550 2280x450; ");
  // From here on some steps fail, and what they would have set stays.
  Expect("small", wide, {1600, 1300, true, 600, true, 450}, 5000,
         "0,660 100x250; 30,260 4860x7620; 120,740 1340x160; 800,10 520x150; "
         "60,710 60x160; 0,120 1540x600; 0,850 1480x450; ");
  Expect("very small", wide, {100, 100, true, 600, true, 450}, 5000,
         "0,660 5000x7950; 30,260 4860x7620; -1380,740 9840x7860; 800,10 9020x7850; "
         "4960,710 60x7860; 0,120 40x600; 0,8550 14880x450; ");
}

}  // namespace
