// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "shown_tree.h"

#include <QInputMethodEvent>

namespace {

using TreeViewTest = ShownTree;

TEST_F(TreeViewTest, TheProgramSelectsShowsAndRemovesWithoutAnEvent) {
  Add("fine", "finish", "精车外圆");
  tree_->SetExpanded(At("root"), false);
  tree_->EnsureVisible(At("finish"));
  for (const char* key : {"root", "turning", "fine"}) EXPECT_TRUE(tree_->Expanded(At(key))) << key;
  EXPECT_FALSE(tree_->Expanded(At("finish")));
  EXPECT_TRUE(tree_->viewport()->rect().contains(tree_->LabelRect(At("finish")).center()));
  EXPECT_EQ(Selected(), "root");

  Select("milling");
  Remove("rough");
  EXPECT_EQ(Selected(), "milling");
  Remove("milling");
  EXPECT_EQ(Selected(), "grinding");  // the next sibling
  Remove("grinding");
  EXPECT_EQ(Selected(), "turning");  // the previous one
  Select("finish");
  Remove("turning");              // with the selected node below it
  EXPECT_EQ(Selected(), "root");  // the parent
  Remove("root");
  EXPECT_EQ(tree_->SelectedItem(), nullptr);
  TypeKey(Qt::Key_F2);
  EXPECT_FALSE(tree_->IsEditing());
  EXPECT_EQ(Events(), "");
}

TEST_F(TreeViewTest, OnlyAClickOnPictureOrLabelSelects) {
  Click(Label("milling"));
  EXPECT_EQ(Events(), "down1 click milling up1 ");
  Click(Picture("turning"));
  Click(Label("turning"));  // again: the list may show something else by now
  EXPECT_EQ(Events(), "down1 click turning up1 down1 click turning up1 ");
  for (const QPoint& nowhere : {RightOf("milling"), QPoint(200, 300), Box("milling")}) {
    Click(nowhere);
    EXPECT_EQ(Events(), "down1 up1 ");
    EXPECT_EQ(Selected(), "turning");
  }
  Select("milling");
  for (const bool expanded : {true, false}) {
    Click(Box("turning"));
    EXPECT_EQ(tree_->Expanded(At("turning")), expanded);
    EXPECT_EQ(Events(), "down1 up1 ");
  }
  EXPECT_EQ(Selected(), "milling");
}

TEST_F(TreeViewTest, KeysSelectAsTheMouseDoes) {
  for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Right, Qt::Key_Right, Qt::Key_Down, Qt::Key_End,
                            Qt::Key_End, Qt::Key_Home, Qt::Key_Up, Qt::Key_G, Qt::Key_Up,
                            Qt::Key_Left, Qt::Key_Left, Qt::Key_Down}) {
    TypeKey(key);
  }
  EXPECT_EQ(Events(),
            "click turning click rough click fine click grinding click root "
            "click grinding click milling click root ");
  EXPECT_FALSE(tree_->Expanded(At("root")));
}

// Type-ahead in Chinese comes from an input method.
TEST_F(TreeViewTest, CommittedTextIsSearchedFor) {
  ASSERT_TRUE(tree_->testAttribute(Qt::WA_InputMethodEnabled));
  for (const char* text : {"", "铣", "不存在"}) {
    QInputMethodEvent commit(QStringLiteral("xi"), {});
    commit.setCommitString(QString::fromUtf8(text));
    QApplication::sendEvent(tree_, &commit);
  }
  EXPECT_EQ(Events(), "click milling ");
}

}  // namespace
