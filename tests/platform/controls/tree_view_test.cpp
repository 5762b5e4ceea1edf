// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "tree_window.h"

#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QInputMethodEvent>
#include <QScrollBar>
#include <QToolTip>

namespace {

using TreeViewTest = TreeWindowTest;

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

TEST_F(TreeViewTest, KeysSelectAsTheMouseDoes) {
  // The key, the node that is selected then, the nodes that are not hidden, what is raised.
  const std::tuple<Qt::Key, const char*, int, const char*> cases[] = {
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
  Select("a11");
  const QPoint label = tree_.viewport()->mapToGlobal(tree_.LabelRect(At("a11")).bottomLeft());
  QObject::connect(&tree_, &TreeView::ContextMenuKey, [&](const QPoint& asked) {
    Log(asked == label ? QStringLiteral("menu") : QStringLiteral("elsewhere"));
  });
  Press(Qt::Key_F10, Qt::ShiftModifier);
  // The right button's release comes on its own.
  for (const auto reason : {QContextMenuEvent::Keyboard, QContextMenuEvent::Mouse}) {
    QContextMenuEvent event(reason, QPoint(1, 1), QPoint(1, 1));
    QApplication::sendEvent(tree_.viewport(), &event);
  }
  EXPECT_EQ(Logged(), "menu.menu.");
}

TEST_F(TreeViewTest, TheToolTipOfALabelThatIsCutIsItsWholeText) {
  const QString wide = QStringLiteral("<b>").repeated(80);
  Add("root", wide);
  tree_.EnsureVisible(At(wide));
  const auto tip = [this](const QString& name) {
    const QPoint place = tree_.LabelRect(At(name)).topLeft() + QPoint(5, 5);
    QHelpEvent event(QEvent::ToolTip, place, tree_.viewport()->mapToGlobal(place));
    QApplication::sendEvent(tree_.viewport(), &event);
    return QToolTip::text();
  };
  EXPECT_EQ(tip(QStringLiteral("b")), QString());
  EXPECT_TRUE(tip(wide).contains(u'>' + wide.toHtmlEscaped() + u'<'));
}

TEST_F(TreeViewTest, GoesSidewaysOnlyAsFarAsANodeNeeds) {
  const QString wide(400, u'w');
  Add("a2", wide);
  QScrollBar* const bar = tree_.horizontalScrollBar();
  tree_.EnsureVisible(At(wide));
  EXPECT_EQ(bar->value(), 0);  // enough of it is in sight
  EXPECT_GE(bar->maximum() + tree_.viewport()->width(), tree_.LabelRect(At(wide)).right());
  bar->setValue(bar->maximum());
  tree_.EnsureVisible(At("a2"));
  EXPECT_EQ(tree_.ItemRect(At("a2")).left(), tree_.indentation());  // its box
  tree_.SetSelectedItem(At(wide));
  Press(Qt::Key_F2);
  bar->setValue(0);
  const QRect editor = QApplication::focusWidget()->geometry();
  EXPECT_NEAR(editor.left(), tree_.LabelRect(At(wide)).left(), 4);
  EXPECT_LT(editor.right(), tree_.viewport()->width());
  tree_.resize(150, 260);
  tree_.EnsureVisible(At(wide));
  EXPECT_EQ(tree_.LabelRect(At(wide)).left() + 60, tree_.viewport()->width());
}

TEST_F(TreeViewTest, ANeighbourIsSelectedForARemovedNode) {
  for (const auto& [removed, selected] :
       {std::pair("a1", "a2"), {"a2", "a"}, {"b", "a"}, {"a", "root"}}) {
    Node* const below = At(removed).Child();
    tree_.SetSelectedItem(below == nullptr ? At(removed) : *below);
    tree_.RemoveNode(At(removed).Key());
    EXPECT_EQ(Selected() + Logged(), selected);
  }
}

}  // namespace
