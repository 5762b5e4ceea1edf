// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "keyed_collection.h"
#include "pair_index.h"
#include "property_records.h"

#include <QString>

// The three collections of records. Every record that the program adds is stored under a key equal
// to its NodeKey. Failures are KeyedCollection's. A record in a collection is changed by Rename
// only.

// The words in the tree.
class TreePrptys {
 public:
  // The new record, under the key `sKey` unless that is none.
  const TreePrpty& Add(qint32 DicID, qint32 ID, qint32 FatherID, SharedText NodeName,
                       EntryKey NodeKey, EntryTag Tag, EntryKey FatherKey,
                       EntryKey sKey = EntryKey());

  // Gives the record under `TheKey` a new NodeName and returns true.
  bool Rename(EntryKey TheKey, const QString& NewName);

  // Puts the NodeKey of the word `ID` of the category `DictID`, of the first one added where there
  // are several, into `FatherKey` and returns true; returns false and changes nothing when there
  // is none.
  bool GetFatherKey(qint32 DictID, qint32 ID, EntryKey& FatherKey) const;

  const TreePrpty& Item(qint32 vntIndexKey) const { return records_.Item(vntIndexKey); }
  const TreePrpty& Item(EntryKey vntIndexKey) const { return records_.Item(vntIndexKey); }
  void Remove(qint32 vntIndexKey) { Forget(records_.Item(vntIndexKey), vntIndexKey); }
  void Remove(EntryKey vntIndexKey) { Forget(records_.Item(vntIndexKey), vntIndexKey); }
  // Removes all words of the category.
  void RemoveWordsOf(qint32 DicID);
  qint32 Count() const { return records_.Count(); }

 private:
  template <class IndexKey>
  void Forget(const TreePrpty& record, const IndexKey& vntIndexKey);

  KeyedCollection<TreePrpty> records_;
  // The first record added of each category and ID.
  PairIndex<const TreePrpty> byIdentity_;
  // How many records share their identity with an earlier one.
  qint32 repeated_ = 0;
};

// The entries in the list.
class ListPrptys {
 public:
  void Clear() { records_.Clear(); }

  // The new record, under the key `sKey` unless that is none; its Position stays 0.
  const ListPrpty& Add(qint32 DicID, qint32 FatherID, EntryKey FatherKey, qint32 ID,
                       EntryKey NodeKey, const QString& NodeName, EntryTag Tag,
                       EntryKey sKey = EntryKey());

  const ListPrpty& Item(qint32 vntIndexKey) const { return records_.Item(vntIndexKey); }
  const ListPrpty& Item(EntryKey vntIndexKey) const { return records_.Item(vntIndexKey); }
  qint32 Count() const { return records_.Count(); }

 private:
  KeyedCollection<ListPrpty> records_;
};

// The categories in the tree.
class DictPrptys {
 public:
  // The new record, under the key `sKey` unless that is none.
  const DictPrpty& Add(qint32 DicID, qint32 Position, EntryKey NodeKey, const QString& NodeName,
                       EntryTag Tag = EntryTag(), EntryKey sKey = EntryKey());

  // Gives the record under `TheKey` a new NodeName and returns true.
  bool Rename(EntryKey TheKey, const QString& NewName);

  // Puts the NodeKey of the category `DicID` into `NodeKey` and returns true; returns false and
  // changes nothing when there is none.
  bool GetKey(qint32 DicID, EntryKey& NodeKey) const;

  const DictPrpty& Item(qint32 vntIndexKey) const { return records_.Item(vntIndexKey); }
  const DictPrpty& Item(EntryKey vntIndexKey) const { return records_.Item(vntIndexKey); }
  void Remove(qint32 vntIndexKey) { records_.Remove(vntIndexKey); }
  void Remove(EntryKey vntIndexKey) { records_.Remove(vntIndexKey); }
  qint32 Count() const { return records_.Count(); }

 private:
  KeyedCollection<DictPrpty> records_;
};
