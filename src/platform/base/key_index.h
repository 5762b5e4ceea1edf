// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "entry_key.h"
#include "pair_index.h"

// What a KeyIndex finds: an object with a key that does not change while it is indexed.
struct Keyed {
  EntryKey key;
};

// Finds objects of type T, which derives from Keyed, by their key. It owns none of them.
template <class T>
class KeyIndex {
 public:
  // Null when there is none.
  T* Find(EntryKey key) const { return objects_.Find(0, key.Place()); }

  // False, and nothing done, when the key is in use.
  bool Insert(T& object) {
    const Keyed& keyed = object;
    return objects_.Insert(0, keyed.key.Place(), object);
  }
  void Remove(const T& object) {
    const Keyed& keyed = object;
    objects_.Remove(0, keyed.key.Place());
  }
  void Clear() { objects_.Clear(); }

 private:
  PairIndex<T> objects_;
};
