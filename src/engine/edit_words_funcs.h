// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "entry_key.h"
#include "outline.h"
#include "paste_store.h"
#include "shared_text.h"

#include <QList>
#include <QString>

#include <optional>
#include <vector>

class Connection;
class DataBaseFuncs;
class ListView;
class Node;
class Recordset;
class TreeNodes;
class TreePrptys;
class TreeView;
class WordTree;
struct DeletedBranch;
struct DeletedRows;
struct WordRow;

// The editing engine: gives every entry of the tree and the list its key and tag, loads the
// library and finds free default names. Failures of the database, the collections and the controls
// reach the caller unchanged.
class EditWordsFuncs {
 public:
  // Both must outlive this object.
  EditWordsFuncs(Connection& connection, WordTree& wordTree);

  // Adds a node as the last child of the node keyed ParentKey and returns its key. With Visible 1
  // the node is selected and scrolled into view.
  EntryKey AddNode(TreeView& TheTree, EntryKey ParentKey, const QString& NodeText, qint32 NodeIcon,
                   EntryTag NodeTag, qint32 Visible = 0);

  // Appends an item under the key TheKey and returns that.
  EntryKey AddListItem(ListView& TheList, const QString& NodeText, qint32 ListIcon,
                       EntryTag ListTag, EntryKey TheKey);

  // Loads the whole library under the root node, which is selected and collapsed afterwards. An
  // empty library leaves the tree as it is.
  void LoadCategories(TreeView& TheTree);

  // Reads the library again and puts it in the place of all that is below the root. What is still
  // stored keeps its key. All is read before anything changes, so that nothing has when reading
  // fails. Afterwards all nodes are collapsed and none is selected.
  void ReloadCategories(TreeView& TheTree);

  // Loads the categories of TheTable, a record set over Dictionary, with their words, in the order
  // of its rows. False when it has none. TheTable stays open. Afterwards all nodes are collapsed
  // and none is selected.
  bool OpenAddNodes(TreeView& TheTree, Recordset& TheTable);

  // Loads all words of the category DictID under its node, keyed ParentKey. False when it has
  // none. ParentID is not used.
  bool OpenFastAddWords(TreeView& TheTree, EntryKey ParentKey, qint32 ParentID, qint32 DictID);

  // Why the tree has no place for a branch whose rows are to be stored again; empty when it has.
  QString BranchHindrance(const TreeView& TheTree, const DeletedRows& rows);
  // Adds the nodes of a branch whose rows are stored again, collapsed, where it stood among its
  // siblings. `stored` has all words of its category by ID: those that have come to hang below it
  // meanwhile belong to it. Returns its top; null when the tree shows nothing of it, because its
  // top's row was gone before it was deleted.
  Node* AddBranch(TreeView& TheTree, const DeletedBranch& branch,
                  const std::vector<WordRow>& stored);

  // The words that the last load left out because no word read before them is their parent.
  struct SkippedWord {
    qint32 DictID;
    qint32 ID;
    qint32 FatherID;
  };
  const QList<SkippedWord>& SkippedWords() const { return skippedWords_; }

  // Stores the entries of `outline` in its order, below the category or word keyed ParentKey, where
  // all are words, or below the root, and shows them in the tree and the records. An entry whose
  // name is taken is skipped: what is below it goes below the one that is there when that is at the
  // same place, and is skipped with it when not. The first line that is at fault or cannot be
  // stored is the end; what was stored before it stays.
  struct Pasted {
    qsizetype categories = 0;
    qsizetype words = 0;
    qsizetype skipped = 0;
    // The line is 0 when nothing at all was stored for a reason that lies in none.
    std::optional<LineRemark> failure;
  };
  Pasted Paste(TreeView& TheTree, EntryKey ParentKey, const Outline& outline, DataBaseFuncs& rows);

  // A name that no category has, and one that no word of the category DictID has at any level.
  QString TreeDictNewName();
  QString TreeWordNewName(qint32 DictID);

 private:
  // Adds the words of the category DictID, in the order of their numbers, under its node. Where
  // they had records before, which `before` holds, their keys are taken over from there.
  void AddWords(TreeNodes& nodes, TreePrptys& records, EntryKey categoryKey, qint32 DictID,
                std::vector<WordRow> words, TreePrptys* before = nullptr);
  void AddBranches(TreeNodes& nodes, const PasteStore::Category& category);
  EntryKey NextKey();
  // The key of the node that the branch hangs under, of none or of no node when that is gone.
  EntryKey ParentOf(const DeletedRows& rows);
  QString FreeName(const QString& statement, const QString& base,
                   QString (*criterion)(const QString&));

  Connection& connection_;
  WordTree& wordTree_;
  // The number in the next node's key.
  qint32 TreeCount = 0;
  QList<SkippedWord> skippedWords_;
};
