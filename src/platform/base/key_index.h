// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "compact_text.h"
#include "pair_index.h"

// What a KeyIndex finds: an object with a key that does not change while it is indexed.
struct Keyed {
  CompactText key;
};

// Finds objects of type T, which derives from Keyed, by their key. It owns none of them.
template <class T>
class KeyIndex {
 public:
  // Null when there is none.
  T* Find(CompactText key) const { return objects_.Find(key.Word(), key.Number()); }

  // False, and nothing done, when the key is in use.
  bool Insert(T& object) {
    const Keyed& keyed = object;
    return objects_.Insert(keyed.key.Word(), keyed.key.Number(), object);
  }
  void Remove(const T& object) {
    const Keyed& keyed = object;
    objects_.Remove(keyed.key.Word(), keyed.key.Number());
  }
  void Clear() { objects_.Clear(); }

 private:
  PairIndex<T> objects_;
};
