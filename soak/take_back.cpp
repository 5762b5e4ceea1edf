// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

// A delete by key that is taken back, whatever a colleague has done between.

#include "connection.h"
#include "failing_step.h"
#include "frm_main.h"
#include "session.h"
#include "shared_objects.h"
#include "tree_view.h"

#include <QApplication>
#include <QWindow>

#include <algorithm>

namespace {

// The entries of `of` that `without` has not.
Library Missing(const Library& of, const Library& without) {
  Library missing;
  for (const auto& [id, entry] : of) {
    if (!without.contains(id)) missing.emplace(id, entry);
  }
  return missing;
}

}  // namespace

void Session::TakeBack() {
  if (OpenEditing() || QApplication::activePopupWidget() != nullptr) return;
  if (!window_->isActiveWindow()) window_->activateWindow();
  tree_->setFocus();
  Settle();
  if (QGuiApplication::focusWindow() != window_->windowHandle() || !tree_->hasFocus()) return;

  Library deleted;
  if (!OneIn(4)) {
    for (int i = Below(4); i > 0; --i) Key(OneIn(2) ? Qt::Key_Down : Qt::Key_Right);
    const Library whole = StoredLibrary(*colleague_);
    Tell(QStringLiteral("Delete"));
    Key(Qt::Key_Delete);
    Settle();
    deleted = Missing(whole, StoredLibrary(*colleague_));
  }
  for (int count = OneIn(2) ? Below(3) : 0; count > 0; --count) Colleague();
  window_->activateWindow();
  tree_->setFocus();
  Settle();
  if (QGuiApplication::focusWindow() != window_->windowHandle() || !tree_->hasFocus()) return;

  const Library before = StoredLibrary(*colleague_);
  faultArmed_ = OneIn(8);
  Tell(faultArmed_ ? QStringLiteral("Ctrl+Z fails") : QStringLiteral("Ctrl+Z"));
  if (faultArmed_) FailStep(TheConn(), 1 + Below(10));
  Key(Qt::Key_Z, Qt::ControlModifier);
  TheConn().SetStepHook({});
  Settle();
  const Library after = StoredLibrary(*colleague_);
  const Library added = Missing(after, before);
  if (!Missing(before, after).empty()) throw Fault(QStringLiteral("Ctrl+Z has deleted"));
  if (notTakenBack_ && !added.empty()) throw Fault(QStringLiteral("half taken back"));
  if (!notTakenBack_ && !deleted.empty()) {
    CompareLibraries(added, deleted, {});
    // Below a word whose row a colleague had deleted before, nothing can be shown.
    const auto orphans = Orphans(after);
    const bool isShown = std::any_of(added.begin(), added.end(), [&](const auto& entry) {
      return !orphans.contains(entry.first);
    });
    const Node* const selected = tree_->SelectedItem();
    if (isShown && selected->Parent() != nullptr && !touched_.Holds(IdOf(*selected)) &&
        !added.contains(IdOf(*selected))) {
      throw Fault(QStringLiteral("not selected: what was taken back"));
    }
  }
  // What has no parent comes back, too, and no tree can show it.
  touched_.entries.merge(Orphans(after));
}
