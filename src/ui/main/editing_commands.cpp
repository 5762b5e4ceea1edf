// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "frm_main.h"

#include "branch.h"
#include "busy_pointer.h"
#include "data_base_funcs.h"
#include "deleted_branches.h"
#include "edit_words_funcs.h"
#include "entry_scheme.h"
#include "event_guard.h"
#include "library.h"
#include "list_view.h"
#include "log.h"
#include "message_box.h"
#include "shared_objects.h"
#include "tree_view.h"
#include "word_tree.h"

#include <QApplication>
#include <QPointer>
#include <QScreen>
#include <QStyle>
#include <QTimer>
#include <QToolTip>

#include <exception>
#include <optional>
#include <unordered_set>
#include <utility>

void frmMain::mnuEditNewItem_Click() {
  NewDict();
}

void frmMain::mnuEditNewWord_Click() {
  const EntryTag tag = SelectedTag();
  if (tag == kCategoryTag) {
    NewWord(kSelCategory);
  } else if (tag == kWordTag) {
    NewWord(kSelWord);
  }
}

void frmMain::mnuEditDelete_Click() {
  const EntryTag tag = SelectedTag();
  if (tag == kCategoryTag) {
    DeleteNode(kSelCategory);
  } else if (tag == kWordTag) {
    DeleteNode(kSelWord);
  }
}

void frmMain::mnuEditRename_Click() {
  tvTreeView->StartLabelEdit();
}

void frmMain::NewDict() {
  auto busy = std::make_optional<BusyPointer>();
  const QString name = TheEditFuncs().TreeDictNewName();
  PendingNode node(*tvTreeView);
  const EntryKey key =
      TheEditFuncs().AddNode(*tvTreeView, kRootKey, name, kCategoryImage, kCategoryTag, 1);
  qint32 position = 0;
  qint32 newItemId = 0;
  QString reason;
  if (!TheDBFuncs().AddDict(name, position, newItemId, &reason)) {
    busy.reset();
    EndWithoutIdentifier(reason);
  }
  TheWordTree().colDictPrptys().Add(newItemId, position, key, name, EntryTag(), key);
  node.Keep();
  tvTreeView->StartLabelEdit();
  TellOfNewBeside();
}

void frmMain::EndWithoutIdentifier(const QString& reason) {
  if (SaysNoGenerator(reason)) MsgBox(this, QStringLiteral("发生致命错误，关闭程序。"));
  qCCritical(lcHCWordLib, "%s", qUtf8Printable(reason));
  EndProgram();
}

void frmMain::NewWord(qint32 Sel) {
  const BusyPointer busy;
  const EntryKey parentKey = tvTreeView->SelectedItem()->Key();
  qint32 dicId = 0;
  qint32 fatherId = 0;
  if (Sel == kSelCategory) {
    dicId = TheWordTree().colDictPrptys().Item(parentKey).DicID();
  } else {
    const TreePrpty& word = TheWordTree().colTreePrptys().Item(parentKey);
    dicId = word.DicID();
    fatherId = word.ID();
  }
  const QString name = TheEditFuncs().TreeWordNewName(dicId);
  PendingNode node(*tvTreeView);
  const EntryKey key =
      TheEditFuncs().AddNode(*tvTreeView, parentKey, name, kWordImage, kWordTag, 1);
  qint32 newId = 0;
  TheDBFuncs().AddItem(name, dicId, newId, fatherId);
  TheWordTree().colTreePrptys().Add(dicId, newId, fatherId, name, key, kWordTag, parentKey, key);
  node.Keep();
  tvTreeView->StartLabelEdit();
  TellOfNewBeside();
}

// Of the same kind as the selected node, and with the same parent.
void frmMain::NewBeside() {
  if (SelectedTag() == kCategoryTag) {
    NewDict();
    return;
  }
  tvTreeView->SetSelectedItem(*tvTreeView->SelectedItem()->Parent());
  mnuEditNewWord_Click();
}

// Once in a run, beside the editor and never over it; after the delay of any tool tip, for a menu
// that has just closed gives the focus back later and would take the tip away.
void frmMain::TellOfNewBeside() {
  if (hasToldOfNewBeside_) return;
  const auto tell = [this, editor = QPointer<QWidget>(QApplication::focusWidget())] {
    if (hasToldOfNewBeside_ || !tvTreeView->IsEditing() || editor == nullptr) return;
    hasToldOfNewBeside_ = true;
    constexpr int kRoom = 48;
    const bool hasRoom = editor->mapToGlobal(editor->rect().bottomLeft()).y() + kRoom <
                         editor->screen()->availableGeometry().bottom();
    const QPoint corner = hasRoom ? editor->rect().bottomLeft() : editor->rect().topRight();
    QToolTip::showText(editor->mapToGlobal(corner),
                       QStringLiteral("按 Ctrl+Enter 保存并接着新建下一个"), tvTreeView);
  };
  QTimer::singleShot(style()->styleHint(QStyle::SH_ToolTip_WakeUpDelay), this, tell);
}

void frmMain::DeleteNode(qint32 Sel) {
  const QString question = QStringLiteral("确定要删除选中的内容？");
  if (MsgBox(this, question, MsgBoxButtons::kYesNo) == MsgBoxResult::kNo) return;
  if (SelectedTag() == kRootTag) return;
  const BusyPointer busy;
  const EntryKey key = tvTreeView->SelectedItem()->Key();
  if (Sel == kSelCategory) {
    DeleteCategory(key);
  } else {
    DeleteWords(key);
  }
  tvTreeView->RemoveNode(key);
  tvTreeView->viewport()->update();
}

void frmMain::DeleteCategory(EntryKey NodeKey) {
  const qint32 dicId = TheWordTree().colDictPrptys().Item(NodeKey).DicID();
  DeletedBranch branch{CategoryRows(TheConn(), dicId)};
  if (const Node* const previous = tvTreeView->Nodes().Item(NodeKey).Previous()) {
    branch.previousGid = TheWordTree().colDictPrptys().Item(previous->Key()).DicID();
  }
  const auto forget = [this, NodeKey] {
    TheWordTree().colDictPrptys().Remove(NodeKey);
    ClearListOfChildren(NodeKey);
  };
  try {
    TheDBFuncs().DeleteItem(kSelCategory, dicId, 0);
  } catch (...) {
    // The category's row may be gone although its words are not.
    if (!IsCategoryStored(TheConn(), dicId)) {
      forget();
      tvTreeView->RemoveNode(NodeKey);
      IgnoringErrors([&] {
        LeaveOutStored(TheConn(), branch.rows);
        deleted_->Keep(std::move(branch));
      });
    }
    throw;
  }
  forget();
  deleted_->Keep(std::move(branch));
}

// When a row cannot be deleted, the words whose rows are gone go from the tree with all that hung
// below them, and the error travels on.
void frmMain::DeleteWords(EntryKey NodeKey) {
  TreePrptys& words = TheWordTree().colTreePrptys();
  const std::vector<EntryKey> keys = BranchOf(tvTreeView->Nodes().Item(NodeKey));
  std::vector<qint32> ids;
  ids.reserve(keys.size());
  for (const EntryKey key : keys) ids.push_back(words.Item(key).ID());
  DeletedBranch branch{BranchRows(TheConn(), words.Item(NodeKey).DicID(), ids)};
  size_t gone = 0;
  const std::exception_ptr failure = DeleteBranch(keys, words, TheDBFuncs(), gone);
  if (gone > 0) ClearListOfChildren(NodeKey);
  if (failure) {
    const std::unordered_set<qint32> left(ids.begin() + static_cast<ptrdiff_t>(gone), ids.end());
    std::erase_if(branch.rows.words,
                  [&left](const WordRow& word) { return left.contains(word.id); });
    if (gone > 0) tvTreeView->RemoveNode(NodeKey);
  }
  deleted_->Keep(std::move(branch));
  if (failure) std::rethrow_exception(failure);
}

void frmMain::ClearListOfChildren(EntryKey NodeKey) {
  const Node* const first = tvTreeView->Nodes().Item(NodeKey).Child();
  if (first != nullptr && ListShowsBrothers(first->Key())) ClearList();
}

bool frmMain::ListShowsBrothers(EntryKey NodeKey) const {
  if (lvListView->Items().Count() == 0) return false;
  const ListItem& first = lvListView->Items().Item(1);
  const Node* parent = tvTreeView->Nodes().Item(NodeKey).Parent();
  if (first.Tag() == kCategoryTag) return parent->Tag() == kRootTag;
  return TheWordTree().colListPrptys().Item(first.Key()).FatherKey() == parent->Key();
}
