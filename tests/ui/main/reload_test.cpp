// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "main_window.h"

#include "connection.h"
#include "failing_step.h"
#include "shared_objects.h"

#include <QMenu>

namespace {

class ReloadTest : public MainWindowTest {
 protected:
  void ReloadAfter(std::initializer_list<const char*> colleagues = {}) {
    for (const char* statement : colleagues) TheConn().Execute(QString::fromUtf8(statement));
    PressKey(Qt::Key_F5);
  }
  std::string Shown() const { return Selected() + "|" + Panel() + "|" + List(); }
};

TEST_F(ReloadTest, ShowsWhatColleaguesDidAndStandsAsBefore) {
  for (int id = 1; id <= 60; ++id) {
    TheConn().Execute(
        QStringLiteral("insert into Items (SortID,ID,FatherID,NodeName) values (12,%1,0,'词%1')")
            .arg(id));
  }
  ReloadAfter();
  EXPECT_EQ(Shown(), "|状态|");
  tvTreeView->SetExpanded(At("车削/粗车"), true);
  Click("空类/词50");
  Click("车削/粗车");
  Click("空类/词50", Qt::RightButton);  // leaves the list
  Find<QMenu>("mnuPopMnu")->close();
  const EntryKey key = At("空类/词50").Key();
  const int top = tvTreeView->LabelRect(At("空类/词50")).top();
  ReloadAfter(
      {"update Items set NodeName='车端面' where SortID=7 and ID=3",
       "insert into Items (SortID,ID,FatherID,NodeName) values (7,6,1,'粗车孔'),(7,7,5,'精')",
       "delete from Dictionary where GID=9", "delete from Items where SortID=12 and ID<9"});
  EXPECT_EQ(Tree(At("车削")), "粗车(粗车外圆(粗车外圆至φ50) 车端面 粗车孔) 精车(精)");
  EXPECT_EQ(Shown(), "空类/词50|分类词|粗车外圆 车端面 粗车孔");
  EXPECT_TRUE(At("空类/词50").Key() == key && tvTreeView->Expanded(At("车削/粗车")));
  EXPECT_EQ(tvTreeView->LabelRect(At("空类/词50")).top(), top);
  Audit();

  // What is selected and listed is gone.
  Click("车削/粗车/粗车外圆/粗车外圆至φ50");
  ReloadAfter({"delete from Items where SortID=7 and ID in (2,4)"});
  EXPECT_EQ(Shown(), "车削/粗车|分类词|车端面 粗车孔");
  ReloadAfter({"delete from Dictionary where GID<>9"});
  EXPECT_EQ(Shown() + Tree(), "|衡川词句库|");
  Audit();
}

TEST_F(ReloadTest, EndsAnOpenEditorAsLeavingDoes) {
  Select("车削");
  Choose("mnuEditRename");
  Type("铣削", 0);
  ReloadAfter();
  EXPECT_TRUE(Selected() == "铣削" && !tvTreeView->IsEditing());
  Choose("mnuEditRename");
  Type("热处理", 0);
  ReloadAfter({"delete from Dictionary where GID=12"});
  EXPECT_EQ(Messages() + SelectedText(), "HCWordLib|有相同名称的分类条目。|information|ok\n铣削");
  EXPECT_EQ(At("").Children(), 3);
  ReloadAfter();  // untouched
  EXPECT_TRUE(At("").Children() == 2 && !tvTreeView->IsEditing());
}

TEST_F(ReloadTest, KeepsAllWhenTheLibraryCannotBeRead) {
  Click("车削");
  const std::string before = Tree() + Shown();
  TheConn().Execute(QStringLiteral("delete from Items where SortID=7 and ID=4"));
  for (const int step : {1, 2, 4}) {
    FailStep(TheConn(), step);
    PressKey(Qt::Key_F5);
    EXPECT_EQ(Messages(),
              "HCWordLib|没有能重新读入，窗口中仍是原来的内容。\ninjected fault|information|ok\n");
    EXPECT_EQ(Tree() + Shown(), before);
  }
  PressKey(Qt::Key_F5);
  EXPECT_EQ(At("车削/粗车/粗车外圆").Children(), 0);
}

TEST_F(ReloadTest, LeavesNothingOfTheOldTreeUnderTheMouse) {
  const QPoint word = Label("热处理/淬火");
  QTest::mousePress(window_->windowHandle(), Qt::RightButton, {}, word);
  ReloadAfter({"delete from Dictionary where GID=9"});
  QTest::mouseRelease(window_->windowHandle(), Qt::RightButton, {}, word);
  EXPECT_TRUE(Find<QMenu>("mnuPopMnu")->isVisible() && Selected() == "");
  Find<QMenu>("mnuPopMnu")->close();
  Audit();
}

}  // namespace
