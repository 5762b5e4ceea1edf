// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

// What a colleague changes, and how it comes into the window.

#include "connection.h"
#include "entry_scheme.h"
#include "failing_step.h"
#include "frm_main.h"
#include "list_view.h"
#include "session.h"
#include "shared_objects.h"
#include "statements.h"
#include "tree_view.h"

#include <QApplication>
#include <QScrollBar>
#include <QWindow>

#include <algorithm>

void Session::Colleague() {
  const Library stored = StoredLibrary(*colleague_);
  QList<EntryId> words;
  QList<EntryId> categories;
  for (const auto& [id, entry] : stored) (id.second == 0 ? categories : words) += id;
  const auto touch = [this](EntryId id) {
    touched_.entries.insert(id);
    touchedNow_.entries.insert(id);
  };
  const QString name = QStringLiteral("同事的%1").arg(random_.bounded(1'000'000));
  const int kind = Below(5);
  if (kind == 0 && !words.isEmpty()) {
    const EntryId id = OneOf(words);
    Tell(QStringLiteral("a colleague renames ") + Describe(id));
    colleague_->Execute(Statement::RenameWord(name, id.first, id.second));
    touch(id);
  } else if (kind == 1 && !categories.isEmpty()) {
    const EntryId id = OneOf(categories);
    Tell(QStringLiteral("a colleague renames ") + Describe(id));
    colleague_->Execute(Statement::RenameCategory(name, id.first));
    touch(id);
  } else if (kind == 2 && !words.isEmpty() && !words.contains({OneOf(words).first, 0})) {
    // Not the last number of a category, which would be given again.
    const EntryId id = OneOf(words);
    const auto next = stored.upper_bound(id);
    if (next == stored.end() || next->first.first != id.first) return;
    Tell(QStringLiteral("a colleague deletes ") + Describe(id));
    colleague_->Execute(Statement::DeleteWord(id.first, id.second));
    touch(id);
  } else if (kind == 3 && !categories.isEmpty()) {
    const qint32 gid = OneOf(categories).first;
    qint32 last = 0;
    for (const EntryId& id : words) {
      if (id.first == gid) last = std::max(last, id.second);
    }
    const EntryId id{gid, last + 1};
    Tell(QStringLiteral("a colleague adds ") + Describe(id));
    colleague_->Execute(
        QStringLiteral("insert into Items (SortID,ID,FatherID,NodeName) values (%1,%2,0,'%3')")
            .arg(id.first)
            .arg(id.second)
            .arg(name));
    touch(id);
  } else if (kind == 4 && categories.size() > 2 && OneIn(3)) {
    const EntryId id = OneOf(categories);
    Tell(QStringLiteral("a colleague deletes ") + Describe(id));
    colleague_->Execute(Statement::DeleteCategory(id.first));
    colleague_->Execute(Statement::DeleteWordsOfCategory(id.first));
    touched_.goneCategories.insert(id.first);
    touchedNow_.goneCategories.insert(id.first);
  }
}

// ---- reading the library again

EntryId Session::IdOrRoot(const Node& node) const {
  return node.Parent() == nullptr ? EntryId{0, 0} : IdOf(node);
}

Session::Standing Session::Stands() const {
  Standing standing;
  const TreeNodes& nodes = tree_->Nodes();
  for (const Node* node = tree_->SelectedItem(); node != nullptr; node = node->Parent()) {
    standing.selected += IdOrRoot(*node);
  }
  const QModelIndex root = tree_->model()->index(0, 0);
  for (QModelIndex index = root; index.isValid(); index = tree_->indexBelow(index)) {
    const Node& node = *nodes.NodeAt(index);
    const EntryId id = IdOrRoot(node);
    standing.rows.emplace_back(id, node.Text());
    if (node.Children() > 0) standing.expanded[id] = tree_->Expanded(node);
  }
  standing.scrolled = {tree_->horizontalScrollBar()->value(), tree_->verticalScrollBar()->value()};
  return standing;
}

void Session::CompareStanding(const Standing& before, const Library& shown) {
  const Standing now = Stands();
  const auto exists = [&shown](EntryId id) { return id.first == 0 || shown.contains(id); };
  const auto nearest = std::find_if(before.selected.begin(), before.selected.end(), exists);
  if (now.selected.front() != *nearest) {
    throw Fault(QStringLiteral("another selection: %1 for %2")
                    .arg(Describe(now.selected.front()), Describe(*nearest)));
  }
  for (const auto& [id, isExpanded] : now.expanded) {
    const auto found = before.expanded.find(id);
    const bool wasExpanded = found != before.expanded.end() && found->second;
    // A node without children can be neither, nor one that was not in sight.
    if (found == before.expanded.end() || now.selected.indexOf(id) > 0) continue;
    if (isExpanded != wasExpanded) {
      throw Fault(QStringLiteral("expanded otherwise: ") + Describe(id));
    }
  }
  if (now.rows == before.rows && now.scrolled != before.scrolled) {
    throw Fault(QStringLiteral("scrolled: from %1, %2 to %3, %4")
                    .arg(before.scrolled.x())
                    .arg(before.scrolled.y())
                    .arg(now.scrolled.x())
                    .arg(now.scrolled.y()));
  }
  // The list shows the children of one node as they are now.
  const ListItems& items = list_->Items();
  if (items.Count() == 0) return;
  const Node* node = tree_->Nodes().Find(items.Item(1).Key());
  if (node != nullptr) node = node->Parent()->Child();
  for (int i = 1; i <= items.Count(); ++i, node = node->Next()) {
    if (node == nullptr || items.Item(i).Key() != node->Key() ||
        items.Item(i).Text() != node->Text()) {
      throw Fault(QStringLiteral("the list is not of now: ") + items.Item(i).Text());
    }
  }
  if (node != nullptr) throw Fault(QStringLiteral("the list ends before ") + node->Text());
}

void Session::Reload() {
  if (QApplication::activePopupWidget() != nullptr) return;
  for (int count = Below(3); count > 0; --count) Colleague();
  if (!window_->isActiveWindow()) window_->activateWindow();
  Settle();
  // Without a window manager it may be half-way only.
  if (QGuiApplication::focusWindow() != window_->windowHandle() ||
      QApplication::activeWindow() != window_.get()) {
    return;
  }
  const Standing before = Stands();
  faultArmed_ = OneIn(8);
  Tell(faultArmed_ ? QStringLiteral("F5 fails") : QStringLiteral("F5"));
  if (faultArmed_) FailStep(TheConn(), 1 + Below(6));
  Key(Qt::Key_F5);
  TheConn().SetStepHook({});
  if (refused_ || unread_) return;
  if (tree_->IsEditing()) throw Fault(QStringLiteral("still being edited after F5"));
  const Library stored = StoredLibrary(*colleague_);
  touched_ = {Orphans(stored), {}};
  const Library shown = ShownLibrary(*tree_, touched_);
  CompareLibraries(shown, stored, touched_);
  CompareStanding(before, shown);
}
