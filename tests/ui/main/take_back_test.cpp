// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "main_window.h"

#include "failing_step.h"
#include "rows.h"
#include "shared_objects.h"
#include "tree_corner.h"

#include <QToolTip>

namespace {

class TakeBackTest : public MainWindowTest {
 protected:
  void Delete(const char* path) {
    Select(path);
    AnswerYes();
    PressKey(Qt::Key_Delete);
    Messages();
  }
  void TakeBack() { QTest::keyClick(window_->windowHandle(), Qt::Key_Z, Qt::ControlModifier); }
  static std::string Rows() { return Categories(TheConn()) + Words(TheConn()); }
  // What a colleague does.
  static void Meanwhile(const char* statement) { TheConn().Execute(QString::fromUtf8(statement)); }
};

TEST_F(TakeBackTest, PutsBackEveryDeleteOfTheRunFromTheLastToTheFirst) {
  const std::string rows = Rows();
  const std::string tree = Tree();
  TakeBack();  // nothing yet
  for (const char* path :
       {"热处理/粗车", "车削/粗车/粗车端面", "车削/粗车", "车削", "空类", "热处理"}) {
    Delete(path);
  }
  EXPECT_EQ(Tree() + Words(TheConn()), "");
  for (const char* path :
       {"热处理", "空类", "车削", "车削/粗车", "车削/粗车/粗车端面", "热处理/粗车"}) {
    TakeBack();
    EXPECT_EQ(Selected(), path);
    Audit();
  }
  EXPECT_EQ(Rows(), rows);
  EXPECT_EQ(Tree() + Panel() + List() + Messages(), tree + "分类词");
}

// Also what the tree does not know, and what no tree can show.
TEST_F(TakeBackTest, PutsBackWhatTheDatabaseHeld) {
  Meanwhile(
      "insert into Items (SortID,ID,FatherID,NodeName) values (7,6,2,'同事的''词\\'),(7,8,3,'😀')");
  Meanwhile("update Dictionary set SortName='车' where GID=7");
  Meanwhile("update Items set NodeName='粗' where SortID=7 and ID=1");
  Meanwhile("delete from Items where SortID=7 and ID=3");
  const std::string rows = Rows();
  Delete("车削/粗车/粗车外圆");  // leaves the colleague's word behind
  Delete("车削");
  TakeBack();
  EXPECT_EQ(Tree(At("车")), "粗 精车");
  TakeBack();
  EXPECT_EQ(Tree(At("车")), "粗(粗车外圆(粗车外圆至φ50 同事的'词\\)) 精车");
  EXPECT_EQ(Rows(), rows);
  Audit(true);
}

TEST_F(TakeBackTest, IsRefusedAsAWholeWhereANumberANameOrTheParentIsGone) {
  // What is deleted, what a colleague does then, why nothing comes back.
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"车削", "insert into Dictionary (GID,SortName,Position) values (20,'车削',5)",
       "分类条目“车削”没有恢复：已有同名的分类条目。"},
      {"车削", "insert into Dictionary (GID,SortName,Position) values (7,'铣',5)",
       "分类条目“车削”没有恢复：编号 7 已被分类条目“铣”使用。"},
      {"车削/粗车", "update Items set NodeName='粗车外圆' where SortID=7 and ID=5",
       "分类词“粗车”没有恢复：同一分类条目中已有分类词“粗车外圆”。"},
      {"车削/粗车", "insert into Items (SortID,ID,FatherID,NodeName) values (7,4,0,'铣')",
       "分类词“粗车”没有恢复：编号 4 已被分类词“铣”使用。"},
      {"车削/粗车/粗车端面", "delete from Items where SortID=7 and ID=1",
       "分类词“粗车端面”没有恢复：它的上级词已被删除。"},
      {"车削/精车", "delete from Dictionary where GID=7",
       "分类词“精车”没有恢复：所在的分类条目已被删除。"},
  };
  for (const auto& [path, statement, why] : cases) {
    OpenWindow();
    Delete("空类");
    Delete(path);
    Meanwhile(statement);
    const std::string before = Rows() + Tree();
    TakeBack();
    EXPECT_EQ(Messages(), std::string("HCWordLib|") + why + "|information|ok\n");
    EXPECT_EQ(Rows() + Tree(), before);
    TakeBack();  // the one before it has its turn
    EXPECT_EQ(Selected() + Messages(), "空类");
  }
  OpenWindow();
  Delete("车削/精车");
  Delete("车削");
  Choose("mnuEditNewItem");
  Type("车削");
  TakeBack();
  Choose("mnuEditRename");
  Messages();
  PressKey(Qt::Key_Delete);
  TakeBack();  // in an editor both keys are the text's
  Type("车");
  TakeBack();  // the name is free again
  EXPECT_EQ(Tree() + Messages(),
            "车削(粗车(粗车外圆(粗车外圆至φ50) 粗车端面)) 热处理(淬火 粗车) 空类 车");
}

TEST_F(TakeBackTest, AFailureLeavesAllAsItIs) {
  const std::string rows = Rows();
  for (const char* path : {"车削", "车削/粗车"}) {
    Delete(path);
    const std::string before = Rows() + Tree();
    for (int step = 1;; ++step) {
      const auto left = FailStep(TheConn(), step);
      TakeBack();
      TheConn().SetStepHook({});
      if (*left > 0) break;
      EXPECT_EQ(Messages(),
                "HCWordLib|没有能恢复，词句库没有改变。\ninjected fault|information|ok\n");
      EXPECT_EQ(Rows() + Tree(), before);
    }
    EXPECT_EQ(Rows() + Messages(), rows);
    // A delete that fails half-way is taken back as far as it went.
    for (int step = 2; step < 6; ++step) {
      Select(path);
      AnswerYes();
      FailStep(TheConn(), step);
      PressButton("删除");
      TheConn().SetStepHook({});
      if (Rows() != rows) TakeBack();
      EXPECT_EQ(Rows(), rows) << step;
      Audit();
    }
  }
}

TEST_F(TakeBackTest, TheCornerOfTheTreeDoesForTheMouseWhatElseHasKeysOnly) {
  const auto move = [this](const QPoint& point) {
    QTest::mouseMove(window_->windowHandle(), point);
    QApplication::processEvents();
  };
  const auto click = [&](const char* name) {
    for (const QToolButton* button : tvTreeView->findChildren<QToolButton*>()) {
      if (button->accessibleName() != QString::fromUtf8(name)) continue;
      const QWidget* const corner = button->parentWidget();
      move({9, 9});
      move(Label(""));
      move(corner->mapTo(window_.get(), corner->rect().center()));
      QTest::mouseDClick(window_->windowHandle(), Qt::LeftButton, {},  // which is one
                         button->mapTo(window_.get(), button->rect().center()));
      move({9, 9});
      QApplication::processEvents();
    }
  };
  click("恢复最近一次删除的内容");
  EXPECT_EQ(QToolTip::text(), QStringLiteral("没有可以恢复的内容。"));
  Click("热处理");
  click("复制选中项和它下面的全部内容");
  Click("空类");
  click("把剪贴板中的各行加到选中项之下");
  EXPECT_EQ(Tree(At("空类")), "热处理(淬火 粗车)");
  EXPECT_EQ(QToolTip::text(), QStringLiteral("已加入 3 个分类词，跳过 0 个。"));
  AnswerYes();
  PressButton("删除");
  Meanwhile("insert into Dictionary (GID,SortName,Position) values (20,'铣削',5)");
  click("重新读入词句库");
  EXPECT_EQ(At("铣削").Text(), QStringLiteral("铣削"));
  click("恢复最近一次删除的内容");
  EXPECT_EQ(Selected() + Tree(At("空类")), "空类热处理(淬火 粗车)");
  Audit();
  const auto* corner = tvTreeView->findChild<TreeCorner*>();
  move(Label(""));
  QApplication::processEvents();
  EXPECT_TRUE(corner->isVisible());
  PressKey(Qt::Key_F2);
  EXPECT_FALSE(corner->isVisible());  // it would cover the editor
}

}  // namespace
