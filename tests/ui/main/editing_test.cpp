// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "main_window.h"

#include "rows.h"
#include "shared_objects.h"
#include "word_tree.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QMessageBox>
#include <QTimer>

namespace {

const std::string kTaken = "HCWordLib|有相同名称的分类词。|information|ok\n";
const std::string kTakenCategory = "HCWordLib|有相同名称的分类条目。|information|ok\n";
const std::string kEmpty = "HCWordLib|分类词不能为空字符。|information|ok\n";
const std::string kEmptyCategory = "HCWordLib|分类条目不能为空字符。|information|ok\n";
const std::string kConfirm = "HCWordLib|确定要删除选中的内容？|none|yes|no\n";

// The places that each command is started from.
constexpr const char* kPlaces[] = {"mnuEdit", "mnuPop", "tool bar"};

class EditingTest : public MainWindowTest {
 protected:
  void NewItem(const char* place) { Run(place, "NewItem", "新条目"); }
  void NewWord(const char* place) { Run(place, "NewWord", "新词"); }
  void Delete(const char* place) { Run(place, "Delete", "删除"); }
  void Rename(const char* place = "mnuEdit") { Run(place, "Rename", "重命名"); }
  // Deletes the node, which is confirmed.
  void Delete(const char* path, const char* place) {
    Select(path);
    AnswerYes();
    Delete(place);
    EXPECT_EQ(Messages(), kConfirm);
  }

 private:
  void Run(const char* place, const char* command, const char* button) {
    if (place == kPlaces[2]) {
      PressButton(button);
    } else {
      Choose(std::string(place) + command);
    }
  }
};

TEST_F(EditingTest, ANewCategoryIsStoredUnderAFreeNameAndNamedInPlace) {
  Click("车削");
  std::string name = "新建条目";
  for (const char* place : kPlaces) {
    NewItem(place);
    EXPECT_EQ(SelectedText(), name);
    EXPECT_EQ(Selected(), name);
    EXPECT_EQ(At(name).Next(), nullptr);
    Audit();  // it is stored before it is named
    name = name == "新建条目" ? "新建条目2" : "新建条目3";
  }
  EXPECT_EQ(Panel() + List(), "分类条目粗车 精车");
  Type("新建条目3");  // its own default name is stored already
  EXPECT_EQ(Messages(), kTakenCategory);
  Type("钻削");
  EXPECT_EQ(Categories(TheConn()),
            "7|车削|1\n9|热处理|2\n12|空类|4\n"
            "13|新建条目|5\n14|新建条目2|6\n15|钻削|7\n");
  Audit();
  EXPECT_EQ(Messages(), "");
}

TEST_F(EditingTest, ANameIsRefusedAsOftenAsItTakes) {
  const std::string before = Words(TheConn());
  Click("");
  Select("热处理/粗车");
  Rename();
  const std::pair<const char*, std::string> refused[] = {
      {"淬火", kTaken}, {"", kEmpty}, {"", kEmpty}, {"粗车", kTaken}, {"淬火", kTaken}};
  for (const auto& [name, message] : refused) {
    Type(name);
    EXPECT_EQ(Messages(), message);
    EXPECT_EQ(SelectedText(), "粗车");
    EXPECT_EQ(Selected(), "热处理/粗车");
    EXPECT_EQ(Words(TheConn()), before);
  }
  Type("粗车端面");  // another category has it
  Audit();
  Select("车削/粗车/粗车外圆");
  Rename();
  Type("精车");  // of its category, on another level
  EXPECT_EQ(Messages(), kTaken);
  Type("粗车外圆", Qt::Key_Escape);

  Select("车削");
  Rename();
  Type("热处理");
  Type("");
  EXPECT_EQ(Messages(), kTakenCategory + kEmptyCategory);
  for (const char* name : {"O'Brien \"%_\\;--𠮷", "  "}) {  // blanks are not empty
    Type(name);
    EXPECT_EQ(Selected(), name);
    EXPECT_EQ(List(), "车削 热处理 空类");  // until it is filled again
    Audit();
    Rename();
  }
  Type("x", Qt::Key_Escape);
  Select("");
  for (const char* place : kPlaces) Rename(place);
  EXPECT_FALSE(tvTreeView->IsEditing());
  EXPECT_EQ(Messages(), "");
  Audit();
}

// Wherever the user goes, the editor of a refused name comes back. What a real box does to the
// focus is part of it.
TEST_F(EditingTest, ARefusedNameIsNotLeft) {
  const std::function<void()> ways[] = {
      [this] { lvListView->setFocus(); },
      [this] {
        QTest::mouseClick(window_->windowHandle(), Qt::LeftButton, {},
                          lvListView->viewport()->mapTo(window_.get(), QPoint(50, 50)));
      },
      [this] { Click("热处理"); },
  };
  // Window managers activate the window at once, or some time after the box is gone.
  bool atOnce = false;
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
  for (const auto& way : ways) {
    for (const auto& [name, why] :
         {std::pair("粗车", "有相同名称的分类词。"), {"", "分类词不能为空字符。"}}) {
      for (const bool late : {true, false}) {
        atOnce = !late;
        Select("车削/精车");
        Rename();
        Type(name, 0);
        way();
        EXPECT_EQ(std::exchange(refused, {}), why);
        EXPECT_EQ(SelectedText(), "精车");
        EXPECT_EQ(Selected(), "车削/精车");
        tvTreeView->CancelLabelEdit();
      }
    }
  }
  Audit();
}

TEST_F(EditingTest, DeletesOnlyWhenConfirmed) {
  const std::string tree = Tree();
  for (const char* place : kPlaces) {
    Select("");
    Delete(place);
    EXPECT_EQ(Messages(), "");
    Select("车削/粗车");
    Delete(place);
    EXPECT_EQ(Messages(), kConfirm);
    EXPECT_EQ(Tree(), tree);
    Audit();
  }
  Delete("车削/粗车/粗车外圆", kPlaces[0]);
  EXPECT_EQ(Tree(), "车削(粗车(粗车端面) 精车) 热处理(淬火 粗车) 空类");
  EXPECT_EQ(Selected(), "车削/粗车/粗车端面");  // the next one
  EXPECT_EQ(TheWordTree().colTreePrptys().Count(), 5);
  Audit();
  Delete("热处理", kPlaces[1]);
  EXPECT_EQ(Tree(), "车削(粗车(粗车端面) 精车) 空类");
  Audit();

  const QToolButton* button = Find<QToolButton>("删除");
  bool enabled = true;
  Select("空类");
  AnswerYes([&] { enabled = button->isEnabled(); });
  Delete(kPlaces[2]);
  EXPECT_FALSE(enabled);
  EXPECT_TRUE(button->isEnabled());
  EXPECT_EQ(Selected(), "车削");  // the previous one
}

TEST_F(EditingTest, ClearsTheListWhenItShowsWhatHungBelow) {
  const struct {
    const char* shown;
    const char* deleted;
    const char* list;
  } cases[] = {
      {"车削", "车削", ""},
      {"车削/粗车", "车削", "粗车外圆 粗车端面"},
      {"", "车削", "车削 热处理 空类"},
      {"车削", "热处理", "粗车 精车"},
      {"", "空类", "车削 热处理 空类"},
      {"车削", "车削/粗车", "粗车 精车"},
      {"车削/粗车/粗车外圆", "车削/粗车", "粗车外圆至φ50"},
      {"车削/粗车", "车削/粗车/粗车端面", "粗车外圆 粗车端面"},
  };
  for (const auto& [shown, deleted, list] : cases) {
    SCOPED_TRACE(std::string(shown) + ", " + deleted);
    OpenWindow();
    Click(shown);
    Delete(deleted, "mnuPop");
    EXPECT_EQ(List(), list);
    Audit();
  }
}

TEST_F(EditingTest, ACommandFirstStoresTheNameThatIsTyped) {
  for (const char* place : kPlaces) {
    OpenWindow();
    Select("车削/精车");
    for (const char* name : {"精车外圆", "精车内孔"}) {
      NewWord(place);
      Type(name, 0);
    }
    Rename(place);
    EXPECT_EQ(SelectedText(), "精车内孔");
    Type("淬火", 0);  // of another category
    Delete(place);    // is asked for the stored node, and answered with no
    EXPECT_EQ(Messages(), kConfirm);
    EXPECT_EQ(Tree(At("车削/精车")), "精车外圆(淬火)");
    Audit();

    const std::function<void()> commands[] = {[&] { NewItem(place); }, [&] { NewWord(place); },
                                              [&] { Delete(place); }, [&] { Rename(place); }};
    for (const auto& command : commands) {
      Rename(place);
      Type("粗车", 0);
      command();
      EXPECT_EQ(Messages(), kTaken);
      EXPECT_EQ(SelectedText(), "淬火");
    }
    EXPECT_EQ(Tree(At("车削/精车")), "精车外圆(淬火)");
    Audit();
  }
}

TEST_F(EditingTest, TheClosingWindowFirstStoresTheNameThatIsTyped) {
  Select("车削/精车");
  Rename();
  Type("粗车", 0);
  window_->close();
  EXPECT_TRUE(window_->isVisible());
  EXPECT_EQ(Messages(), kTaken);
  Type("半精车", 0);
  OpenWindow(false);
  EXPECT_NE(Tree().find("半精车"), std::string::npos);
  // Told to end, the program waits for nobody.
  Select("车削");
  Rename();
  Type("", 0);
  testing::internal::CaptureStderr();
  window_->PrepareToTerminate();
  window_->close();
  EXPECT_FALSE(window_->isVisible());
  EXPECT_THAT(testing::internal::GetCapturedStderr(), testing::HasSubstr("分类条目不能为空字符。"));
  EXPECT_EQ(Messages(), "");
}

}  // namespace
