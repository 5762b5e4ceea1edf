// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "edit_words_funcs.h"

#include "com_func.h"
#include "connection.h"
#include "entry_scheme.h"
#include "error.h"
#include "library.h"
#include "list_view.h"
#include "recordset.h"
#include "statements.h"
#include "tree_view.h"
#include "word_tree.h"

#include <limits>
#include <memory>
#include <utility>

namespace {

void AppendNode(TreeNodes& nodes, EntryKey parentKey, EntryKey key, SharedText text, qint32 icon,
                EntryTag tag) {
  nodes.Add(parentKey, Relationship::kChild, key, std::move(text), icon).SetTag(tag);
}

void AppendCategory(TreeNodes& nodes, DictPrptys& records, EntryKey key, qint32 gid,
                    qint32 position, const QString& sortName) {
  AppendNode(nodes, kRootKey, key, sortName, kCategoryImage, kCategoryTag);
  records.Add(gid, position, key, sortName, EntryTag(), key);
}

}  // namespace

EditWordsFuncs::EditWordsFuncs(Connection& connection, WordTree& wordTree)
    : connection_(connection), wordTree_(wordTree) {}

EntryKey EditWordsFuncs::AddNode(TreeView& TheTree, EntryKey ParentKey, const QString& NodeText,
                                 qint32 NodeIcon, EntryTag NodeTag, qint32 Visible) {
  const EntryKey key = NextKey();
  AppendNode(TheTree.Nodes(), ParentKey, key, NodeText, NodeIcon, NodeTag);
  if (Visible == 1) {
    Node& node = TheTree.Nodes().Item(key);
    TheTree.SetSelectedItem(node);
    TheTree.EnsureVisible(node);
  }
  return key;
}

EntryKey EditWordsFuncs::NextKey() {
  if (TreeCount == std::numeric_limits<qint32>::max()) throw Error(QStringLiteral("溢出"));
  return EntryKey::Numbered(TreeCount++);
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
    const EntryKey key = NextKey();
    AppendCategory(TheTree.Nodes(), wordTree_.colDictPrptys(), key, gid, position, sortName);
    TheTable.MoveNext();
    OpenFastAddWords(TheTree, key, 0, gid);
  }
  return true;
}

bool EditWordsFuncs::OpenFastAddWords(TreeView& TheTree, EntryKey ParentKey, qint32 /*ParentID*/,
                                      qint32 DictID) {
  std::vector<WordRow> words = WordsOf(connection_, DictID);
  const bool hasWords = !words.empty();
  AddWords(TheTree.Nodes(), wordTree_.colTreePrptys(), ParentKey, DictID, std::move(words));
  return hasWords;
}

void EditWordsFuncs::AddWords(TreeNodes& nodes, TreePrptys& records, EntryKey categoryKey,
                              qint32 DictID, std::vector<WordRow> words, TreePrptys* before) {
  for (WordRow& word : words) {
    EntryKey parentKey = categoryKey;
    if (word.fatherId != 0 && !records.GetFatherKey(DictID, word.fatherId, parentKey)) {
      skippedWords_.append(SkippedWord{DictID, word.id, word.fatherId});
      continue;
    }
    EntryKey key;
    if (before != nullptr && before->GetFatherKey(DictID, word.id, key)) {
      before->Remove(key);
    } else {
      key = NextKey();
    }
    AppendNode(nodes, parentKey, key, word.name, kWordImage, kWordTag);
    records.Add(DictID, word.id, word.fatherId, std::move(word.name), key, kWordTag, parentKey,
                key);
  }
}

void EditWordsFuncs::ReloadCategories(TreeView& TheTree) {
  struct Category {
    qint32 gid;
    qint32 position;
    QString name;
    std::vector<WordRow> words;
  };
  std::vector<Category> library;
  auto rows = std::make_unique<Recordset>();
  rows->Open(Statement::SelectCategories(), connection_, CursorType::kKeyset,
             LockType::kUnspecified);
  for (; !rows->IsEof(); rows->MoveNext()) {
    library.push_back({rows->FieldInteger("GID"),
                       rows->FieldInteger("Position"),
                       rows->FieldText("SortName"),
                       {}});
  }
  CloseRecordset(rows);
  size_t count = library.size();
  for (Category& category : library) {
    category.words = WordsOf(connection_, category.gid);
    count += category.words.size();
  }
  if (count > static_cast<size_t>(std::numeric_limits<qint32>::max() - TreeCount)) {
    throw Error(QStringLiteral("溢出"));
  }

  // From here on nothing fails. The old entries go as the new ones come, so that both never take
  // memory at the same time.
  TreeNodes& nodes = TheTree.Nodes();
  const TreeNodes::Loading loading(nodes);
  nodes.Clear(nodes.Item(kRootKey));
  skippedWords_.clear();
  DictPrptys& categoriesBefore = wordTree_.colDictPrptys();
  auto categories = std::make_unique<DictPrptys>();
  auto words = std::make_unique<TreePrptys>();
  for (Category& category : library) {
    EntryKey key;
    if (categoriesBefore.GetKey(category.gid, key)) {
      categoriesBefore.Remove(key);
    } else {
      key = NextKey();
    }
    AppendCategory(nodes, *categories, key, category.gid, category.position, category.name);
    AddWords(nodes, *words, key, category.gid, std::exchange(category.words, {}),
             &wordTree_.colTreePrptys());
  }
  wordTree_.SetcolDictPrptys(std::move(categories));
  wordTree_.SetcolTreePrptys(std::move(words));
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
