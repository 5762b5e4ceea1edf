// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "tree_window.h"

#include <QInputMethodEvent>
#include <QLabel>
#include <QScrollBar>
#include <QToolButton>

namespace {

// With 车外圆 below a11 and 粗车外圆 below b.
class FindTest : public TreeWindowTest {
 protected:
  FindTest() {
    QApplication::setKeyboardInputInterval(-1);  // what is typed belongs together
    Add("a11", QStringLiteral("车外圆"));
    Add("b", QStringLiteral("粗车外圆"));
  }
  ~FindTest() override { QApplication::setKeyboardInputInterval(400); }

  QWidget& Field() const { return *tree_.findChild<QWidget*>(QStringLiteral("picFind")); }
  QLineEdit& Line() const { return *Field().findChild<QLineEdit*>(); }
  bool IsOpen() const { return Field().isVisible(); }
  void Open() { Press(Qt::Key_F, Qt::ControlModifier); }
  void Type(const char* letters) {
    for (; *letters != 0; ++letters) QTest::keyClick(window_.windowHandle(), *letters);
  }
  // What is selected, what the field says of it, what was raised.
  std::string Found() {
    QApplication::processEvents();
    return Selected() + ' ' + Field().findChild<QLabel*>()->text().toStdString() + ' ' + Logged();
  }
};

TEST_F(FindTest, GoesToWhatIsTyped) {
  Open();
  ASSERT_TRUE(Line().hasFocus());
  Type("cwy");
  EXPECT_EQ(Found(), "车外圆 1/2 车外圆.");
  EXPECT_TRUE(tree_.viewport()->rect().contains(tree_.LabelRect(*tree_.SelectedItem())));
  const std::tuple<Qt::Key, Qt::KeyboardModifiers, const char*> cases[] = {
      {Qt::Key_Return, {}, "粗车外圆 2/2 粗车外圆."},
      {Qt::Key_F3, {}, "车外圆 1/2 车外圆."},
      {Qt::Key_Return, Qt::ShiftModifier, "粗车外圆 2/2 粗车外圆."},
      {Qt::Key_F3, Qt::ShiftModifier, "车外圆 1/2 车外圆."},
      {Qt::Key_X, {}, "车外圆 没有找到 "},
      {Qt::Key_F3, {}, "车外圆 没有找到 "},
      {Qt::Key_Backspace, {}, "车外圆 1/2 "},
  };
  for (const auto& [key, modifiers, found] : cases) {
    Press(key, modifiers);
    EXPECT_EQ(Found(), found);
  }
  // From the node that is selected by now, whether it was found or not.
  for (const auto& [from, back, found] : {std::tuple("a2", false, "粗车外圆 2/2 粗车外圆."),
                                          {"a2", true, "车外圆 1/2 车外圆."},
                                          {"root", true, "粗车外圆 2/2 粗车外圆."}}) {
    Select(from);
    EXPECT_EQ(Found(), std::string(from) + " –/2 ");
    Press(Qt::Key_F3, back ? Qt::ShiftModifier : Qt::NoModifier);
    EXPECT_EQ(Found(), found);
  }
  tree_.setFocus();
  Press(Qt::Key_Escape);
  EXPECT_FALSE(IsOpen());
  Open();
  EXPECT_EQ(Line().selectedText(), QStringLiteral("cwy"));
  Press(Qt::Key_Escape);
  EXPECT_FALSE(IsOpen());
  EXPECT_TRUE(tree_.hasFocus());
}

TEST_F(FindTest, FollowsTheTree) {
  Open();
  Type("cwy");
  tree_.SetText(*tree_.SelectedItem(), QStringLiteral("别的"));
  EXPECT_EQ(Found(), "别的 –/1 车外圆.");
  tree_.RemoveNode(At("b").Key());
  Press(Qt::Key_F3);
  EXPECT_EQ(Found(), "别的 没有找到 ");
  Add("a2", QStringLiteral("车外圆二"));
  Press(Qt::Key_F3);
  EXPECT_EQ(Found(), "车外圆二 1/1 车外圆二.");
  { const TreeNodes::Loading loading(tree_.Nodes()); }
  Press(Qt::Key_F3);
  EXPECT_EQ(Found(), "车外圆二 1/1 车外圆二.");
}

TEST_F(FindTest, LeavesRoomForTheTree) {
  Add("b", QString(400, u'w'));
  Open();
  Type("ww");
  for (const int width : {300, 150, 70}) {
    tree_.resize(width, 260);
    QApplication::processEvents();
    const QRect field(Field().mapTo(&tree_, QPoint()), Field().size());
    EXPECT_EQ(field.bottom(), tree_.rect().bottom() - 1);
    EXPECT_FALSE(field.intersects(tree_.viewport()->geometry()));
    QWidget* const bar = tree_.horizontalScrollBar();
    ASSERT_TRUE(bar->isVisible());
    EXPECT_FALSE(field.intersects(QRect(bar->mapTo(&tree_, QPoint()), bar->size())));
    EXPECT_GE(Line().width(), 40 - (width < 100 ? 20 : 0));
  }
  EXPECT_LT(tree_.LabelRect(*tree_.SelectedItem()).bottom(), tree_.viewport()->height());
}

TEST_F(FindTest, EndsLabelEditing) {
  qint16 refuse = 1;
  QObject::connect(&tree_, &TreeView::AfterLabelEdit, [&](qint16& cancel) { cancel = refuse; });
  for (const bool opens : {false, true}) {
    refuse = opens ? 0 : 1;
    Select("a1");
    Press(Qt::Key_F2);
    Type("x");
    Open();
    EXPECT_FALSE(tree_.IsEditing());
    EXPECT_EQ(IsOpen(), opens);
  }
  EXPECT_EQ(At("a1").Text(), QStringLiteral("x"));
}

TEST_F(FindTest, ComposingIsTheInputMethods) {
  Open();
  for (const char* composed : {"che wai", ""}) {
    QInputMethodEvent event(QString::fromUtf8(composed), {});
    if (*composed == 0) event.setCommitString(QStringLiteral("车外"));
    QApplication::sendEvent(&Line(), &event);
    EXPECT_EQ(Found(), *composed == 0 ? "车外圆 1/2 车外圆." : "root  ");
  }
}

TEST_F(FindTest, WorksByTheMouse) {
  const auto click = [this](const char* name) {
    for (QToolButton* button : tree_.findChildren<QToolButton*>()) {
      if (button->accessibleName() == QString::fromUtf8(name) && button->isVisible())
        Click(button->mapTo(&window_, button->rect().center()));
    }
  };
  QTest::mouseMove(window_.windowHandle(), QPoint(10, 10));
  QTest::mouseMove(window_.windowHandle(), InWindow({20, 60}));
  click("查找");
  ASSERT_TRUE(IsOpen());
  Type("cwy");
  click("下一个");
  EXPECT_EQ(Found(), "粗车外圆 2/2 车外圆.粗车外圆.");
  click("上一个");
  EXPECT_EQ(Found(), "车外圆 1/2 车外圆.");
  EXPECT_TRUE(Line().hasFocus());
  click("关闭查找");
  EXPECT_FALSE(IsOpen());
  EXPECT_TRUE(tree_.hasFocus());
}

TEST_F(FindTest, TypingInTheTreeGoesToWhatIsInSight) {
  Add("b", QStringLiteral("车端面"));
  for (const char* sign : {"＋", "-", "+"}) {  // an input method's
    Select("b");
    QInputMethodEvent event;
    event.setCommitString(QString::fromUtf8(sign));
    QApplication::sendEvent(&tree_, &event);
    EXPECT_EQ(Selected(), "b");
    EXPECT_EQ(tree_.Expanded(At("b")), *sign != '-');
  }
  for (const auto& [typed, selected] : {std::pair("c", "粗车外圆"),
                                        {"cc", "车端面"},
                                        {"ccc", "粗车外圆"},
                                        {"chd", "车端面"},
                                        {"cw", "粗车外圆"}}) {
    Select("root");
    TypeAhead ahead;
    for (const char* letter = typed; *letter != 0; ++letter) {
      Node* const found = ahead.Search(tree_, QString(QLatin1Char(*letter)));
      if (found != nullptr) tree_.SetSelectedItem(*found);
    }
    EXPECT_EQ(Selected(), selected) << typed;
  }
  Select("root");
  Type("c");
  EXPECT_EQ(Selected() + Logged(), "粗车外圆粗车外圆.");
}

}  // namespace
