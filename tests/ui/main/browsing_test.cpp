// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "main_window.h"

#include <QMenu>

namespace {

class BrowsingTest : public MainWindowTest {
 protected:
  // The selected node's path, the panel's text, the list's.
  std::string Shown() const { return Selected() + "|" + Panel() + "|" + List(); }
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
  EXPECT_FALSE(tvTreeView->Expanded(At("")));
  EXPECT_EQ(Shown(), "|状态|");
  const std::pair<const char*, const char*> cases[] = {
      {"", "|衡川词句库|车削 热处理 空类"},
      {"车削", "|分类条目|粗车 精车"},
      {"车削/粗车", "|分类词|粗车外圆 粗车端面"},
      {"车削/粗车/粗车外圆/粗车外圆至φ50", "|分类词|"},
  };
  for (const auto& [path, shown] : cases) {
    Click(path);
    EXPECT_EQ(Shown(), std::string(path) + shown);
    Audit();
  }
  PressKey(Qt::Key_Home);
  EXPECT_EQ(Shown(), "|衡川词句库|车削 热处理 空类");
}

TEST_F(BrowsingTest, TheRightButtonSelectsAndOpensThePopUp) {
  Click("车削/粗车/粗车外圆");
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"车削/粗车", "新词 - 重命名 - 删除", "|分类词|粗车外圆至φ50"},
      {"", "新条目", "|衡川词句库|粗车外圆至φ50"},
      {"热处理", "新词 - 重命名 - 删除", "|分类条目|粗车外圆至φ50"},
  };
  for (const auto& [path, items, shown] : cases) {
    Click(path, Qt::RightButton);
    EXPECT_EQ(PopUp(), items);
    EXPECT_EQ(Shown(), std::string(path) + shown);
  }
  ClickEmptySpace(Qt::RightButton);
  EXPECT_EQ(PopUp() + Selected(), "新词 - 重命名 - 删除热处理");

  // Until the left button goes down on the tree, also beside its nodes, the list stays.
  PressKey(Qt::Key_Home);
  ClickEmptySpace(Qt::LeftButton);
  EXPECT_EQ(Shown(), "|衡川词句库|粗车外圆至φ50");
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
  const QRect item = lvListView->visualRect(lvListView->model()->index(1, 0));
  // On an item; beside the items, and right of a short one's label.
  for (const auto& [point, isHand] : {std::pair(item.center(), true),
                                      {viewport->rect().bottomRight() - QPoint(5, 5), false},
                                      {item.center(), true},
                                      {item.topRight() - QPoint(2, item.height() / 2), false}}) {
    QTest::mouseMove(window_->windowHandle(), viewport->mapTo(window_.get(), point));
    EXPECT_EQ(viewport->cursor().shape(), isHand ? Qt::BitmapCursor : Qt::ArrowCursor);
    EXPECT_TRUE(!isHand || viewport->cursor().hotSpot() == QPoint(12, 1));
  }
}

}  // namespace
