// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "error.h"
#include "key_index.h"
#include "pool.h"

#include <QString>

#include <memory>
#include <utility>

// An ordered container of records with at most one key a record, unique in the collection. A
// record is found by its key at once, by its position in a walk. Every failure is raised as Error
// and changes nothing. References to records stay valid until their record is removed.
template <class Record>
class KeyedCollection {
 public:
  KeyedCollection() = default;
  ~KeyedCollection() { Clear(); }
  KeyedCollection(const KeyedCollection&) = delete;
  KeyedCollection& operator=(const KeyedCollection&) = delete;

  // Appends `record`, without a key when `sKey` is none. Fails when the key is in use.
  Record& Append(Record record, EntryKey sKey) {
    std::unique_ptr<Entry> entry(new Entry(sKey, std::move(record), last_));
    if (!index_.Insert(*entry)) {
      throw Error(QStringLiteral("该关键字已经与该集合的一个元素相关联"));
    }
    (last_ == nullptr ? first_ : last_->next) = entry.get();
    last_ = entry.release();
    ++count_;
    return last_->record;
  }

  // The record stored under the key, or at the position counted from 1. Fails when there is none.
  Record& Item(EntryKey vntIndexKey) const { return Find(vntIndexKey).record; }
  Record& Item(qint32 vntIndexKey) const { return Find(vntIndexKey).record; }

  // Removes the record that Item would find.
  template <class IndexKey>
  void Remove(const IndexKey& vntIndexKey) {
    Delete(Find(vntIndexKey));
  }

  // Removes every record that `holds` is true for.
  template <class Predicate>
  void RemoveIf(Predicate holds) {
    for (Entry* entry = first_; entry != nullptr;) {
      Entry& examined = *std::exchange(entry, entry->next);
      if (holds(std::as_const(examined.record))) Delete(examined);
    }
  }

  void Clear() {
    index_.Clear();
    while (first_ != nullptr) delete std::exchange(first_, first_->next);
    last_ = nullptr;
    count_ = 0;
  }

  qint32 Count() const { return count_; }

  // The first record, in the order in which they were added, that `holds` is true for, or null.
  template <class Predicate>
  Record* FindFirst(Predicate holds) const {
    for (Entry* entry = first_; entry != nullptr; entry = entry->next) {
      if (holds(entry->record)) return &entry->record;
    }
    return nullptr;
  }

 private:
  // Linked by hand: a standard list could not remove an entry that was found by its key.
  struct Entry : Keyed, Pooled<Entry> {
    Entry(EntryKey key, Record added, Entry* last)
        : Keyed{key}, record(std::move(added)), previous(last) {}
    Record record;
    Entry* previous = nullptr;
    Entry* next = nullptr;
  };

  void Delete(Entry& entry) {
    index_.Remove(entry);
    (entry.previous == nullptr ? first_ : entry.previous->next) = entry.next;
    (entry.next == nullptr ? last_ : entry.next->previous) = entry.previous;
    --count_;
    delete &entry;
  }

  Entry& Find(EntryKey key) const {
    Entry* entry = index_.Find(key);
    if (entry == nullptr) throw Error(QStringLiteral("无效的过程调用或参数"));
    return *entry;
  }
  Entry& Find(qint32 position) const {
    if (position < 1 || position > count_) throw Error(QStringLiteral("下标越界"));
    Entry* entry = first_;
    while (--position > 0) entry = entry->next;
    return *entry;
  }

  Entry* first_ = nullptr;
  Entry* last_ = nullptr;
  qint32 count_ = 0;
  KeyIndex<Entry> index_;
};
