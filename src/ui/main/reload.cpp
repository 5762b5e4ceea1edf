// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "frm_main.h"

#include "busy_pointer.h"
#include "deleted_branches.h"
#include "edit_words_funcs.h"
#include "entry_scheme.h"
#include "error.h"
#include "list_view.h"
#include "log.h"
#include "message_box.h"
#include "shared_objects.h"
#include "status_bar.h"
#include "tree_view.h"
#include "tree_view_state.h"

#include <QScrollBar>

#include <optional>

void frmMain::ReloadWordLib() {
  if (!tvTreeView->EndLabelEdit()) return;
  auto busy = std::make_optional<BusyPointer>();
  const TreeViewState state(*tvTreeView);
  const EntryKey selected = tvTreeView->SelectedItem()->Key();
  try {
    TheEditFuncs().ReloadCategories(*tvTreeView);
  } catch (const Error& error) {
    // Nothing was asked to change and nothing has: no reason to end the program.
    busy.reset();
    qCWarning(lcHCWordLib, "%s", error.what());
    MsgBox(this, QStringLiteral("没有能重新读入，窗口中仍是原来的内容。\n") + error.Description(),
           MsgBoxButtons::kOkOnly, MsgBoxIcon::kInformation);
    return;
  }
  deleted_->StartOver();
  state.Restore(*tvTreeView);
  if (tvTreeView->SelectedItem()->Key() != selected) {
    sbStatusBar->SetPanelText(TagText(SelectedTag()));
  }
  RelistChildren();
  ReportSkippedWords();
}

// The list shows the children of the same node, which need not be the selected one, or of the
// nearest one above it.
void frmMain::RelistChildren() {
  const Node* const parent = NearestOf(tvTreeView->Nodes(), listed_);
  if (parent == nullptr) return;
  ListItems& items = lvListView->Items();
  const QModelIndex before = lvListView->currentIndex();
  const EntryKey current = before.isValid() ? items.Item(before.row() + 1).Key() : EntryKey();
  const bool isSelected = lvListView->selectionModel()->isSelected(before);
  QScrollBar* const bar = lvListView->horizontalScrollBar();
  const int left = parent->Key() == listed_.front() ? bar->value() : 0;

  ListChildrenOf(*parent);
  items.Announce();
  for (int row = 0; row < items.Count() && !current.IsNone(); ++row) {
    if (items.Item(row + 1).Key() != current) continue;
    lvListView->selectionModel()->setCurrentIndex(
        lvListView->model()->index(row, 0),
        isSelected ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate);
  }
  lvListView->doItemsLayout();
  bar->setValue(left);
}
