// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <map>
#include <set>
#include <stdexcept>
#include <utility>

class Connection;
class ListView;
class TreeView;

// Something that must never happen has happened.
struct Fault : std::runtime_error {
  explicit Fault(const QString& what) : std::runtime_error(what.toStdString()) {}
};

// A category is (GID, 0), a word (SortID, ID).
using EntryId = std::pair<qint32, qint32>;

struct Entry {
  qint32 fatherId = 0;
  QString name;
};
using Library = std::map<EntryId, Entry>;

// What a colleague has changed, so that the tree may tell otherwise than the database.
struct Touched {
  std::set<EntryId> entries;
  std::set<qint32> goneCategories;  // with all their words

  bool Holds(EntryId id) const { return entries.contains(id) || goneCategories.contains(id.first); }
};

// What the database holds.
Library StoredLibrary(Connection& connection);

// What the tree shows. Raises Fault where a node and its record do not tell the same, where
// siblings are out of order, a picture is another kind's or a record has no node.
// A word that is added to a category that is gone gets a number that may be shown already, so the
// words of such categories are passed over.
Library ShownLibrary(TreeView& tree, const Touched& touched);

// Raises Fault unless both libraries are the same but for what a colleague has touched.
void CompareLibraries(const Library& shown, const Library& stored, const Touched& touched);

// The words that do not hang, over words of smaller numbers, on a category: no tree can show them.
std::set<EntryId> Orphans(const Library& library);

// Raises Fault unless each item of the list has its record and both tell the same.
void AuditList(ListView& list);

// Raises Fault unless at most one editor is open, and that one on the selected node.
void AuditEditor(TreeView& tree);

// For messages.
QString Describe(EntryId id);
