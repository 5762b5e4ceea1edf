// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "main_window.h"

#include <QMenu>

namespace {

class BrowsingTest : public MainWindowTest {
 protected:
  // The pop-up menu's items from top to bottom; closes it.
  std::string PopUp() {
    QMenu* menu = Find<QMenu>("mnuPopMnu");
    if (!menu->isVisible()) return "";
    QStringList items;
    for (const QAction* item : menu->actions()) {
      if (item->isVisible()) items += item->isSeparator() ? QStringLiteral("-") : item->text();
    }
    menu->close();
    return items.join(u' ').toStdString();
  }
  void ClickEmptySpace(Qt::MouseButton button) {
    QWidget* tree = tvTreeView->viewport();
    QTest::mouseClick(window_->windowHandle(), button, Qt::NoModifier,
                      tree->mapTo(window_.get(), tree->rect().bottomLeft() + QPoint(9, -9)));
  }
};

TEST_F(BrowsingTest, ClicksAndKeysListTheChildren) {
  EXPECT_EQ(window_->windowTitle(), QStringLiteral("衡川词句库"));
  EXPECT_EQ(tvTreeView->SelectedItem(), &At(""));
  EXPECT_FALSE(tvTreeView->Expanded(At("")));
  EXPECT_EQ(Panel() + List(), "状态");
  const struct {
    const char* path;
    const char* list;
    const char* panel;
  } cases[] = {
      {"", "车削 热处理 空类", "衡川词句库"},
      {"车削", "粗车 精车", "分类条目"},
      {"车削/粗车", "粗车外圆 粗车端面", "分类词"},
      {"车削/粗车/粗车外圆", "粗车外圆至φ50", "分类词"},
      {"车削/粗车/粗车外圆/粗车外圆至φ50", "", "分类词"},
  };
  for (const auto& [path, list, panel] : cases) {
    Click(path);
    EXPECT_EQ(Selected(), path);
    EXPECT_EQ(List(), list);
    EXPECT_EQ(Panel(), panel);
    Audit();
  }
  PressKey(Qt::Key_Home);
  EXPECT_EQ(Selected() + List() + Panel(), "车削 热处理 空类衡川词句库");
}

TEST_F(BrowsingTest, TheRightButtonSelectsAndOpensThePopUp) {
  Click("车削/粗车/粗车外圆");
  const std::string shown = List();
  const struct {
    const char* path;
    const char* items;
    const char* panel;
  } cases[] = {
      {"车削/粗车", "新词 - 重命名 - 删除", "分类词"},
      {"", "新条目", "衡川词句库"},
      {"热处理", "新词 - 重命名 - 删除", "分类条目"},
  };
  for (const auto& [path, items, panel] : cases) {
    Click(path, Qt::RightButton);
    EXPECT_EQ(PopUp(), items);
    EXPECT_EQ(Selected(), path);
    EXPECT_EQ(Panel(), panel);
  }
  ClickEmptySpace(Qt::RightButton);
  EXPECT_EQ(PopUp(), "新词 - 重命名 - 删除");
  EXPECT_EQ(Selected(), "热处理");

  // Until the left button goes down on the tree, also beside its nodes, the list stays.
  PressKey(Qt::Key_Home);
  EXPECT_EQ(Panel(), "衡川词句库");
  EXPECT_EQ(List(), shown);
  ClickEmptySpace(Qt::LeftButton);
  EXPECT_EQ(List(), shown);
  PressKey(Qt::Key_Down);
  EXPECT_EQ(List(), "粗车 精车");
  ClickEmptySpace(Qt::MiddleButton);
  EXPECT_EQ(PopUp(), "");
  QTest::keyClick(window_->windowHandle(), Qt::Key_F10, Qt::ShiftModifier);
  EXPECT_EQ(PopUp(), "新词 - 重命名 - 删除");
}

TEST_F(BrowsingTest, ThePointerIsAHandOverTheItemsOfTheList) {
  Click("");
  ASSERT_TRUE(QTest::qWaitFor([this] { return lvListView->model()->rowCount() == 3; }));
  QWidget* viewport = lvListView->viewport();
  const auto pointerAt = [&](const QPoint& point) {
    QTest::mouseMove(window_->windowHandle(), viewport->mapTo(window_.get(), point));
    return viewport->cursor();
  };
  const QRect item = lvListView->visualRect(lvListView->model()->index(1, 0));
  EXPECT_EQ(pointerAt(item.center()).pixmap().size(), QSize(32, 32));
  // Beside the items, and right of a short one's label.
  for (const QPoint& empty : {viewport->rect().bottomRight() - QPoint(5, 5),
                              item.topRight() - QPoint(2, item.height() / 2)}) {
    EXPECT_EQ(pointerAt(item.center()).hotSpot(), QPoint(12, 1));
    EXPECT_EQ(pointerAt(empty).shape(), Qt::ArrowCursor);
  }
}

}  // namespace
