// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "tree_window.h"

#include <QClipboard>
#include <QInputMethodEvent>
#include <QToolTip>

namespace {

using Action = std::function<void()>;

class LabelEditingTest : public TreeWindowTest {
 protected:
  LabelEditingTest() {
    const auto ended = [this](qint16& cancel, const QString& text) {
      Log(text);
      if (!refuse_) return;
      cancel = 1;
      refuse_();
    };
    QObject::connect(&tree_, &TreeView::AfterLabelEdit, ended);
    QObject::connect(&button_, &QPushButton::clicked, [this] { Log(QStringLiteral("button")); });
  }

  QLineEdit& Editor() const { return *qobject_cast<QLineEdit*>(QApplication::focusWidget()); }
  // Opens the editor on a1, which is called `name`.
  void Open(const QString& name = QStringLiteral("a1")) {
    tree_.setFocus();
    Select("a1");
    tree_.Nodes().SetText(At("a1"), name);
    Press(Qt::Key_F2);
    ASSERT_TRUE(tree_.IsEditing());
    EXPECT_EQ(Editor().selectedText(), name);
    Logged();
  }
  // Replaces the editor's text.
  void Type(const QString& text) {
    Editor().selectAll();
    Compose(QString(), text);
  }
  void Compose(const QString& preedit, const QString& commit = QString()) {
    QInputMethodEvent event(preedit, {});
    event.setCommitString(commit);
    QApplication::sendEvent(&Editor(), &event);
  }
  void Paste(const QString& text) {
    Editor().selectAll();
    QApplication::clipboard()->setText(text);
    QTest::keyClick(&Editor(), Qt::Key_V, Qt::ControlModifier);
  }

  Action refuse_;  // what AfterLabelEdit does when it refuses
  const Action enter_ = [this] { Press(Qt::Key_Return); };
  const Action escape_ = [this] { Press(Qt::Key_Escape); };
  const Action leave_ = [this] { button_.setFocus(); };
  const Action click_ = [this] { Click("b"); };
  const Action press_ = [this] { Click(button_.geometry().center()); };
};

TEST_F(LabelEditingTest, TheTextStaysInItsPlaceAndNothingOfTheLabelIsLeft) {
  const auto shown = [this](const QRect& part) { return tree_.viewport()->grab(part).toImage(); };
  QRect text;
  for (const char* utf8 : {"שלום abc", "A label of some length"}) {
    Select("root");
    const QString name = QString::fromUtf8(utf8);
    tree_.Nodes().SetText(At("a1"), name);
    tree_.EnsureVisible(At("a1"));
    text = tree_.LabelRect(At("a1")).adjusted(6, 4, -12, -4);
    const QImage label = shown(text);
    Open(name);
    Editor().deselect();
    EXPECT_TRUE(shown(text) == label) << utf8;
  }
  Type(QStringLiteral("x"));
  const QRect behind = text.adjusted(70, 0, 0, 0);
  EXPECT_TRUE(shown(behind) == shown(behind.translated(0, 130)));  // where there are no nodes
}

TEST_F(LabelEditingTest, OpensByAClickOnTheLabelOfTheSelectedNode) {
  const QPoint label = Label("a1");
  QWindow* const window = window_.windowHandle();
  Select("a1");
  Click("a1");
  EXPECT_FALSE(tree_.IsEditing());  // a double click may follow
  EXPECT_TRUE(QTest::qWaitFor([this] { return tree_.IsEditing(); }));
  escape_();
  const Action others[] = {
      [&] { Select("root"), Click("a1"); },
      [&] { Click(label + QPoint(120, 0)); },
      [&] { QTest::mouseDClick(window, Qt::LeftButton, {}, label); },
      [&] { Click("a1"), Press(Qt::Key_Shift); },
      [&] {
        QTest::mousePress(window, Qt::LeftButton, {}, label);
        QTest::mouseRelease(window, Qt::LeftButton, {}, label + QPoint(0, 60));
      },
      [&] { Click("a1"), click_(), Select("a1"); },
      [&] { leave_(), Click("a1"); },  // this only brings the focus back
      [&] { Click("a1"), leave_(); },
      [&] { Select("root"), Click("root"); },  // refused
      [&] { Select("root"), Press(Qt::Key_F2); },
  };
  for (size_t i = 0; i < std::size(others); ++i) {
    tree_.setFocus();
    Select("a1");
    others[i]();
    bool over = false;  // the time that a click waits for a second one
    QTimer::singleShot(QApplication::doubleClickInterval() + 5, [&over] { over = true; });
    ASSERT_TRUE(QTest::qWaitFor([&over] { return over; }));
    EXPECT_FALSE(tree_.IsEditing()) << i;
  }
}

TEST_F(LabelEditingTest, EndsAsTheUserLeavesIt) {
  // What is typed, what is raised, the label afterwards.
  const std::tuple<Action, const char*, const char*, const char*> cases[] = {
      {enter_, "a1", "a1.", "a1"},    {enter_, "x", "x.", "x"},
      {escape_, "x", "", "a1"},       {leave_, "a1", "", "a1"},
      {leave_, "x", "x.", "x"},       {click_, "a1", "b.", "a1"},
      {click_, "x", "x.b.", "x"},     {press_, "a1", "button.", "a1"},
      {press_, "x", "x.button.", "x"}};
  for (const auto& [end, typed, logged, label] : cases) {
    Open();
    Type(QLatin1String(typed));
    end();
    EXPECT_FALSE(tree_.IsEditing());
    EXPECT_EQ(Logged(), logged);
    EXPECT_EQ(At("a1").Text(), QLatin1String(label));
  }
}

// A press that left a refused text does nothing else.
TEST_F(LabelEditingTest, StaysWithANodeWhoseTextIsRefused) {
  for (const bool again : {false, true}) {  // whether the editor opens again at once
    refuse_ = [this, again] {
      if (again) tree_.StartLabelEdit();
    };
    for (const Action& end : {enter_, leave_, click_, press_}) {
      Open();
      Type(QStringLiteral("x"));
      end();
      EXPECT_EQ(tree_.IsEditing(), again);
      EXPECT_EQ(Logged(), "x.");
      EXPECT_EQ(Selected(), "a1");
    }
    Open();
    Type(QStringLiteral("x"));
    EXPECT_FALSE(tree_.EndLabelEdit());
    EXPECT_EQ(tree_.IsEditing(), again);
  }
  tree_.CancelLabelEdit();
  EXPECT_TRUE(tree_.EndLabelEdit());
  EXPECT_EQ(Logged(), "x.");
  click_();
  press_();
  EXPECT_EQ(Logged(), "b.button.");
}

// Every way to another node ends the editing; a look elsewhere does not.
TEST_F(LabelEditingTest, BelongsToOneNode) {
  QLineEdit other;
  const QPoint menu = menus_.actionGeometry(menus_.actions().first()).center();
  const auto activate = [](QWidget& window, QWidget& focus) {
    window.activateWindow();
    focus.setFocus();
    EXPECT_TRUE(QTest::qWaitFor([&] { return focus.hasFocus(); }));
  };
  const Action looks[] = {
      [&] { Click(menu), QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape); },
      [&] { Click(menu), click_(); },  // closes the menu
      [&] { menus_.setFocus(Qt::MenuBarFocusReason); },
      [&] {
        QWidget& editor = Editor();
        other.show();
        activate(other, other);
        activate(window_, editor);
      },
  };
  for (const Action& look : looks) {
    Open();
    Type(QStringLiteral("x"));
    look();
    EXPECT_TRUE(tree_.IsEditing());
    click_();
    EXPECT_FALSE(tree_.IsEditing());
    EXPECT_EQ(Logged() + Selected(), "x.b.b");
  }
  Open();
  Type(QStringLiteral("x"));
  Select("b");
  EXPECT_FALSE(tree_.IsEditing());
  EXPECT_EQ(Logged(), "");
}

TEST_F(LabelEditingTest, TakesOneLineOfAtMost4000Characters) {
  const QString most = QStringLiteral("𠮷").repeated(4000);
  const QString line = QStringLiteral("一 二 三 四 五 六 七 八");
  const QString lines = QStringLiteral("\t\r\n一\r\n二\n三\u2028四\u2029五\r六\v七 八\t\n") +
                        QChar(0xD842) + QChar(0);
  Open();
  Paste(most + u'x');
  EXPECT_EQ(QToolTip::text(), QStringLiteral("名称最多 4000 个字符，多出的部分没有放入。"));
  Paste(lines);
  EXPECT_EQ(Editor().text(), line);
  QTest::keyClick(&Editor(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Editor().text(), most);
  // Not by a key: from a menu, by dropping. 😀 and 😁 differ in their second units.
  const QString faces[] = {QStringLiteral("😀"), QStringLiteral("😁")};
  for (const auto& [came, kept] :
       {std::pair(most + u'x', most), {lines, line}, {faces[0], faces[0]}, {faces[1], faces[1]}}) {
    Type(came);
    EXPECT_EQ(Editor().text(), kept);
  }
  // What is stored otherwise stays so until it is changed.
  for (const QString& name : {QString(5000, u'词'), QStringLiteral("两\n行\t")}) {
    Open(name);
    leave_();
    EXPECT_EQ(Logged(), "");
  }
}

TEST_F(LabelEditingTest, LosesNothingThatIsBeingComposed) {
  Open();
  Compose(QStringLiteral("ping"));
  escape_();  // the input method's
  Compose(QStringLiteral("平铣"));
  enter_();  // only confirms
  ASSERT_TRUE(tree_.IsEditing());
  Compose(QString(), QStringLiteral("面"));
  EXPECT_EQ(Editor().text(), QStringLiteral("平铣面"));
  for (const Action& end : {enter_, leave_, click_}) {
    Open();
    Compose(QString(), QStringLiteral("平"));
    Compose(QStringLiteral("铣面"));
    end();
    if (tree_.IsEditing()) end();  // Enter has confirmed what was composed
    EXPECT_EQ(Logged().find("平铣面."), 0U);
  }
}

}  // namespace
