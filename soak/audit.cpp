// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "audit.h"

#include "connection.h"
#include "entry_scheme.h"
#include "list_view.h"
#include "recordset.h"
#include "shared_objects.h"
#include "tree_view.h"
#include "word_tree.h"

#include <QLineEdit>

#include <cstdlib>

namespace {

void Require(bool holds, const QString& otherwise) {
  if (!holds) throw Fault(otherwise);
}

}  // namespace

QString Describe(EntryId id) {
  return id.second == 0 ? QStringLiteral("category %1").arg(id.first)
                        : QStringLiteral("word %1/%2").arg(id.first).arg(id.second);
}

Library StoredLibrary(Connection& connection) {
  Library library;
  Recordset categories;
  categories.Open(QStringLiteral("select * from Dictionary"), connection);
  for (; !categories.IsEof(); categories.MoveNext()) {
    library[{categories.FieldInteger("GID"), 0}] = {0, categories.FieldText("SortName")};
  }
  Recordset words;
  words.Open(QStringLiteral("select * from Items"), connection);
  for (; !words.IsEof(); words.MoveNext()) {
    library[{words.FieldInteger("SortID"), words.FieldInteger("ID")}] = {
        words.FieldInteger("FatherID"), words.FieldText("NodeName")};
  }
  return library;
}

namespace {

void AddWords(const Node& parent, qint32 dicId, qint32 fatherId, Library& library) {
  qint32 before = 0;
  for (const Node* node = parent.Child(); node != nullptr; node = node->Next()) {
    const TreePrpty& word = TheWordTree().colTreePrptys().Item(node->Key());
    const EntryId id{dicId, word.ID()};
    Require(word.NodeName() == node->Text() && word.NodeKey() == node->Key() &&
                node->Tag() == kWordTag && node->Image() == kWordImage &&
                word.FatherKey() == parent.Key() && word.FatherID() == fatherId &&
                word.DicID() == dicId,
            QStringLiteral("the record tells otherwise: ") + Describe(id));
    Require(word.ID() > std::exchange(before, word.ID()),
            QStringLiteral("out of order: ") + Describe(id));
    Require(library.emplace(id, Entry{fatherId, node->Text()}).second,
            QStringLiteral("shown twice: ") + Describe(id));
    AddWords(*node, dicId, word.ID(), library);
  }
}

}  // namespace

Library ShownLibrary(TreeView& tree, const Touched& touched) {
  Library library;
  const Node& root = tree.Nodes().Item(kRootKey);
  for (const Node* node = root.Child(); node != nullptr; node = node->Next()) {
    const DictPrpty& category = TheWordTree().colDictPrptys().Item(node->Key());
    const EntryId id{category.DicID(), 0};
    Require(category.NodeName() == node->Text() && category.NodeKey() == node->Key() &&
                node->Tag() == kCategoryTag && node->Image() == kCategoryImage,
            QStringLiteral("the record tells otherwise: ") + Describe(id));
    Require(library.emplace(id, Entry{0, node->Text()}).second,
            QStringLiteral("shown twice: ") + Describe(id));
    if (!touched.goneCategories.contains(id.first)) AddWords(*node, id.first, 0, library);
  }
  Require(TheWordTree().colDictPrptys().Count() == root.Children(),
          QStringLiteral("a record without a node: some category"));
  return library;
}

std::set<EntryId> Orphans(const Library& library) {
  std::set<EntryId> orphans;
  for (const auto& [id, entry] : library) {
    EntryId above = id;
    while (above.second != 0) {
      const auto found = library.find(above);
      if (found == library.end() || found->second.fatherId >= above.second) break;
      above.second = found->second.fatherId;
    }
    if (above.second != 0 || !library.contains(above)) orphans.insert(id);
  }
  return orphans;
}

void CompareLibraries(const Library& shown, const Library& stored, const Touched& touched) {
  for (const auto& [id, entry] : shown) {
    if (touched.Holds(id)) continue;
    const auto found = stored.find(id);
    Require(found != stored.end(),
            QStringLiteral("not stored: %1 “%2”").arg(Describe(id), entry.name));
    Require(found->second.name == entry.name && found->second.fatherId == entry.fatherId,
            QStringLiteral("stored otherwise: %1 is shown as “%2” and stored as “%3”")
                .arg(Describe(id), entry.name, found->second.name));
  }
  for (const auto& [id, entry] : stored) {
    Require(shown.contains(id) || touched.Holds(id),
            QStringLiteral("not shown: %1 “%2”").arg(Describe(id), entry.name));
  }
}

void AuditList(ListView& list) {
  const ListItems& items = list.Items();
  const ListPrptys& records = TheWordTree().colListPrptys();
  Require(records.Count() == items.Count(), QStringLiteral("the list and its records differ"));
  for (int i = 1; i <= items.Count(); ++i) {
    const ListItem& item = items.Item(i);
    const ListPrpty& record = records.Item(item.Key());
    const bool isCategory = item.Tag() == kCategoryTag;
    Require(record.NodeKey() == item.Key() && record.NodeName() == item.Text() &&
                record.Tag() == (isCategory ? EntryTag() : kWordTag) &&
                item.Icon() == (isCategory ? kCategoryImage : kWordImage),
            QStringLiteral("a list item's record tells otherwise: “%1”").arg(item.Text()));
  }
}

void AuditEditor(TreeView& tree) {
  int open = 0;
  for (const QLineEdit* editor : tree.findChildren<QLineEdit*>(QStringLiteral("txtLabel"))) {
    if (editor->isHidden()) continue;
    ++open;
    const Node* selected = tree.SelectedItem();
    Require(selected != nullptr, QStringLiteral("an editor and no selected node"));
    const int distance = editor->geometry().center().y() - tree.LabelRect(*selected).center().y();
    Require(std::abs(distance) <= 3, QStringLiteral("the editor is not the selected node's"));
  }
  Require(open == (tree.IsEditing() ? 1 : 0), QStringLiteral("editors left over: %1").arg(open));
}
