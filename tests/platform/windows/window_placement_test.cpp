// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "window_placement.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <QWindow>

namespace {

// The window system of the tests frames its windows, by the same few pixels at every edge.
class WindowPlacementTest : public testing::Test {
 protected:
  void Show() {
    window_.show();
    QCoreApplication::processEvents();
    ASSERT_FALSE(window_.windowHandle()->frameMargins().isNull());
  }

  QWidget window_;
  WindowPlacement placement_{window_};
};

TEST_F(WindowPlacementTest, TheFrameIsPartOfWhatWasSet) {
  const TwipsRect set{1000, 1010, 6500, 5000};
  placement_.Set(set);
  EXPECT_EQ(placement_.Get(), set);
  Show();
  EXPECT_EQ(window_.frameGeometry(), QRect(67, 67, 433, 333));
  EXPECT_EQ(placement_.Get(), set);

  window_.move(67, 90);
  EXPECT_EQ(placement_.Get(), (TwipsRect{1000, 1350, 6500, 5000}));
  placement_.SetWidth(3000);
  placement_.SetHeight(4500);
  EXPECT_EQ(window_.frameGeometry(), QRect(67, 90, 200, 300));
  EXPECT_EQ(placement_.Get(), (TwipsRect{1000, 1350, 3000, 4500}));

  window_.showMaximized();
  QCoreApplication::processEvents();
  const QRect maximized = window_.windowHandle()->frameGeometry();
  EXPECT_EQ(placement_.Get().width, maximized.width() * kTwipsPerPixel);
  EXPECT_GT(placement_.Get().width, 3000);
}

TEST_F(WindowPlacementTest, ChangesBeforeTheFirstShowAreKept) {
  placement_.Set({300, 300, 1000, 1000});
  placement_.SetWidth(4500);
  placement_.SetHeight(6000);
  Show();
  EXPECT_EQ(window_.frameGeometry(), QRect(20, 20, 300, 400));
}

TEST_F(WindowPlacementTest, APlaceOutsideOfEveryScreenIsGivenUpAndAPartlyVisibleOneKept) {
  const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
  placement_.Set({-6600, 900000, 6500, 5000});
  Show();
  EXPECT_EQ(window_.frameGeometry().topLeft(), screen.topLeft());
  EXPECT_EQ(window_.frameGeometry().size(), QSize(433, 333));
  placement_.Set({-6000, 300, 6500, 5000});
  EXPECT_EQ(window_.frameGeometry().topLeft(), QPoint(-400, 20));
}

}  // namespace
