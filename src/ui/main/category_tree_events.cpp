// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "frm_main.h"

#include "busy_pointer.h"
#include "com_func.h"
#include "data_base_funcs.h"
#include "edit_words_funcs.h"
#include "entry_scheme.h"
#include "error.h"
#include "event_guard.h"
#include "list_view.h"
#include "message_box.h"
#include "recordset.h"
#include "shared_objects.h"
#include "statements.h"
#include "status_bar.h"
#include "tree_view.h"
#include "word_tree.h"

#include <QAction>
#include <QMenu>

#include <cstdio>
#include <memory>

QString frmMain::SelectedTag() const {
  const Node* selected = tvTreeView->SelectedItem();
  return selected == nullptr ? QString() : selected->Tag();
}

void frmMain::tvTreeView_NodeClick() {
  sbStatusBar->SetPanelText(SelectedTag());
  if (!RightButtonDown) FillList();
}

void frmMain::ClearList() {
  lvListView->Items().Clear();
  TheWordTree().colListPrptys().Clear();
}

void frmMain::FillList() {
  ClearList();
  const Node* selected = tvTreeView->SelectedItem();
  const bool categories = selected->Tag() == kAppTitle;
  ListPrptys& records = TheWordTree().colListPrptys();
  for (const Node* child = selected->Child(); child != nullptr; child = child->Next()) {
    const QString key = child->Key();
    TheEditFuncs().AddListItem(*lvListView, child->Text(), child->Image(), child->Tag(), key);
    if (categories) {
      const DictPrpty& category = TheWordTree().colDictPrptys().Item(key);
      records.Add(category.DicID(), 0, QString(), 0, category.NodeKey(), category.NodeName(),
                  category.Tag(), category.NodeKey());
    } else {
      const TreePrpty& word = TheWordTree().colTreePrptys().Item(key);
      records.Add(word.DicID(), word.FatherID(), word.FatherKey(), word.ID(), word.NodeKey(),
                  word.NodeName(), word.Tag(), word.NodeKey());
    }
  }
}

void frmMain::tvTreeView_MouseDown(int Button) {
  if (Button == 1) RightButtonDown = false;
  if (Button == 2) RightButtonDown = true;
}

void frmMain::tvTreeView_MouseUp(int Button) {
  if (Button != 2) return;
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
  const QString tag = SelectedTag();
  if (tag == kAppTitle) {
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
  if (SelectedTag() == kAppTitle) Cancel = 1;
}

// Nobody is there to read a message once the program has been told to end.
void frmMain::Refuse(const QString& name, const QString& why) {
  if (isTerminating_) {
    std::fprintf(stderr, "hcwordlib: 名称“%s”没有保存：%s\n", qUtf8Printable(name),
                 qUtf8Printable(why));
  } else {
    MsgBox(this, why, MsgBoxButtons::kOkOnly, MsgBoxIcon::kInformation);
  }
}

// The tree raises this for its selected node only.
void frmMain::tvTreeView_AfterLabelEdit(qint16& Cancel, const QString& NewString) {
  const QString key = tvTreeView->SelectedItem()->Key();
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
    TheDBFuncs().UpdateItem(NewString, 1, TheWordTree().colDictPrptys().Item(key).DicID(), 0);
    TheWordTree().colDictPrptys().Rename(key, NewString);
  } else {
    const TreePrpty& word = TheWordTree().colTreePrptys().Item(key);
    TheDBFuncs().UpdateItem(NewString, 2, word.DicID(), word.ID());
    TheWordTree().colTreePrptys().Rename(key, NewString);
  }
}

// Whether the database has the name already: as a category's when the node keyed `key` is one, else
// as that of a word of the same category.
bool frmMain::IsTaken(const QString& name, const QString& key) const {
  const BusyPointer busy;
  const QString query =
      SelectedTag() == kCategoryTag
          ? Statement::SelectCategoryNamed(name)
          : Statement::SelectWordNamed(name, TheWordTree().colTreePrptys().Item(key).DicID());
  auto sameName = std::make_unique<Recordset>();
  sameName->Open(query, TheConn(), CursorType::kStatic, LockType::kUnspecified);
  const bool isTaken = !sameName->IsEof();
  CloseRecordset(sameName);
  return isTaken;
}

void frmMain::tvTreeView_GotFocus() {
  if (!EditAgain) return;
  EditAgain = false;
  tvTreeView->StartLabelEdit();
}

void frmMain::lvListView_MouseMove(float X, float Y) {
  lvListView->UsePointer(lvListView->HitTest(X, Y) != nullptr);
}
