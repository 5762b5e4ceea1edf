// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "main_window.h"

#include "failing_step.h"

#include "rows.h"
#include "shared_objects.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <QToolTip>

namespace {

const std::string kTaken = "HCWordLib|有相同名称的分类词。|information|ok\n";
const std::string kTakenCategory = "HCWordLib|有相同名称的分类条目。|information|ok\n";
const std::string kEmpty = "HCWordLib|分类词不能为空字符。|information|ok\n";
const std::string kConfirm = "HCWordLib|确定要删除选中的内容？|none|yes|no\n";

// The places that each command is started from.
constexpr const char* kPlaces[] = {"mnuEdit", "mnuPop", "tool bar"};

// A command as its menu items and its button are called.
struct Command {
  const char* item;
  const char* button;
};
constexpr Command kNewItem = {"NewItem", "新条目"};
constexpr Command kNewWord = {"NewWord", "新词"};
constexpr Command kDelete = {"Delete", "删除"};
constexpr Command kRename = {"Rename", "重命名"};

class EditingTest : public MainWindowTest {
 protected:
  void Run(const Command& command, const char* place = kPlaces[0]) {
    place == kPlaces[2] ? PressButton(command.button) : Choose(std::string(place) + command.item);
  }
};

TEST_F(EditingTest, ANewCategoryIsStoredUnderAFreeNameAndNamedInPlace) {
  Click("车削");
  for (int i = 0; i < 3; ++i) {
    Run(kNewItem, kPlaces[i]);
    const std::string name = std::string("新建条目") + (i == 0 ? "" : std::to_string(i + 1));
    EXPECT_EQ(SelectedText() + Selected(), name + name);
    Audit();  // it is stored before it is named
  }
  EXPECT_EQ(Panel() + List(), "分类条目粗车 精车");
  Type("新建条目3");  // its own default name is stored already
  EXPECT_EQ(Messages(), kTakenCategory);
  Type("钻削");
  EXPECT_EQ(Categories(TheConn()),
            "7|车削|1\n9|热处理|2\n12|空类|4\n"
            "13|新建条目|5\n14|新建条目2|6\n15|钻削|7\n");
}

TEST_F(EditingTest, ANameIsRefusedAsOftenAsItTakes) {
  Click("");
  // A node, what is typed, the message; where it is accepted the editor is opened again.
  const std::tuple<const char*, const char*, std::string> cases[] = {
      {"热处理/粗车", "淬火", kTaken},
      {"热处理/粗车", "", kEmpty},
      {"热处理/粗车", "粗车", kTaken},
      {"热处理/粗车", "粗车端面", ""},         // another category has it
      {"车削/粗车/粗车外圆", "精车", kTaken},  // on another level
      {"车削", "热处理", kTakenCategory},
      {"车削", "", "HCWordLib|分类条目不能为空字符。|information|ok\n"},
      {"车削", "O'Brien \"%_\\;--𠮷", ""},
      {"空类", "  ", ""},  // blanks are not empty
  };
  for (const auto& [path, name, message] : cases) {
    if (Selected() != path) {
      Select(path);
      Run(kRename);
    }
    const std::string before = SelectedText();
    Type(name);
    EXPECT_EQ(Messages(), message);
    EXPECT_EQ(tvTreeView->SelectedItem()->Text().toStdString(), message.empty() ? name : before);
    EXPECT_EQ(tvTreeView->IsEditing(), !message.empty());
    EXPECT_EQ(List(), "车削 热处理 空类");  // until it is filled again
    Audit();
  }
  Select("");
  for (const char* place : kPlaces) Run(kRename, place);
  EXPECT_FALSE(tvTreeView->IsEditing());
}

// Wherever the user goes, the editor of a refused name comes back. What a real box does to the
// focus is part of it.
TEST_F(EditingTest, ARefusedNameIsNotLeft) {
  bool atOnce = false;  // or some time after the box is gone, window managers activate the window
  std::string refused;
  const auto answer = [&] {
    auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr) return;
    refused += box->text().toStdString();
    if (atOnce) {
      QObject::connect(box, &QDialog::finished, window_.get(), &QWidget::activateWindow);
    } else {
      QTimer::singleShot(0, window_.get(), &QWidget::activateWindow);
    }
    QTest::keyClick(box, Qt::Key_Return);
  };
  SetMsgBoxTwin({});
  QObject::connect(qApp, &QGuiApplication::focusWindowChanged, window_.get(), answer,
                   Qt::QueuedConnection);
  for (int i = 0; i < 8; ++i) {
    const bool isEmpty = i % 2 == 0;
    atOnce = i / 2 % 2 == 0;
    Select("车削/精车");
    Run(kRename);
    Type(isEmpty ? "" : "粗车", 0);
    if (i < 4) {
      lvListView->setFocus();
    } else {
      Click("热处理");
    }
    EXPECT_EQ(std::exchange(refused, {}),
              isEmpty ? "分类词不能为空字符。" : "有相同名称的分类词。");
    EXPECT_EQ(SelectedText() + Selected(), "精车车削/精车");
  }
}

TEST_F(EditingTest, DeletesOnlyWhenConfirmed) {
  const std::string tree = Tree();
  for (const char* place : kPlaces) {
    Select("");
    Run(kDelete, place);  // asks nothing
    Select("车削/粗车");
    Run(kDelete, place);
    EXPECT_EQ(Messages() + Tree(), kConfirm + tree);
  }
  const QToolButton* button = Find<QToolButton>("删除");
  bool enabled = true;
  AnswerYes([&] { enabled = button->isEnabled(); });
  Run(kDelete, kPlaces[2]);
  EXPECT_FALSE(enabled);
  EXPECT_TRUE(button->isEnabled());
  EXPECT_EQ(Tree(), "车削(精车) 热处理(淬火 粗车) 空类");
}

TEST_F(EditingTest, ClearsTheListWhenItShowsWhatHungBelow) {
  // The node whose children the list shows, the node that is deleted, the list then.
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"车削", "车削", ""},
      {"车削/粗车", "车削", "粗车外圆 粗车端面"},
      {"", "车削", "车削 热处理 空类"},
      {"", "空类", "车削 热处理 空类"},
      {"车削", "车削/粗车", "粗车 精车"},
      {"车削/粗车", "车削/粗车", ""},
      {"车削/粗车", "车削/粗车/粗车端面", "粗车外圆 粗车端面"},
  };
  for (const auto& [shown, deleted, list] : cases) {
    OpenWindow();
    Click(shown);
    Select(deleted);
    AnswerYes();
    Run(kDelete);
    EXPECT_EQ(List(), list) << shown << ", " << deleted;
    Audit();
  }
}

TEST_F(EditingTest, ACommandDoesNothingWhenTheTypedNameIsRefused) {
  const std::string tree = Tree();
  Select("车削/精车");
  for (const Command& command : {kNewItem, kNewWord, kDelete, kRename}) {
    Run(kRename);
    Type("粗车", 0);
    Run(command);
    EXPECT_EQ(Messages() + SelectedText(), kTaken + "精车");
  }
  EXPECT_EQ(Tree(), tree);
}

TEST_F(EditingTest, TheClosingWindowFirstStoresTheNameThatIsTyped) {
  Select("车削/精车");
  Run(kRename);
  Type("粗车", 0);
  EXPECT_FALSE(window_->close());
  EXPECT_EQ(Messages(), kTaken);
  Type("半精车", 0);
  OpenWindow(false);
  Select("车削/半精车");
  // Told to end, the program waits for nobody.
  Run(kRename);
  Type("", 0);
  testing::internal::CaptureStderr();
  window_->PrepareToTerminate();
  EXPECT_TRUE(window_->close());
  EXPECT_THAT(testing::internal::GetCapturedStderr(), testing::HasSubstr("分类词不能为空字符。"));
  EXPECT_EQ(Messages(), "");
}

// The random sessions make every step of every command fail; what the tables allow is told here.
TEST_F(EditingTest, AnErrorIsToldBesideTheToolBarsButton) {
  const std::string tree = Tree();
  for (const char* button : {"新词", "删除"}) {
    Select("车削");
    AnswerYes();
    FailStep(TheConn(), 1);
    PressButton(button);
    EXPECT_EQ(QToolTip::text(), QStringLiteral("<p>injected fault</p>"));
    EXPECT_EQ(Tree() + Selected(), tree + "车削");
    QToolTip::hideText();
  }
  // The category's row is gone, its words' statement fails.
  FailStep(TheConn(), 4);
  AnswerYes();
  PressButton("删除");
  EXPECT_EQ(Tree(), "热处理(淬火 粗车) 空类");
  EXPECT_TRUE(Find<QToolButton>("删除")->isEnabled());
}

}  // namespace
