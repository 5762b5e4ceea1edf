// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "frm_main.h"

#include "busy_pointer.h"
#include "component.h"
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
#include "tree_view.h"
#include "word_tree.h"

#include <algorithm>
#include <cstdio>
#include <exception>
#include <optional>
#include <vector>

namespace {

// Whether the database still holds the category, after deleting it failed half-way perhaps. A
// database that cannot tell is taken to hold it.
bool IsStored(qint32 DicID) {
  try {
    Recordset rows;
    rows.Open(Statement::SelectCategories(), TheConn(), CursorType::kKeyset,
              LockType::kUnspecified);
    for (; !rows.IsEof(); rows.MoveNext()) {
      if (rows.FieldInteger("GID") == DicID) return true;
    }
    return false;
  } catch (const Error&) {
    return true;
  }
}

}  // namespace

// Each command first ends an open editing, and does nothing when the name in it was refused.

void frmMain::mnuEditNewItem_Click() {
  if (tvTreeView->EndLabelEdit()) NewDict();
}

void frmMain::mnuEditNewWord_Click() {
  if (!tvTreeView->EndLabelEdit()) return;
  const EntryTag tag = SelectedTag();
  if (tag == kCategoryTag) {
    NewWord(1);
  } else if (tag == kWordTag) {
    NewWord(2);
  }
}

void frmMain::mnuEditDelete_Click() {
  if (!tvTreeView->EndLabelEdit()) return;
  const EntryTag tag = SelectedTag();
  if (tag == kCategoryTag) {
    DeleteNode(1);
  } else if (tag == kWordTag) {
    DeleteNode(2);
  }
}

void frmMain::mnuEditRename_Click() {
  if (tvTreeView->EndLabelEdit()) tvTreeView->StartLabelEdit();
}

void frmMain::NewDict() {
  auto busy = std::make_optional<BusyPointer>();
  Node* const selectedBefore = tvTreeView->SelectedItem();
  const QString name = TheEditFuncs().TreeDictNewName();
  const EntryKey key =
      TheEditFuncs().AddNode(*tvTreeView, kRootKey, name, kCategoryImage, kCategoryTag, 1);
  qint32 position = 0;
  qint32 newItemId = 0;
  QString reason;
  bool added = false;
  try {
    added = TheDBFuncs().AddDict(name, position, newItemId, &reason);
  } catch (...) {
    // The tree shows nothing that the database does not hold.
    tvTreeView->SetSelectedItem(*selectedBefore);
    tvTreeView->RemoveNode(key);
    throw;
  }
  busy.reset();
  if (!added) {
    if (reason == CannotCreateObjectText()) {
      MsgBox(this, QStringLiteral("发生致命错误，关闭程序。"));
    }
    std::fprintf(stderr, "hcwordlib: %s\n", qUtf8Printable(reason));
    EndProgram();
  }
  TheWordTree().colDictPrptys().Add(newItemId, position, key, name, EntryTag(), key);
  tvTreeView->StartLabelEdit();
}

void frmMain::NewWord(qint32 Sel) {
  const BusyPointer busy;
  Node* const parent = tvTreeView->SelectedItem();
  const EntryKey parentKey = parent->Key();
  qint32 dicId = 0;
  qint32 fatherId = 0;
  if (Sel == 1) {
    dicId = TheWordTree().colDictPrptys().Item(parentKey).DicID();
  } else {
    const TreePrpty& word = TheWordTree().colTreePrptys().Item(parentKey);
    dicId = word.DicID();
    fatherId = word.ID();
  }
  const QString name = TheEditFuncs().TreeWordNewName(dicId);
  const EntryKey key =
      TheEditFuncs().AddNode(*tvTreeView, parentKey, name, kWordImage, kWordTag, 1);
  qint32 newId = 0;
  try {
    TheDBFuncs().AddItem(name, dicId, newId, fatherId);
  } catch (...) {
    tvTreeView->SetSelectedItem(*parent);
    tvTreeView->RemoveNode(key);
    throw;
  }
  TheWordTree().colTreePrptys().Add(dicId, newId, fatherId, name, key, kWordTag, parentKey, key);
  tvTreeView->StartLabelEdit();
}

void frmMain::DeleteNode(qint32 Sel) {
  if (MsgBox(this, QStringLiteral("确定要删除选中的内容？"), MsgBoxButtons::kYesNo) ==
      MsgBoxResult::kNo) {
    return;
  }
  if (SelectedTag() == kRootTag) return;
  const BusyPointer busy;
  const Node* selected = tvTreeView->SelectedItem();
  const EntryKey key = selected->Key();
  if (Sel == 1) {
    const auto forget = [this, selected, &key] {
      TheWordTree().colDictPrptys().Remove(key);
      if (selected->Children() > 0 && ListShowsBrothers(selected->Child()->Key())) ClearList();
    };
    const qint32 dicId = TheWordTree().colDictPrptys().Item(key).DicID();
    try {
      TheDBFuncs().DeleteItem(1, dicId, 0);
    } catch (...) {
      // The category's row may be gone although its words are not.
      if (!IsStored(dicId)) {
        forget();
        tvTreeView->RemoveNode(key);
      }
      throw;
    }
    forget();
  } else {
    DeleteWords(key);
  }
  tvTreeView->RemoveNode(key);
  tvTreeView->viewport()->update();
}

// Deletes the word's row and then those of the words below it, each before its children. The walk
// keeps its own stack: words nest to any depth. When a row cannot be deleted, the words whose rows
// are gone go from the tree with all that hung below them, and the error travels on.
void frmMain::DeleteWords(EntryKey NodeKey) {
  TreePrptys& words = TheWordTree().colTreePrptys();
  std::vector<const Node*> toDelete = {&tvTreeView->Nodes().Item(NodeKey)};
  bool deletesRows = true;
  std::exception_ptr failure;
  while (!toDelete.empty()) {
    const Node* node = toDelete.back();
    toDelete.pop_back();
    const EntryKey key = node->Key();
    if (deletesRows) {
      try {
        const TreePrpty& word = words.Item(key);
        TheDBFuncs().DeleteItem(2, word.DicID(), word.ID());
      } catch (...) {
        if (key == NodeKey) throw;
        failure = std::current_exception();
        deletesRows = false;
      }
    }
    words.Remove(key);
    if (node->Children() == 0) continue;
    const Node* firstOfSelected = tvTreeView->SelectedItem()->Child();
    if (firstOfSelected != nullptr && ListShowsBrothers(firstOfSelected->Key())) ClearList();
    const size_t firstChild = toDelete.size();
    for (const Node* child = node->Child(); child != nullptr; child = child->Next()) {
      toDelete.push_back(child);
    }
    std::reverse(toDelete.begin() + static_cast<ptrdiff_t>(firstChild), toDelete.end());
  }
  if (failure) {
    tvTreeView->RemoveNode(NodeKey);
    std::rethrow_exception(failure);
  }
}

bool frmMain::ListShowsBrothers(EntryKey NodeKey) const {
  if (lvListView->Items().Count() == 0) return false;
  const ListItem& first = lvListView->Items().Item(1);
  const Node* parent = tvTreeView->Nodes().Item(NodeKey).Parent();
  if (first.Tag() == kCategoryTag) return parent->Tag() == kRootTag;
  return TheWordTree().colListPrptys().Item(first.Key()).FatherKey() == parent->Key();
}
