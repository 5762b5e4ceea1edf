// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "keyed_collections.h"

#include <utility>

const TreePrpty& TreePrptys::Add(qint32 DicID, qint32 ID, qint32 FatherID, SharedText NodeName,
                                 EntryKey NodeKey, EntryTag Tag, EntryKey FatherKey,
                                 EntryKey sKey) {
  TreePrpty created;
  created.SetDicID(DicID);
  created.SetID(ID);
  created.SetFatherID(FatherID);
  created.SetNodeName(std::move(NodeName));
  created.SetNodeKey(NodeKey);
  created.SetTag(Tag);
  created.SetFatherKey(FatherKey);
  const TreePrpty& record = records_.Append(std::move(created), sKey);
  if (!byIdentity_.Insert(DicID, ID, record)) ++repeated_;
  return record;
}

bool TreePrptys::Rename(EntryKey TheKey, const QString& NewName) {
  records_.Item(TheKey).SetNodeName(NewName);
  return true;
}

bool TreePrptys::GetFatherKey(qint32 DictID, qint32 ID, EntryKey& FatherKey) const {
  const TreePrpty* const record = byIdentity_.Find(DictID, ID);
  if (record == nullptr) return false;
  FatherKey = record->NodeKey();
  return true;
}

template <class IndexKey>
void TreePrptys::Forget(const TreePrpty& record, const IndexKey& vntIndexKey) {
  const qint32 dicId = record.DicID();
  const qint32 id = record.ID();
  const bool first = byIdentity_.Find(dicId, id) == &record;
  records_.Remove(vntIndexKey);
  if (!first) {
    --repeated_;
    return;
  }
  byIdentity_.Remove(dicId, id);
  if (repeated_ == 0) return;
  const TreePrpty* const next = records_.FindFirst([dicId, id](const TreePrpty& candidate) {
    return candidate.DicID() == dicId && candidate.ID() == id;
  });
  if (next != nullptr) {
    byIdentity_.Insert(dicId, id, *next);
    --repeated_;
  }
}

template void TreePrptys::Forget(const TreePrpty&, const EntryKey&);
template void TreePrptys::Forget(const TreePrpty&, const qint32&);

void TreePrptys::RemoveWordsOf(qint32 DicID) {
  records_.RemoveIf([this, DicID](const TreePrpty& record) {
    if (record.DicID() != DicID) return false;
    if (byIdentity_.Find(DicID, record.ID()) == &record) {
      byIdentity_.Remove(DicID, record.ID());
    } else {
      --repeated_;
    }
    return true;
  });
}

const ListPrpty& ListPrptys::Add(qint32 DicID, qint32 FatherID, EntryKey FatherKey, qint32 ID,
                                 EntryKey NodeKey, const QString& NodeName, EntryTag Tag,
                                 EntryKey sKey) {
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

const DictPrpty& DictPrptys::Add(qint32 DicID, qint32 Position, EntryKey NodeKey,
                                 const QString& NodeName, EntryTag Tag, EntryKey sKey) {
  DictPrpty created;
  created.SetDicID(DicID);
  created.SetPosition(Position);
  created.SetNodeKey(NodeKey);
  created.SetNodeName(NodeName);
  created.SetTag(Tag);
  return records_.Append(std::move(created), sKey);
}

bool DictPrptys::Rename(EntryKey TheKey, const QString& NewName) {
  records_.Item(TheKey).SetNodeName(NewName);
  return true;
}

bool DictPrptys::GetKey(qint32 DicID, EntryKey& NodeKey) const {
  const DictPrpty* const record = records_.FindFirst(
      [DicID](const DictPrpty& candidate) { return candidate.DicID() == DicID; });
  if (record == nullptr) return false;
  NodeKey = record->NodeKey();
  return true;
}
