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
  const qsizetype before = byIdentity_.size();
  byIdentity_.insert(ByIdentity{&record});  // keeps the one that is there
  if (byIdentity_.size() == before) ++repeated_;
  return record;
}

bool TreePrptys::Rename(const QString& TheKey, const QString& NewName) {
  records_.Item(TheKey).SetNodeName(NewName);
  return true;
}

bool TreePrptys::GetFatherKey(qint32 DictID, qint32 ID, QString& FatherKey) const {
  TreePrpty wanted;
  wanted.SetDicID(DictID);
  wanted.SetID(ID);
  const auto found = byIdentity_.constFind(ByIdentity{&wanted});
  if (found == byIdentity_.cend()) return false;
  FatherKey = found->record->NodeKey();
  return true;
}

template <class IndexKey>
void TreePrptys::Forget(const TreePrpty& record, const IndexKey& vntIndexKey) {
  const auto indexed = byIdentity_.constFind(ByIdentity{&record});
  const bool first = indexed->record == &record;
  if (first) byIdentity_.erase(indexed);
  const TreePrpty removed = records_.Remove(vntIndexKey);
  if (!first) {
    --repeated_;
  } else if (repeated_ > 0) {
    const TreePrpty* next = records_.FindFirst([&removed](const TreePrpty& candidate) {
      return ByIdentity{&candidate} == ByIdentity{&removed};
    });
    if (next != nullptr) {
      byIdentity_.insert(ByIdentity{next});
      --repeated_;
    }
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
