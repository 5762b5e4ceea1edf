// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "tree_window.h"

#include <QContextMenuEvent>
#include <QInputMethodEvent>
#include <QScrollBar>

namespace {

class TreeViewTest : public TreeWindowTest {};

TEST_F(TreeViewTest, OnlyAClickOnPictureOrLabelSelects) {
  const auto leftOfLabel = [&](int distance) {
    return InWindow(
        {tree_.LabelRect(At("a")).left() - distance, tree_.LabelRect(At("a")).center().y()});
  };
  Label("a");  // shows it
  const int box = 21 + tree_.indentation() / 2;
  for (const bool expanded : {true, false}) {
    Click(leftOfLabel(box));
    EXPECT_EQ(tree_.Expanded(At("a")), expanded);
  }
  Click(Label("a") + QPoint(120, 0));
  EXPECT_EQ(Selected() + Logged(), "root");
  Click(leftOfLabel(10));  // on the picture
  EXPECT_EQ(Selected() + Logged(), "aa.");
  QTest::mouseDClick(window_.windowHandle(), Qt::LeftButton, {}, Label("a"));
  EXPECT_TRUE(tree_.Expanded(At("a")));
  Select("a11");
  Click(leftOfLabel(box));  // the selection does not stay on what is hidden
  EXPECT_EQ(Selected() + Logged(), "aa.a.");
}

TEST_F(TreeViewTest, TheRightButtonHighlightsTheNodeThatItIsClickedOn) {
  QObject::connect(&tree_, &TreeView::MouseUp, [this] {
    Log(QStringLiteral("on ") +
        (tree_.DropHighlight() == nullptr ? QString() : tree_.DropHighlight()->Text()));
  });
  const QPoint b = Label("b");
  Click(b, Qt::RightButton);
  Click(b + QPoint(120, 0), Qt::RightButton);
  EXPECT_EQ(tree_.DropHighlight(), nullptr);
  EXPECT_EQ(Selected() + Logged(), "rooton b.b.on .");
}

TEST_F(TreeViewTest, KeysSelectAsTheMouseDoes) {
  const struct {
    Qt::Key key;
    const char* selected;
    int shown;  // the nodes that are not hidden
    const char* raised;
  } cases[] = {
      {Qt::Key_Home, "root", 1, ""},      {Qt::Key_Minus, "root", 1, ""},
      {Qt::Key_Asterisk, "root", 1, ""},  {Qt::Key_Right, "root", 3, ""},
      {Qt::Key_Down, "a", 3, "a."},       {Qt::Key_Plus, "a", 5, ""},
      {Qt::Key_Plus, "a", 5, ""},         {Qt::Key_Down, "a1", 5, "a1."},
      {Qt::Key_Left, "a", 5, "a."},       {Qt::Key_Minus, "a", 3, ""},
      {Qt::Key_End, "b", 3, "b."},        {Qt::Key_Down, "b", 3, ""},
      {Qt::Key_Home, "root", 3, "root."},
  };
  for (const auto& [key, selected, shown, raised] : cases) {
    Press(key);
    int rows = 0;
    for (QModelIndex row = tree_.model()->index(0, 0); row.isValid(); row = tree_.indexBelow(row))
      ++rows;
    EXPECT_EQ(Selected() + Logged(), std::string(selected) + raised) << key;
    EXPECT_EQ(rows, shown) << key;
  }
  for (const char* text : {"", "b", "c"}) {  // an input method's
    QInputMethodEvent commit(QStringLiteral("x"), {});
    commit.setCommitString(QString::fromUtf8(text));
    QApplication::sendEvent(&tree_, &commit);
  }
  EXPECT_EQ(Selected() + Logged(), "bb.");
  Press(Qt::Key_Space, Qt::ControlModifier);
  EXPECT_TRUE(tree_.selectionModel()->isSelected(tree_.currentIndex()));
}

TEST_F(TreeViewTest, TheMenuKeysAskForAMenuAtTheSelectedNode) {
  QPoint asked;
  QObject::connect(&tree_, &TreeView::ContextMenuKey, [&](const QPoint& at) { asked = at; });
  const auto send = [this](QContextMenuEvent::Reason reason) {
    QContextMenuEvent event(reason, QPoint(1, 1), QPoint(1, 1));
    QApplication::sendEvent(tree_.viewport(), &event);
  };
  const std::function<void()> keys[] = {[&] { Press(Qt::Key_F10, Qt::ShiftModifier); },
                                        [&] { send(QContextMenuEvent::Keyboard); }};
  for (const auto& key : keys) {
    Select("a11");
    asked = {};
    key();
    EXPECT_EQ(asked, tree_.viewport()->mapToGlobal(tree_.LabelRect(At("a11")).bottomLeft()));
  }
  asked = {};
  send(QContextMenuEvent::Mouse);  // the right button's release comes on its own
  EXPECT_EQ(asked, QPoint());
}

TEST_F(TreeViewTest, GoesSidewaysOnlyAsFarAsANodeNeeds) {
  const QString wide(400, u'w');
  Add("a2", wide);
  const std::string name = wide.toStdString();
  QScrollBar* const bar = tree_.horizontalScrollBar();
  tree_.EnsureVisible(At(name));
  EXPECT_EQ(bar->value(), 0);  // enough of it is in sight
  EXPECT_GE(bar->maximum() + tree_.viewport()->width(), tree_.LabelRect(At(name)).right());
  bar->setValue(bar->maximum());
  tree_.EnsureVisible(At("a2"));
  EXPECT_EQ(tree_.ItemRect(At("a2")).left(), tree_.indentation());  // its box
  bar->setValue(0);
  tree_.resize(150, 260);
  tree_.EnsureVisible(At(name));
  EXPECT_EQ(tree_.LabelRect(At(name)).left() + 60, tree_.viewport()->width());

  Select(name.c_str());
  Press(Qt::Key_F2);
  const auto* const editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
  ASSERT_NE(editor, nullptr);
  for (const int value : {bar->value() + 10, 0}) {
    bar->setValue(value);
    EXPECT_EQ(editor->x(), tree_.LabelRect(At(name)).left() - 2);
  }
}

TEST_F(TreeViewTest, ANeighbourIsSelectedForARemovedNode) {
  const std::pair<const char*, const char*> removals[] = {
      {"a1", "a2"}, {"a2", "a"}, {"b", "a"}, {"a", "root"}};
  for (const auto& [removed, selected] : removals) {
    Select(std::string_view(removed) == "a1" ? "a11" : removed);
    tree_.RemoveNode(At(removed).Key());
    EXPECT_EQ(Selected() + Logged(), selected);
  }
}

}  // namespace
