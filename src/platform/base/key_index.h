// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "compact_text.h"

#include <QSet>

#include <type_traits>

// What a KeyIndex finds: an object with a key that does not change while it is indexed.
struct Keyed {
  CompactText key;
};

// Finds objects of type T, which derives from Keyed, by their key. It owns none of them and costs
// about 15 bytes an object.
template <class T>
class KeyIndex {
 public:
  T* Find(QStringView key) const {
    const Keyed probe{CompactText(key)};
    const auto it = refs_.constFind(Ref{&probe});
    return it == refs_.cend() ? nullptr : const_cast<T*>(static_cast<const T*>(it->keyed));
  }

  // False, and nothing done, when the key is in use.
  bool Insert(const T& object) {
    return refs_.insert(Ref{&object})->keyed == &object;  // else the one that was there
  }
  void Remove(const T& object) { refs_.remove(Ref{&object}); }
  void Clear() { refs_.clear(); }

 private:
  struct Ref {
    const Keyed* keyed;
    friend bool operator==(Ref a, Ref b) noexcept { return a.keyed->key == b.keyed->key; }
    friend size_t qHash(Ref ref, size_t seed = 0) noexcept { return qHash(ref.keyed->key, seed); }
  };

  QSet<Ref> refs_;
};
