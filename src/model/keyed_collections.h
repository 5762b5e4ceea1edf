// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "keyed_collection.h"
#include "property_records.h"

#include <QSet>
#include <QString>

// The three collections of records. Every record that the program adds is stored under a key equal
// to its NodeKey. Failures are KeyedCollection's. A
// record in a collection is changed by Rename only.

// The words in the tree.
class TreePrptys {
 public:
  // The new record, under the key `sKey` unless that is empty.
  const TreePrpty& Add(qint32 DicID, qint32 ID, qint32 FatherID, const QString& NodeName,
                       const QString& NodeKey, const QString& Tag, const QString& FatherKey,
                       const QString& sKey = QString());

  // Gives the record under `TheKey` a new NodeName and returns true.
  bool Rename(const QString& TheKey, const QString& NewName);

  // Puts the NodeKey of the word `ID` of the category `DictID`, of the first one added where there
  // are several, into `FatherKey` and returns true; returns false and changes nothing when there
  // is none.
  bool GetFatherKey(qint32 DictID, qint32 ID, QString& FatherKey) const;

  const TreePrpty& Item(qint32 vntIndexKey) const { return records_.Item(vntIndexKey); }
  const TreePrpty& Item(const QString& vntIndexKey) const { return records_.Item(vntIndexKey); }
  void Remove(qint32 vntIndexKey) { Forget(records_.Item(vntIndexKey), vntIndexKey); }
  void Remove(const QString& vntIndexKey) { Forget(records_.Item(vntIndexKey), vntIndexKey); }
  qint32 Count() const { return records_.Count(); }

 private:
  // A record found by its category and ID, which do not change while it is in the collection.
  struct ByIdentity {
    const TreePrpty* record;
    friend bool operator==(ByIdentity a, ByIdentity b) noexcept {
      return a.record->ID() == b.record->ID() && a.record->DicID() == b.record->DicID();
    }
    friend size_t qHash(ByIdentity identity, size_t seed = 0) noexcept {
      return qHashMulti(seed, identity.record->DicID(), identity.record->ID());
    }
  };

  template <class IndexKey>
  void Forget(const TreePrpty& record, const IndexKey& vntIndexKey);

  KeyedCollection<TreePrpty> records_;
  // The first record added of each identity.
  QSet<ByIdentity> byIdentity_;
  // How many records share their identity with an earlier one.
  qint32 repeated_ = 0;
};

// The entries in the list.
class ListPrptys {
 public:
  void Clear() { records_.Clear(); }

  // The new record, under the key `sKey` unless that is empty; its Position stays 0.
  const ListPrpty& Add(qint32 DicID, qint32 FatherID, const QString& FatherKey, qint32 ID,
                       const QString& NodeKey, const QString& NodeName, const QString& Tag,
                       const QString& sKey = QString());

  const ListPrpty& Item(qint32 vntIndexKey) const { return records_.Item(vntIndexKey); }
  const ListPrpty& Item(const QString& vntIndexKey) const { return records_.Item(vntIndexKey); }
  qint32 Count() const { return records_.Count(); }

 private:
  KeyedCollection<ListPrpty> records_;
};

// The categories in the tree.
class DictPrptys {
 public:
  // The new record, under the key `sKey` unless that is empty.
  const DictPrpty& Add(qint32 DicID, qint32 Position, const QString& NodeKey,
                       const QString& NodeName, const QString& Tag = QString(),
                       const QString& sKey = QString());

  // Gives the record under `TheKey` a new NodeName and returns true.
  bool Rename(const QString& TheKey, const QString& NewName);

  const DictPrpty& Item(qint32 vntIndexKey) const { return records_.Item(vntIndexKey); }
  const DictPrpty& Item(const QString& vntIndexKey) const { return records_.Item(vntIndexKey); }
  void Remove(qint32 vntIndexKey) { records_.Remove(vntIndexKey); }
  void Remove(const QString& vntIndexKey) { records_.Remove(vntIndexKey); }
  qint32 Count() const { return records_.Count(); }

 private:
  KeyedCollection<DictPrpty> records_;
};
