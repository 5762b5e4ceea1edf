// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "main_window.h"

#include "band_container.h"
#include "picture_box.h"
#include "system_colors.h"
#include "twips.h"

#include <QApplication>
#include <QImage>

namespace {

class PanesTest : public MainWindowTest {
 protected:
  QRect Place(const char* name) const { return Find<QWidget>(name)->geometry(); }
  int TreeWidth() const { return Place("picTreeContain").width(); }
  int Width() const { return window_->frameGeometry().width(); }
  void SetOuterSize(int width, int height) {
    window_->resize(QSize(width, height) - (window_->frameSize() - window_->size()));
  }
  static QRgb Color(OleColor name) { return ResolveColor(name, QApplication::palette()).rgb(); }
  // The colours of the pane's pixels: dark, light or the background's.
  std::string Pixels(const char* pane, const QRect& area) const {
    std::string colors;
    const QImage seen = Seen(pane).copy(area);
    for (int i = 0; i < area.width() * area.height(); ++i) {
      const QRgb pixel = seen.pixel(i % area.width(), i / area.width());
      for (const auto& [name, letter] :
           {std::pair(kApplicationWorkspace, 'd'), {kCaptionText, 'l'}, {kInactiveBorder, 'b'}}) {
        if (pixel == Color(name)) colors += letter;
      }
    }
    return colors;
  }
  QImage Seen(const char* name) const { return Find<QWidget>(name)->grab().toImage(); }

  // A point of the pane in the window.
  QPoint In(const char* pane, int x, int y) const {
    return Find<QWidget>(pane)->mapTo(window_.get(), QPoint(x, y));
  }
  void Press(const QPoint& point, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mousePress(window_->windowHandle(), button, {}, point);
  }
  void Move(const QPoint& point) { QTest::mouseMove(window_->windowHandle(), point); }
  void Release(const QPoint& point, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseRelease(window_->windowHandle(), button, {}, point);
  }
};

TEST_F(PanesTest, TakeTheRoomOfABarThatIsHidden) {
  const QRect before = Place("picTreeContain");
  const float top = Find<BandContainer>("cbToolBar")->Height() + 60;
  const float height = PixelsToTwips(before.height());
  EXPECT_EQ(Place("cbStatusBar").top(), TwipsToPixels(top + height - 60));
  for (const char* toggle : {"mnuViewToolbar", "mnuViewStatusBar"}) Choose(toggle);
  EXPECT_EQ(Place("picTreeContain").top(), 3);
  EXPECT_GT(Place("picTreeContain").bottom(), before.bottom() + 10);
  for (const char* toggle : {"mnuViewToolbar", "mnuViewStatusBar"}) Choose(toggle);
  EXPECT_EQ(Place("picTreeContain"), before);
  EXPECT_EQ(Place("picForCBToolBar").x(), Place("cbToolBar").width() - 46);  // 700 twips
}

TEST_F(PanesTest, ResizingKeepsTheTreePaneWhileThereIsRoomAndTheLeastSize) {
  const std::tuple<QSize, QSize, int> cases[] = {
      {{434, 500}, {434, 500}, 333},
      {{430, 266}, {430, 333}, 330},  // 3990 twips become 5000
      {{266, 267}, {333, 267}, 233},  // 4005 stay
      {{267, 266}, {267, 333}, 167}};
  for (const auto& [asked, got, tree] : cases) {
    SetOuterSize(600, 500);
    SetOuterSize(asked.width(), asked.height());
    // While the window manager has not granted more, the layout is that of the size there is.
    EXPECT_EQ(Place("cbToolBar").width(), asked.width() - 4);
    EXPECT_TRUE(QTest::qWaitFor([&, want = got] { return window_->frameSize() == want; }));
    EXPECT_EQ(TreeWidth(), tree);
    EXPECT_EQ(Place("cbToolBar").width(), got.width() - 4);
  }
  window_->showMinimized();
  window_->showNormal();
  EXPECT_EQ(TreeWidth(), 167);
  EXPECT_LT(Place("panel2").right(), Place("panel3").left());
}

TEST_F(PanesTest, TheSplitterFollowsThePointerAndLaysOutOnRelease) {
  QWidget* grip = Find<QWidget>("picShowSplitter");
  QWidget* bar = Find<QWidget>("picSplitter");
  EXPECT_EQ(grip->cursor().hotSpot(), QPoint(15, 15));
  // The button, the pixels from the press, where the bar stands then, the tree pane's width after
  // the release.
  const std::tuple<Qt::MouseButton, int, int, int> cases[] = {
      {Qt::RightButton, -100, 233, 233},
      {Qt::MiddleButton, -2000, 33, 100},
      {Qt::LeftButton, 2000, Width() - 33, Width() - 100},
  };
  for (const auto& [button, drag, barLeft, tree] : cases) {
    const int before = TreeWidth();
    const QPoint start = In("picShowSplitter", 2, 50);
    Press(start, button);
    EXPECT_EQ(bar->pos(), grip->pos());
    EXPECT_EQ(bar->height(), grip->height());
    Move(start + QPoint(drag / 2, 300));
    Move(start + QPoint(drag, -100));
    EXPECT_NEAR(bar->x(), barLeft, 1);
    EXPECT_EQ(TreeWidth(), before);
    Release(start + QPoint(drag, -100), button);
    EXPECT_NEAR(TreeWidth(), tree, 1);
    EXPECT_FALSE(bar->isVisible());
    EXPECT_NEAR(grip->x(), TreeWidth() - 40.0 / 15, 0.8);
    Move(start);  // no drag any more
    EXPECT_FALSE(bar->isVisible());
  }
  // The ridge: dark, light, under a light line, cut off above its bottom.
  EXPECT_EQ(Pixels("picShowSplitter", {0, 20, 4, 1}), "dlbb");
  EXPECT_EQ(Pixels("picShowSplitter", {0, 0, 4, 1}), "llll");
  EXPECT_EQ(Pixels("picShowSplitter", {0, grip->height() - 1, 4, 1}), "bbbb");
}

// The pane is 333 pixels wide.
TEST_F(PanesTest, TheCaptionBarIsDrawnToThePixel) {
  EXPECT_EQ(Pixels("picTreeContain", {100, 0, 1, 15}), "bdlbbbblbdblbdb");
  EXPECT_EQ(Pixels("picTreeContain", {0, 9, 4, 1}), "bbdd");  // the gripper's ends
  EXPECT_EQ(Pixels("picTreeContain", {311, 9, 4, 1}), "ddbb");
  EXPECT_EQ(Pixels("picTreeContain", {329, 1, 4, 1}), "dddd");
  EXPECT_EQ(Pixels("picTreeContain", {1, Place("picTreeContain").height() - 3, 1, 3}), "blb");
  EXPECT_LT(Seen("picTreeContain").pixelColor(321, 10).lightness(), 80);  // the glyph's crossing
}

// Its hot area is 321 to 323 by 9 to 12.
TEST_F(PanesTest, TheCloseGlyphFollowsThePointer) {
  const auto look = [this] {
    const QImage seen = Seen("picTreeContain");
    const auto frame = [&seen](OleColor topLeft, OleColor bottomRight) {
      return seen.pixel(320, 6) == Color(topLeft) && seen.pixel(317, 10) == Color(topLeft) &&
             seen.pixel(320, 14) == Color(bottomRight) && seen.pixel(327, 10) == Color(bottomRight);
    };
    if (frame(kInactiveBorder, kInactiveBorder)) return "plain";
    if (frame(kWindowBackground, kWindowFrame)) return "raised";
    if (!frame(kWindowFrame, kWindowBackground)) return "mixed";
    return seen.pixel(326, 14) == Color(kWindowBackground) ? "sunken" : "released";
  };
  // A move, a press, a release or a right click.
  const std::tuple<char, int, int, const char*> steps[] = {
      {'m', 320, 10, "plain"},    {'m', 321, 9, "raised"},  {'m', 321, 8, "plain"},
      {'m', 323, 12, "raised"},   {'m', 324, 12, "plain"},  {'m', 323, 13, "plain"},
      {'m', 322, 10, "raised"},   {'m', 322, 100, "plain"}, {'m', 322, 10, "raised"},
      {'c', 322, 10, "raised"},   {'p', 322, 10, "sunken"}, {'m', 100, 10, "sunken"},
      {'r', 100, 10, "plain"},    {'p', 322, 8, "plain"},   {'m', 322, 10, "plain"},
      {'r', 322, 10, "released"}, {'m', 322, 11, "raised"}};
  for (const auto& [act, x, y, want] : steps) {
    const QPoint point = In("picTreeContain", x, y);
    if (act == 'm') Move(point);
    if (act == 'p') Press(point);
    if (act == 'r') Release(point);
    if (act == 'c') Press(point, Qt::RightButton), Release(point, Qt::RightButton);
    EXPECT_STREQ(look(), want) << act << x << " " << y;
  }
}

}  // namespace
