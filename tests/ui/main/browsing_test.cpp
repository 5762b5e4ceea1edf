// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "main_window.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QInputMethodEvent>
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
  // Keys, and type-ahead by an input method, select as the mouse does.
  std::string selected;
  for (const Qt::Key key : {Qt::Key_Home, Qt::Key_Left, Qt::Key_Right, Qt::Key_Down, Qt::Key_Down,
                            Qt::Key_End, Qt::Key_Up}) {
    PressKey(key);
    selected += Selected() + " ";
  }
  EXPECT_EQ(selected, "   车削 车削/粗车 空类 热处理 ");
  EXPECT_EQ(List(), "淬火 粗车");
  for (const char* text : {"", "车", "不存在"}) {
    QInputMethodEvent commit(QStringLiteral("che"), {});
    commit.setCommitString(QString::fromUtf8(text));
    QApplication::sendEvent(tvTreeView, &commit);
  }
  QTest::keyClick(tvTreeView, Qt::Key_Space, Qt::ControlModifier);
  EXPECT_TRUE(tvTreeView->selectionModel()->isSelected(tvTreeView->currentIndex()));
  EXPECT_EQ(List(), "粗车 精车");
}

TEST_F(BrowsingTest, OnlyAClickOnPictureOrLabelSelects) {
  const auto clickLeftOfLabel = [&](int distance) {
    const QPoint label(tvTreeView->LabelRect(At("车削")).left(), Label("车削").y());
    const int x = tvTreeView->viewport()->mapTo(window_.get(), label).x() - distance;
    QTest::mouseClick(window_->windowHandle(), Qt::LeftButton, {}, QPoint(x, label.y()));
  };
  Label("车削");                               // shows it
  for (const bool expanded : {true, false}) {  // on the box
    clickLeftOfLabel(21 + tvTreeView->indentation() / 2);
    EXPECT_EQ(tvTreeView->Expanded(At("车削")), expanded);
    EXPECT_EQ(Selected() + List(), "");
  }
  QTest::mouseClick(window_->windowHandle(), Qt::LeftButton, {}, Label("车削") + QPoint(120, 0));
  EXPECT_EQ(Selected() + List(), "");
  clickLeftOfLabel(10);  // on the picture
  EXPECT_EQ(Selected() + List(), "车削粗车 精车");
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
  QContextMenuEvent key(QContextMenuEvent::Keyboard, QPoint(1, 1), QPoint(1, 1));
  QApplication::sendEvent(tvTreeView->viewport(), &key);
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
