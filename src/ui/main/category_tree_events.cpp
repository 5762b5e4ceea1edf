// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "frm_main.h"

#include "busy_pointer.h"
#include "data_base_funcs.h"
#include "deleted_branches.h"
#include "edit_words_funcs.h"
#include "entry_scheme.h"
#include "error.h"
#include "event_guard.h"
#include "library.h"
#include "list_view.h"
#include "log.h"
#include "message_box.h"
#include "mouse.h"
#include "shared_objects.h"
#include "status_bar.h"
#include "tree_view.h"
#include "tree_view_state.h"
#include "word_tree.h"

#include <QAction>
#include <QMenu>

EntryTag frmMain::SelectedTag() const {
  const Node* selected = tvTreeView->SelectedItem();
  return selected == nullptr ? EntryTag() : selected->Tag();
}

void frmMain::tvTreeView_NodeClick() {
  sbStatusBar->SetPanelText(TagText(SelectedTag()));
  if (!RightButtonDown) FillList();
}

void frmMain::ClearList() {
  lvListView->Items().Clear();
  TheWordTree().colListPrptys().Clear();
  listed_.clear();
}

void frmMain::FillList() {
  ListChildrenOf(*tvTreeView->SelectedItem());
}

void frmMain::ListChildrenOf(const Node& parent) {
  ClearList();
  listed_ = PathUp(parent);
  const bool categories = parent.Tag() == kRootTag;
  ListPrptys& records = TheWordTree().colListPrptys();
  for (const Node* child = parent.Child(); child != nullptr; child = child->Next()) {
    const EntryKey key = child->Key();
    TheEditFuncs().AddListItem(*lvListView, child->Text(), child->Image(), child->Tag(), key);
    if (categories) {
      const DictPrpty& category = TheWordTree().colDictPrptys().Item(key);
      records.Add(category.DicID(), 0, EntryKey(), 0, category.NodeKey(), category.NodeName(),
                  category.Tag(), category.NodeKey());
    } else {
      const TreePrpty& word = TheWordTree().colTreePrptys().Item(key);
      records.Add(word.DicID(), word.FatherID(), word.FatherKey(), word.ID(), word.NodeKey(),
                  word.NodeName(), word.Tag(), word.NodeKey());
    }
  }
}

void frmMain::tvTreeView_MouseDown(int Button) {
  if (Button == kLeftButton) RightButtonDown = false;
  if (Button == kRightButton) RightButtonDown = true;
}

void frmMain::tvTreeView_MouseUp(int Button) {
  if (Button != kRightButton || !tvTreeView->EndLabelEdit()) return;
  IgnoringErrors([this] {
    Node* clicked = tvTreeView->DropHighlight();
    if (clicked == nullptr) throw Error(QStringLiteral("未设置对象变量"));
    tvTreeView->SetSelectedItem(*clicked);
  });
  IgnoringErrors([this] { ShowPopMnu(QCursor::pos()); });
}

// The items are those that apply to the kind of the selected node.
void frmMain::ShowPopMnu(const QPoint& position) {
  for (QAction* item :
       {mnuPopNewItem, mnuPopNewWord, mnuPopSep1, mnuPopDelete, mnuPopSep2, mnuPopRename}) {
    item->setVisible(true);
  }
  const EntryTag tag = SelectedTag();
  if (tag == kRootTag) {
    for (QAction* item : {mnuPopNewWord, mnuPopDelete, mnuPopRename, mnuPopSep1, mnuPopSep2}) {
      item->setVisible(false);
    }
  } else if (tag == kCategoryTag || tag == kWordTag) {
    mnuPopNewItem->setVisible(false);
  }
  mnuPopMnu->popup(position);
}

void frmMain::tvTreeView_BeforeLabelEdit(qint16& Cancel) {
  EditAgain = false;  // whichever way it opens, it need not open again
  if (SelectedTag() == kRootTag) Cancel = 1;
}

// Nobody is there to read a message once the program has been told to end, be it while it shows.
void frmMain::Refuse(const QString& name, const QString& why) {
  if (!isTerminating_) MsgBox(this, why, MsgBoxButtons::kOkOnly, MsgBoxIcon::kInformation);
  if (isTerminating_) {
    qCWarning(lcHCWordLib, "名称“%s”没有保存：%s", qUtf8Printable(name), qUtf8Printable(why));
  }
}

// The tree raises this for its selected node only.
void frmMain::tvTreeView_AfterLabelEdit(qint16& Cancel, const QString& NewString) {
  const EntryKey key = tvTreeView->SelectedItem()->Key();
  const bool category = SelectedTag() == kCategoryTag;
  if (NewString.isEmpty()) {
    Refuse(NewString, category ? QStringLiteral("分类条目不能为空字符。")
                               : QStringLiteral("分类词不能为空字符。"));
    Cancel = 1;
    // Only the last of these opens the editor again; where the first already gives the tree the
    // focus, the second would end that editing.
    tvTreeView->setFocus();
    lvListView->setFocus();
    EditAgain = true;
    tvTreeView->setFocus();
    return;
  }

  if (IsTaken(NewString, key)) {
    Refuse(NewString, category ? QStringLiteral("有相同名称的分类条目。")
                               : QStringLiteral("有相同名称的分类词。"));
    Cancel = 1;
    tvTreeView->setFocus();
    tvTreeView->StartLabelEdit();
    return;
  }
  const BusyPointer busy;
  if (category) {
    TheDBFuncs().UpdateItem(NewString, kSelCategory,
                            TheWordTree().colDictPrptys().Item(key).DicID(), 0);
    TheWordTree().colDictPrptys().Rename(key, NewString);
  } else {
    const TreePrpty& word = TheWordTree().colTreePrptys().Item(key);
    TheDBFuncs().UpdateItem(NewString, kSelWord, word.DicID(), word.ID());
    TheWordTree().colTreePrptys().Rename(key, NewString);
  }
  deleted_->StartOver();
}

bool frmMain::IsTaken(const QString& name, EntryKey key) const {
  const BusyPointer busy;
  return SelectedTag() == kCategoryTag
             ? IsCategoryNameTaken(TheConn(), name)
             : IsWordNameTaken(TheConn(), name, TheWordTree().colTreePrptys().Item(key).DicID());
}

void frmMain::tvTreeView_GotFocus() {
  if (!EditAgain) return;
  EditAgain = false;
  tvTreeView->StartLabelEdit();
}

void frmMain::lvListView_MouseMove(float X, float Y) {
  lvListView->UsePointer(lvListView->HitTest(X, Y) != nullptr);
}
