// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "window_placement.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QWidget>

namespace {

// The window system of the tests frames its windows, by the same few pixels at every edge.
TEST(WindowPlacement, TheFrameIsPartOfWhatWasSetBeforeAndAfterTheFirstShow) {
  QWidget window;
  WindowPlacement placement(window);
  const TwipsRect set{1000, 1010, 6500, 5000};
  placement.Set(set);
  window.show();
  QCoreApplication::processEvents();
  EXPECT_EQ(window.frameGeometry(), QRect(67, 67, 433, 333));
  EXPECT_EQ(placement.Get(), set);

  window.move(67, 90);
  placement.SetWidth(3000);
  EXPECT_EQ(window.frameGeometry(), QRect(67, 90, 200, 333));
  EXPECT_EQ(placement.Get(), (TwipsRect{1000, 1350, 3000, 5000}));
  placement.Set({-6600, 900000, 6500, 5000});
  EXPECT_EQ(window.frameGeometry(), QRect(0, 0, 433, 333)) << "outside of every screen";
}

}  // namespace
