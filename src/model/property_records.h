// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "entry_key.h"
#include "shared_text.h"

#include <QString>

#include <utility>

// The records that mirror what the tree and the list show. They hold the database identifiers of
// an entry, which the controls do not hold, beside its key, text and tag. Plain values: a new
// record has no key, no tag, no text, and every number 0.

// A word shown as a tree node.
class TreePrpty {
 public:
  // The key of the tree node that this word's node hangs under.
  void SetFatherKey(EntryKey value) { fatherKey_ = value; }
  EntryKey FatherKey() const { return fatherKey_; }

  void SetTag(EntryTag value) { tag_ = value; }
  EntryTag Tag() const { return tag_; }

  // The key of the word's tree node and of this record in its collection.
  void SetNodeKey(EntryKey value) { nodeKey_ = value; }
  EntryKey NodeKey() const { return nodeKey_; }

  void SetNodeName(SharedText value) { nodeName_ = std::move(value); }
  QString NodeName() const { return nodeName_.ToString(); }

  // The ID of the parent word in the same category; 0 for a word directly under its category.
  void SetFatherID(qint32 value) { fatherId_ = value; }
  qint32 FatherID() const { return fatherId_; }

  // Unique within the word's category only.
  void SetID(qint32 value) { id_ = value; }
  qint32 ID() const { return id_; }

  // The GID of the word's category.
  void SetDicID(qint32 value) { dicId_ = value; }
  qint32 DicID() const { return dicId_; }

 private:
  SharedText nodeName_;
  EntryKey fatherKey_;
  EntryKey nodeKey_;
  qint32 fatherId_ = 0;
  qint32 id_ = 0;
  qint32 dicId_ = 0;
  EntryTag tag_{};
};

// An entry shown as a list item.
class ListPrpty {
 public:
  void SetPosition(qint32 value) { position_ = value; }
  qint32 Position() const { return position_; }

  // The tag of the record of the entry shown: empty for a category.
  void SetTag(EntryTag value) { tag_ = value; }
  EntryTag Tag() const { return tag_; }

  void SetNodeName(QString value) { nodeName_ = std::move(value); }
  QString NodeName() const { return nodeName_; }

  // The key of the list item and of the tree node that it shows.
  void SetNodeKey(EntryKey value) { nodeKey_ = value; }
  EntryKey NodeKey() const { return nodeKey_; }

  // The word's ID; 0 for a category.
  void SetID(qint32 value) { id_ = value; }
  qint32 ID() const { return id_; }

  // As in TreePrpty for a word; empty for a category.
  void SetFatherKey(EntryKey value) { fatherKey_ = value; }
  EntryKey FatherKey() const { return fatherKey_; }

  // As in TreePrpty for a word; 0 for a category.
  void SetFatherID(qint32 value) { fatherId_ = value; }
  qint32 FatherID() const { return fatherId_; }

  // The category's GID; for a word, its category's.
  void SetDicID(qint32 value) { dicId_ = value; }
  qint32 DicID() const { return dicId_; }

 private:
  qint32 position_ = 0;
  qint32 id_ = 0;
  qint32 fatherId_ = 0;
  qint32 dicId_ = 0;
  EntryTag tag_{};
  EntryKey nodeKey_;
  EntryKey fatherKey_;
  QString nodeName_;
};

// A category shown as a tree node.
class DictPrpty {
 public:
  // Always empty.
  void SetTag(EntryTag value) { tag_ = value; }
  EntryTag Tag() const { return tag_; }

  void SetNodeName(SharedText value) { nodeName_ = std::move(value); }
  QString NodeName() const { return nodeName_.ToString(); }

  // The key of the category's tree node and of this record in its collection.
  void SetNodeKey(EntryKey value) { nodeKey_ = value; }
  EntryKey NodeKey() const { return nodeKey_; }

  // As loaded or as assigned at creation.
  void SetPosition(qint32 value) { position_ = value; }
  qint32 Position() const { return position_; }

  // The category's GID.
  void SetDicID(qint32 value) { dicId_ = value; }
  qint32 DicID() const { return dicId_; }

 private:
  EntryTag tag_{};
  EntryKey nodeKey_;
  SharedText nodeName_;
  qint32 position_ = 0;
  qint32 dicId_ = 0;
};
