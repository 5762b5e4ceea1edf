// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "main_window.h"

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMenuBar>
#include <QTimer>
#include <QToolTip>

namespace {

using Action = std::function<void()>;

class LabelEditingTest : public MainWindowTest {
 protected:
  LabelEditingTest() { QApplication::setDoubleClickInterval(40); }

  QLineEdit& Editor() const { return *qobject_cast<QLineEdit*>(QApplication::focusWidget()); }
  // Opens a fresh library and the editor on this word, which is called `name`.
  void Open(const QString& name = QStringLiteral("精车")) {
    OpenWindow();
    ended_.clear();
    QObject::connect(tvTreeView, &TreeView::AfterLabelEdit,
                     [this](qint16&, const QString& text) { ended_ += text.toStdString() + "."; });
    Select("车削/精车");
    tvTreeView->Nodes().SetText(*tvTreeView->SelectedItem(), name);
    PressKey(Qt::Key_F2);
    ASSERT_TRUE(WaitForEditor());
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

  std::string ended_;  // the texts with which editing has ended, a dot behind each
  const Action enter_ = [this] { PressKey(Qt::Key_Return); };
  const Action escape_ = [this] { PressKey(Qt::Key_Escape); };
  const Action leave_ = [this] { lvListView->setFocus(); };
  const Action click_ = [this] { Click("热处理"); };
};

TEST_F(LabelEditingTest, OpensByAClickOnTheLabelOfTheSelectedNode) {
  const QPoint label = Label("车削/精车");
  QWindow* const window = window_->windowHandle();
  Select("车削/精车");
  Click("车削/精车");
  EXPECT_FALSE(tvTreeView->IsEditing());  // a double click may follow
  EXPECT_EQ(SelectedText(), "精车");
  escape_();
  const Action others[] = {
      [&] { Select(""), Click("车削/精车"); },
      [&] { QTest::mouseClick(window, Qt::LeftButton, {}, label + QPoint(120, 0)); },
      [&] { QTest::mouseDClick(window, Qt::LeftButton, {}, label); },
      [&] { Click("车削/精车"), PressKey(Qt::Key_Shift); },
      [&] {
        QTest::mousePress(window, Qt::LeftButton, {}, label);
        QTest::mouseRelease(window, Qt::LeftButton, {}, label + QPoint(0, 60));
      },
      [&] { Click("车削/精车"), click_(), Select("车削/精车"); },
      [&] { leave_(), Click("车削/精车"); },  // this only brings the focus back
      [&] { Click("车削/精车"), leave_(); },
      [&] { Select(""), Click(""); },  // refused
      [&] { Select(""), PressKey(Qt::Key_F2); },
  };
  for (size_t i = 0; i < std::size(others); ++i) {
    tvTreeView->setFocus();
    Select("车削/精车");
    others[i]();
    bool over = false;  // the time that a click waits for a second one
    QTimer::singleShot(QApplication::doubleClickInterval() + 5, [&over] { over = true; });
    ASSERT_TRUE(QTest::qWaitFor([&over] { return over; }));
    EXPECT_FALSE(tvTreeView->IsEditing()) << i;
  }
}

TEST_F(LabelEditingTest, EndsAsTheUserLeavesIt) {
  const struct {
    Action end;
    const char* typed;  // null for nothing
    const char* ended;
    const char* label = "精车";
  } cases[] = {
      {enter_, "半精车", "半精车.", "半精车"},
      {escape_, nullptr, ""},
      {escape_, "半精车", ""},
      {leave_, nullptr, ""},
      {leave_, "精车", ""},
      {click_, nullptr, ""},
      {leave_, "半精车", "半精车.", "半精车"},
      {click_, "半精车", "半精车.", "半精车"},
  };
  for (const auto& [end, typed, ended, label] : cases) {
    Open();
    if (typed != nullptr) Type(typed, 0);
    end();
    EXPECT_FALSE(tvTreeView->IsEditing());
    EXPECT_EQ(ended_, ended);
    EXPECT_EQ(At("车削/粗车").Next()->Text().toStdString(), label);
    Audit();
  }
}

// Every way to another node ends the editing first; a look elsewhere does not.
TEST_F(LabelEditingTest, BelongsToOneNode) {
  QWidget other;
  const Action looks[] = {
      [&] {
        QAction* const menu = window_->menuBar()->actions().first();
        QTest::mouseClick(window_->windowHandle(), Qt::LeftButton, {},
                          window_->menuBar()->actionGeometry(menu).center());
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
      },
      [&] { window_->menuBar()->setFocus(Qt::MenuBarFocusReason); },
      [&] { other.show(), other.activateWindow(), window_->activateWindow(); },
  };
  for (const Action& look : looks) {
    Open();
    Type("半精车", 0);
    look();
    EXPECT_TRUE(tvTreeView->IsEditing());
    click_();
    EXPECT_FALSE(tvTreeView->IsEditing());
    EXPECT_EQ(ended_, "半精车.");
    EXPECT_EQ(Selected(), "热处理");
    Audit();
  }
}

TEST_F(LabelEditingTest, TakesOneLineOfAtMost4000Characters) {
  const QString pair = QStringLiteral("𠮷");
  Open();
  Paste(pair.repeated(4001));
  EXPECT_EQ(Editor().text(), pair.repeated(4000));
  EXPECT_EQ(QToolTip::text(), QStringLiteral("名称最多 4000 个字符，多出的部分没有放入。"));
  QTest::keyClicks(&Editor(), QStringLiteral("x"));
  EXPECT_EQ(Editor().text(), pair.repeated(4000));
  Editor().selectAll();
  Compose(QString(), pair.repeated(4001));
  EXPECT_EQ(Editor().text(), pair.repeated(4000));
  const QString pasted = QStringLiteral("\t\r\n一\r\n二\n三\u2028四\u2029五\r六\v七 八\t\n") +
                         QChar(0xD842) + QChar(0);
  Paste(pasted);
  EXPECT_EQ(Editor().text(), QStringLiteral("一 二 三 四 五 六 七 八"));
  QTest::keyClick(&Editor(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Editor().text(), pair.repeated(4000));
  Editor().selectAll();
  Compose(QString(), pasted);  // not by a key: from a menu, by dropping
  EXPECT_EQ(Editor().text(), QStringLiteral("一 二 三 四 五 六 七 八"));
  Editor().setText(QStringLiteral("😀"));
  QTest::keyClick(&Editor(), Qt::Key_A, Qt::ControlModifier);
  Compose(QString(), QStringLiteral("😁"));  // differs in its second unit
  EXPECT_EQ(Editor().text(), QStringLiteral("😁"));
  // What is stored otherwise stays so until it is changed.
  for (const QString& name : {QString(5000, u'词'), QStringLiteral("两\n行\t")}) {
    Open(name);
    EXPECT_EQ(Editor().text(), name);
    leave_();
    EXPECT_EQ(ended_, "");
  }
}

TEST_F(LabelEditingTest, LosesNothingThatIsBeingComposed) {
  Open();
  Compose(QStringLiteral("ping"));
  escape_();  // the input method's
  Compose(QStringLiteral("平铣"));
  enter_();  // only confirms
  ASSERT_TRUE(tvTreeView->IsEditing());
  Compose(QString(), QStringLiteral("面"));
  EXPECT_EQ(Editor().text(), QStringLiteral("平铣面"));
  for (const Action& end : {enter_, leave_, click_}) {
    Open();
    Compose(QString(), QStringLiteral("平"));
    Compose(QStringLiteral("铣面"));
    end();
    if (tvTreeView->IsEditing()) end();  // Enter has confirmed what was composed
    EXPECT_EQ(ended_, "平铣面.");
    Audit();
  }
}

}  // namespace
