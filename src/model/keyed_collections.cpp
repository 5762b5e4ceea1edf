// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "keyed_collections.h"

#include <utility>

const TreePrpty& TreePrptys::Add(qint32 DicID, qint32 ID, qint32 FatherID, const QString& NodeName,
                                 const QString& NodeKey, const QString& Tag,
                                 const QString& FatherKey, const QString& sKey) {
  TreePrpty created;
  created.SetDicID(DicID);
  created.SetID(ID);
  created.SetFatherID(FatherID);
  created.SetNodeName(NodeName);
  created.SetNodeKey(NodeKey);
  created.SetTag(Tag);
  created.SetFatherKey(FatherKey);
  const TreePrpty& record = records_.Append(std::move(created), sKey);
  const TreePrpty*& first = byIdentity_[Identity{DicID, ID}];
  if (first == nullptr) {
    first = &record;
  } else {
    ++repeated_;
  }
  return record;
}

bool TreePrptys::Rename(const QString& TheKey, const QString& NewName) {
  records_.Item(TheKey).SetNodeName(NewName);
  return true;
}

bool TreePrptys::GetFatherKey(qint32 DictID, qint32 ID, QString& FatherKey) const {
  const TreePrpty* const record = byIdentity_.value(Identity{DictID, ID});
  if (record == nullptr) return false;
  FatherKey = record->NodeKey();
  return true;
}

template <class IndexKey>
void TreePrptys::Forget(const TreePrpty& record, const IndexKey& vntIndexKey) {
  const Identity identity{record.DicID(), record.ID()};
  const bool first = byIdentity_.value(identity) == &record;
  records_.Remove(vntIndexKey);
  if (!first) {
    --repeated_;
    return;
  }
  byIdentity_.remove(identity);
  if (repeated_ == 0) return;
  const TreePrpty* const next = records_.FindFirst([identity](const TreePrpty& candidate) {
    return Identity{candidate.DicID(), candidate.ID()} == identity;
  });
  if (next != nullptr) {
    byIdentity_.insert(identity, next);
    --repeated_;
  }
}

template void TreePrptys::Forget(const TreePrpty&, const QString&);
template void TreePrptys::Forget(const TreePrpty&, const qint32&);

const ListPrpty& ListPrptys::Add(qint32 DicID, qint32 FatherID, const QString& FatherKey, qint32 ID,
                                 const QString& NodeKey, const QString& NodeName,
                                 const QString& Tag, const QString& sKey) {
  ListPrpty created;
  created.SetDicID(DicID);
  created.SetFatherID(FatherID);
  created.SetFatherKey(FatherKey);
  created.SetID(ID);
  created.SetNodeKey(NodeKey);
  created.SetNodeName(NodeName);
  created.SetTag(Tag);
  return records_.Append(std::move(created), sKey);
}

const DictPrpty& DictPrptys::Add(qint32 DicID, qint32 Position, const QString& NodeKey,
                                 const QString& NodeName, const QString& Tag, const QString& sKey) {
  DictPrpty created;
  created.SetDicID(DicID);
  created.SetPosition(Position);
  created.SetNodeKey(NodeKey);
  created.SetNodeName(NodeName);
  created.SetTag(Tag);
  return records_.Append(std::move(created), sKey);
}

bool DictPrptys::Rename(const QString& TheKey, const QString& NewName) {
  records_.Item(TheKey).SetNodeName(NewName);
  return true;
}
