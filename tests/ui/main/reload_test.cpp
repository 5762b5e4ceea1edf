// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "main_window.h"

#include "connection.h"
#include "failing_step.h"
#include "shared_objects.h"

#include <QMenu>
#include <QScrollBar>

namespace {

class ReloadTest : public MainWindowTest {
 protected:
  // What colleagues do.
  void Meanwhile(std::initializer_list<const char*> statements) {
    for (const char* statement : statements) TheConn().Execute(QString::fromUtf8(statement));
  }
  std::string Shown() const { return Selected() + "|" + Panel() + "|" + List(); }
};

TEST_F(ReloadTest, ShowsWhatColleaguesDidAndStandsAsBefore) {
  for (int id = 1; id <= 60; ++id) {
    TheConn().Execute(
        QStringLiteral("insert into Items (SortID,ID,FatherID,NodeName) values (12,%1,0,'词%1')")
            .arg(id));
  }
  PressKey(Qt::Key_F5);
  EXPECT_EQ(Shown() + Tree(*At("空类").Child()), "|状态|");  // the list was never filled
  Click("车削/粗车");
  tvTreeView->SetExpanded(At("车削/粗车"), true);
  tvTreeView->SetExpanded(At("空类"), true);
  Click("空类/词50");
  Click("车削/粗车");
  Click("空类/词50", Qt::RightButton);  // leaves the list
  Find<QMenu>("mnuPopMnu")->close();
  const EntryKey kept = At("空类/词50").Key();
  const int top = Label("空类/词50").y();
  Meanwhile({"update Items set NodeName='车端面' where SortID=7 and ID=3",
             "insert into Items (SortID,ID,FatherID,NodeName) values (7,6,1,'粗车孔'),(7,7,5,'精')",
             "delete from Dictionary where GID=9", "delete from Items where SortID=12 and ID<9"});
  PressKey(Qt::Key_F5);
  EXPECT_EQ(Tree(At("车削")), "粗车(粗车外圆(粗车外圆至φ50) 车端面 粗车孔) 精车(精)");
  EXPECT_EQ(Shown(), "空类/词50|分类词|粗车外圆 车端面 粗车孔");
  EXPECT_TRUE(At("空类/词50").Key() == kept && tvTreeView->Expanded(At("车削/粗车")) &&
              !tvTreeView->Expanded(At("车削/精车")));
  EXPECT_EQ(tvTreeView->viewport()
                ->mapTo(window_.get(), tvTreeView->LabelRect(At("空类/词50")).center())
                .y(),
            top);
  Audit();

  // What is selected and listed is gone.
  Click("车削/粗车/粗车外圆");
  Click("车削/粗车/粗车外圆/粗车外圆至φ50");
  Meanwhile({"delete from Items where SortID=7 and ID in (2,4)"});
  PressKey(Qt::Key_F5);
  EXPECT_EQ(Shown(), "车削/粗车|分类词|车端面 粗车孔");
  Meanwhile({"delete from Dictionary where GID<>9"});
  PressKey(Qt::Key_F5);
  EXPECT_EQ(Shown() + Tree(), "|衡川词句库|");
  Audit();
}

TEST_F(ReloadTest, EndsAnOpenEditorAsLeavingDoes) {
  Click("车削");
  Choose("mnuEditRename");
  Type("铣削", 0);
  PressKey(Qt::Key_F5);
  EXPECT_EQ(Tree(At("铣削")), "粗车(粗车外圆(粗车外圆至φ50) 粗车端面) 精车");
  EXPECT_FALSE(tvTreeView->IsEditing());
  Choose("mnuEditRename");
  Type("热处理", 0);
  Meanwhile({"delete from Dictionary where GID=12"});
  PressKey(Qt::Key_F5);
  EXPECT_EQ(Messages() + SelectedText(), "HCWordLib|有相同名称的分类条目。|information|ok\n铣削");
  EXPECT_EQ(At("").Children(), 3);
  PressKey(Qt::Key_F5);  // untouched
  EXPECT_TRUE(At("").Children() == 2 && !tvTreeView->IsEditing());
}

TEST_F(ReloadTest, KeepsAllWhenTheLibraryCannotBeRead) {
  Click("车削");
  Meanwhile({"delete from Dictionary where GID=9", "delete from Items where SortID=7 and ID=3"});
  const std::string before = Tree() + Shown();
  int step = 0;
  while (true) {
    const auto left = FailStep(TheConn(), ++step);
    PressKey(Qt::Key_F5);
    TheConn().SetStepHook({});
    if (*left > 0) break;
    EXPECT_EQ(Messages(),
              "HCWordLib|没有能重新读入，窗口中仍是原来的内容。\ninjected fault|information|ok\n");
    EXPECT_EQ(Tree() + Shown(), before);
  }
  EXPECT_GT(step, 3);
  EXPECT_EQ(Tree() + Messages(), "车削(粗车(粗车外圆(粗车外圆至φ50)) 精车) 空类");
  Audit();
}

TEST_F(ReloadTest, LeavesNothingOfTheOldTreeUnderTheMouse) {
  const QPoint word = Label("热处理/淬火");
  Click("热处理/淬火");
  Click("热处理/淬火");  // would open the editor
  QTest::mousePress(window_->windowHandle(), Qt::RightButton, {}, word);
  Meanwhile({"delete from Dictionary where GID=9"});
  PressKey(Qt::Key_F5);
  QTest::mouseRelease(window_->windowHandle(), Qt::RightButton, {}, word);
  EXPECT_TRUE(Find<QMenu>("mnuPopMnu")->isVisible());
  PressKey(Qt::Key_F5);  // is the menu's now
  Find<QMenu>("mnuPopMnu")->close();
  EXPECT_EQ(Selected(), "");
  Audit();
}

}  // namespace
