// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "shown_tree.h"

#include <QClipboard>
#include <QInputMethodEvent>
#include <QMessageBox>
#include <QTimer>

#include <functional>

namespace {

using Action = std::function<void()>;

class LabelEditorTest : public ShownTree {
 protected:
  LabelEditorTest() {
    QObject::connect(tree_, &TreeView::BeforeLabelEdit, [this](qint16& cancel) {
      if (tree_->SelectedItem() == &At("root")) cancel = 1;
    });
    QObject::connect(tree_, &TreeView::AfterLabelEdit,
                     [this](qint16& cancel, const QString& newString) {
                       ended_ += newString.toStdString() + ".";
                       if (!refuse_) return;
                       cancel = 1;
                       refuse_();
                     });
  }

  // Null unless it is open and has the focus.
  LabelEditor* Editor() const {
    return tree_->IsEditing() ? qobject_cast<LabelEditor*>(QApplication::focusWidget()) : nullptr;
  }
  LabelEditor& Open(const char* key) {
    Select(key);
    tree_->StartLabelEdit();
    return *Editor();
  }
  void Type(const QString& text) {
    for (const QChar c : text) QTest::sendKeyEvent(QTest::Click, Editor(), {}, c, Qt::NoModifier);
  }
  void Compose(const QString& preedit, const QString& commit = QString()) {
    QInputMethodEvent event(preedit, {});
    event.setCommitString(commit);
    QApplication::sendEvent(Editor(), &event);
  }
  void Paste(const QString& text) {
    QApplication::clipboard()->setText(text);
    QTest::keyClick(Editor(), Qt::Key_V, Qt::ControlModifier);
  }
  // The texts with which editing has ended since the last call, a dot behind each.
  std::string Ended() { return std::exchange(ended_, {}); }

  Action refuse_;
  const Action enter_ = [this] { TypeKey(Qt::Key_Return); };
  const Action escape_ = [this] { TypeKey(Qt::Key_Escape); };
  const Action leave_ = [this] { other_->setFocus(); };
  const Action click_ = [this] { Click(Label("turning")); };

 private:
  std::string ended_;
};

TEST_F(LabelEditorTest, OpensByAClickOnTheLabelOfTheSelectedNode) {
  Select("milling");
  Click(Label("milling"));
  EXPECT_FALSE(tree_->IsEditing());  // a double click may follow
  ASSERT_TRUE(QTest::qWaitFor([this] { return Editor() != nullptr; }));
  EXPECT_EQ(Editor()->selectedText(), QStringLiteral("铣削"));
  escape_();
  EXPECT_FALSE(tree_->IsEditing());

  const Action others[] = {
      [this] { Select("root"), Click(Label("milling")); },
      [this] { Click(Picture("milling")); },
      [this] { Click(RightOf("milling")); },
      [this] { Click(Label("milling"), Qt::RightButton); },
      [this] { QTest::mouseDClick(window_.windowHandle(), Qt::LeftButton, {}, Label("milling")); },
      [this] { Click(Label("milling")), TypeKey(Qt::Key_Shift); },
      [this] { Press(Label("milling")), Release(Label("milling") + QPoint(0, 60)); },
      [this] { Click(Label("milling")), click_(), Select("milling"); },
      [this] { leave_(), Click(Label("milling")); },  // this only brings the focus back
      [this] { Click(Label("milling")), leave_(); },
      [this] { Select("root"), Click(Label("root")); },  // refused
      [this] { Select("root"), TypeKey(Qt::Key_F2); },
  };
  for (size_t i = 0; i < std::size(others); ++i) {
    tree_->setFocus();
    Select("milling");
    others[i]();
    bool over = false;  // the time that a click waits for a second one
    QTimer::singleShot(QApplication::doubleClickInterval() + 5, [&over] { over = true; });
    ASSERT_TRUE(QTest::qWaitFor([&over] { return over; }));
    EXPECT_FALSE(tree_->IsEditing()) << i;
  }
}

TEST_F(LabelEditorTest, EndsAsTheUserLeavesIt) {
  const struct {
    Action end;
    const char* typed;  // null for nothing
    const char* ended;
    const char* label;
  } cases[] = {
      {enter_, nullptr, "铣削.", "铣削"},
      {enter_, "", ".", ""},
      {enter_, "平铣", "平铣.", "平铣"},
      {escape_, nullptr, "", "铣削"},
      {escape_, "平铣", "", "铣削"},
      {leave_, nullptr, "", "铣削"},
      {leave_, "铣削", "", "铣削"},
      {leave_, "平铣", "平铣.", "平铣"},
      {leave_, "", ".", ""},
      {click_, nullptr, "", "铣削"},
      {click_, "平铣", "平铣.", "平铣"},
  };
  for (size_t i = 0; i < std::size(cases); ++i) {
    SCOPED_TRACE(i);
    const auto& [end, typed, ended, label] = cases[i];
    tree_->Nodes().SetText(At("milling"), QStringLiteral("铣削"));
    Open("milling");
    Events();
    if (typed != nullptr) {
      TypeKey(Qt::Key_Delete);
      Type(QString::fromUtf8(typed));
    }
    end();
    EXPECT_FALSE(tree_->IsEditing());
    EXPECT_EQ(Ended(), ended);
    EXPECT_EQ(Text("milling"), label);
    EXPECT_EQ(Events() == "", Selected() == "milling");  // a click selects as well
  }
}

// The message takes the focus from the editor whose text it refuses.
TEST_F(LabelEditorTest, ARefusalWithAMessageRaisesTheEventOnce) {
  refuse_ = [this] {
    QMessageBox message(&window_);
    QTimer::singleShot(0, &message, &QDialog::accept);
    message.exec();
    tree_->setFocus();
    tree_->StartLabelEdit();
    // As a window manager does, later.
    QTimer::singleShot(0, &window_, &QWidget::activateWindow);
  };
  Open("milling");
  for (const Action& end : {enter_, leave_, click_, enter_}) {
    ASSERT_TRUE(QTest::qWaitFor([this] { return Editor() != nullptr; }));
    EXPECT_EQ(Editor()->selectedText(), QStringLiteral("铣削"));
    Type(QStringLiteral("车削"));
    end();
    EXPECT_EQ(Ended(), "车削.");
    EXPECT_EQ(Text("milling"), "铣削");
    EXPECT_EQ(Selected(), "milling");  // the click was spent on ending the editing
  }
}

TEST_F(LabelEditorTest, TakesAtMost255UnitsNoHalfOfAPairAndNoLineBreak) {
  const QString pair = QStringLiteral("𠮷");
  LabelEditor& editor = Open("milling");
  Type(QString(300, u'x'));
  EXPECT_EQ(editor.text(), QString(255, u'x'));
  editor.selectAll();
  Paste(pair.repeated(128));
  EXPECT_EQ(editor.text(), pair.repeated(127));
  editor.selectAll();
  Compose(QString(), pair.repeated(128));
  EXPECT_EQ(editor.text(), pair.repeated(127));
  editor.selectAll();
  Paste(QStringLiteral("一\r\n二\n三\u2028四\u2029五\r六\v七 八\t") + QChar(0xD842) + QChar(0));
  EXPECT_EQ(editor.text(), QStringLiteral("一 二 三 四 五 六 七 八\t"));
  escape_();
  // A name that another program made longer is left alone as long as the user does so.
  for (const QString& name : {QString(300, u'词'), u'词' + pair.repeated(128)}) {
    tree_->Nodes().SetText(At("milling"), name);
    EXPECT_FALSE(Open("milling").text().back().isHighSurrogate());
    leave_();
    EXPECT_EQ(Ended(), "");
    EXPECT_EQ(At("milling").Text(), name);
  }
}

TEST_F(LabelEditorTest, LosesNothingThatIsBeingComposed) {
  Open("milling");
  Compose(QStringLiteral("ping"));
  escape_();  // the input method's
  ASSERT_NE(Editor(), nullptr);
  Compose(QStringLiteral("平铣"));
  enter_();  // only confirms
  ASSERT_NE(Editor(), nullptr);
  EXPECT_EQ(Ended(), "");
  Compose(QString(), QStringLiteral("面"));
  for (const Action& end : {enter_, leave_, click_}) {
    end();
    EXPECT_EQ(Ended(), "平铣面.");
    EXPECT_EQ(Text("milling"), "平铣面");
    tree_->Nodes().SetText(At("milling"), QString());
    Open("milling");
    Compose(QStringLiteral("平铣面"));
  }
}

}  // namespace
