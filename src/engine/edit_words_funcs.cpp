// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "edit_words_funcs.h"

#include "com_func.h"
#include "connection.h"
#include "entry_scheme.h"
#include "error.h"
#include "list_view.h"
#include "recordset.h"
#include "statements.h"
#include "tree_view.h"
#include "word_tree.h"

#include <limits>
#include <memory>
#include <utility>

EditWordsFuncs::EditWordsFuncs(Connection& connection, WordTree& wordTree)
    : connection_(connection), wordTree_(wordTree) {}

EntryKey EditWordsFuncs::AddNode(TreeView& TheTree, EntryKey ParentKey, const QString& NodeText,
                                 qint32 NodeIcon, EntryTag NodeTag, qint32 Visible) {
  const EntryKey key = AppendNode(TheTree.Nodes(), ParentKey, NodeText, NodeIcon, NodeTag);
  if (Visible == 1) {
    Node& node = TheTree.Nodes().Item(key);
    TheTree.SetSelectedItem(node);
    TheTree.EnsureVisible(node);
  }
  return key;
}

EntryKey EditWordsFuncs::AppendNode(TreeNodes& nodes, EntryKey parentKey, SharedText text,
                                    qint32 icon, EntryTag tag) {
  if (TreeCount == std::numeric_limits<qint32>::max()) throw Error(QStringLiteral("溢出"));
  const EntryKey key = EntryKey::Numbered(TreeCount++);
  nodes.Add(parentKey, Relationship::kChild, key, std::move(text), icon).SetTag(tag);
  return key;
}

EntryKey EditWordsFuncs::AddListItem(ListView& TheList, const QString& NodeText, qint32 ListIcon,
                                     EntryTag ListTag, EntryKey TheKey) {
  TheList.Items().Add(TheKey, NodeText, ListIcon, ListIcon).SetTag(ListTag);
  return TheKey;
}

void EditWordsFuncs::LoadCategories(TreeView& TheTree) {
  auto categories = std::make_unique<Recordset>();
  categories->Open(Statement::SelectCategories(), connection_, CursorType::kKeyset,
                   LockType::kUnspecified);
  if (categories->IsEof()) return;
  OpenAddNodes(TheTree, *categories);
  Node& root = TheTree.Nodes().Item(kRootKey);
  TheTree.SetSelectedItem(root);
  TheTree.SetExpanded(root, false);
  CloseRecordset(categories);
}

bool EditWordsFuncs::OpenAddNodes(TreeView& TheTree, Recordset& TheTable) {
  if (TheTable.IsEof()) return false;
  TheTable.MoveLast();
  const qint32 count = TheTable.RecordCount();
  TheTable.MoveFirst();
  const TreeNodes::Loading loading(TheTree.Nodes());
  for (qint32 i = 0; i < count; ++i) {
    const qint32 gid = TheTable.FieldInteger("GID");
    const qint32 position = TheTable.FieldInteger("Position");
    const QString sortName = TheTable.FieldText("SortName");
    const EntryKey key =
        AppendNode(TheTree.Nodes(), kRootKey, sortName, kCategoryImage, kCategoryTag);
    wordTree_.colDictPrptys().Add(gid, position, key, sortName, EntryTag(), key);
    TheTable.MoveNext();
    OpenFastAddWords(TheTree, key, 0, gid);
  }
  return true;
}

bool EditWordsFuncs::OpenFastAddWords(TreeView& TheTree, EntryKey ParentKey, qint32 /*ParentID*/,
                                      qint32 DictID) {
  auto words = std::make_unique<Recordset>();
  words->Open(Statement::SelectWords(DictID), connection_, CursorType::kKeyset,
              LockType::kUnspecified, {"ID", "FatherID", "NodeName"});
  if (words->IsEof()) return false;
  words->MoveLast();
  const qint32 count = words->RecordCount();
  words->MoveFirst();
  TreePrptys& records = wordTree_.colTreePrptys();
  const size_t idColumn = words->ColumnOf("ID");
  const size_t fatherIdColumn = words->ColumnOf("FatherID");
  const size_t nodeNameColumn = words->ColumnOf("NodeName");
  for (qint32 i = 0; i < count; ++i) {
    const qint32 id = words->FieldInteger(idColumn);
    const qint32 fatherId = words->FieldInteger(fatherIdColumn);
    SharedText nodeName(words->FieldView(nodeNameColumn));
    EntryKey parentKey = ParentKey;
    if (fatherId == 0 || records.GetFatherKey(DictID, fatherId, parentKey)) {
      const EntryKey key = AppendNode(TheTree.Nodes(), parentKey, nodeName, kWordImage, kWordTag);
      records.Add(DictID, id, fatherId, std::move(nodeName), key, kWordTag, parentKey, key);
    } else {
      skippedWords_.append(SkippedWord{DictID, id, fatherId});
    }
    words->MoveNext();
  }
  CloseRecordset(words);
  return true;
}

QString EditWordsFuncs::TreeDictNewName() {
  return FreeName(Statement::SearchCategories(), QStringLiteral("新建条目"),
                  &Statement::CategoryCriterion);
}

QString EditWordsFuncs::TreeWordNewName(qint32 DictID) {
  return FreeName(Statement::SearchWords(DictID), QStringLiteral("新加词"),
                  &Statement::WordCriterion);
}

// The first of base, base2, base3, ... that no row has. Among one candidate more than there are
// rows one is always free.
QString EditWordsFuncs::FreeName(const QString& statement, const QString& base,
                                 QString (*criterion)(const QString&)) {
  auto rows = std::make_unique<Recordset>();
  rows->Open(statement, connection_, CursorType::kKeyset, LockType::kUnspecified);
  QString name = base;
  if (!rows->IsEof()) {
    rows->MoveLast();
    const qint32 count = rows->RecordCount();
    for (qint32 i = 1; i <= count + 1; ++i) {
      name = i == 1 ? base : base + QString::number(i);
      rows->MoveFirst();
      rows->Find(criterion(name));
      if (rows->IsEof()) break;
    }
  }
  CloseRecordset(rows);
  return name;
}
