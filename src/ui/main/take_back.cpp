// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "frm_main.h"

#include "busy_pointer.h"
#include "characters.h"
#include "deleted_branches.h"
#include "edit_words_funcs.h"
#include "entry_scheme.h"
#include "error.h"
#include "log.h"
#include "message_box.h"
#include "shared_objects.h"
#include "tree_view.h"

void frmMain::TakeBackDelete() {
  if (!tvTreeView->EndLabelEdit()) return;
  const DeletedBranch* const branch = deleted_->Next();
  if (branch == nullptr) {
    TellAt(*tvTreeView->SelectedItem(), QStringLiteral("没有可以恢复的内容。"));
    return;
  }
  const DeletedRows& rows = branch->rows;
  std::vector<WordRow> stored;
  QString message;
  try {
    const BusyPointer busy;
    QString hindrance = TheEditFuncs().BranchHindrance(*tvTreeView, rows);
    if (hindrance.isEmpty()) hindrance = PutBack(TheConn(), rows, stored);
    if (!hindrance.isEmpty()) {
      message = QStringLiteral("%1“%2”没有恢复：%3。")
                    .arg(TagText(rows.category ? kCategoryTag : kWordTag), Shortened(rows.Name()),
                         hindrance);
      deleted_->PassOverNext();
    }
  } catch (const Error& error) {
    // Nothing has changed: no reason to end the program.
    qCWarning(lcHCWordLib, "%s", error.what());
    message = QStringLiteral("没有能恢复，词句库没有改变。\n") + error.Description();
  }
  if (!message.isEmpty()) {
    MsgBox(this, message, MsgBoxButtons::kOkOnly, MsgBoxIcon::kInformation);
    return;
  }
  const BusyPointer busy;
  Node* const node = TheEditFuncs().AddBranch(*tvTreeView, *branch, stored);
  deleted_->RemoveNext();
  if (node == nullptr) return;
  tvTreeView->SetSelectedItem(*node);
  tvTreeView->EnsureVisible(*node);
  tvTreeView_NodeClick();
}
