// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "entry_key.h"

#include <array>
#include <memory>
#include <vector>

// What a KeyIndex finds: an object with a key that does not change while it is indexed.
struct Keyed {
  EntryKey key;
};

// Finds objects of type T, which derives from Keyed, by their key. It owns none of them. The
// objects stand in pages by their key's place, which is close to the next one's.
template <class T>
class KeyIndex {
 public:
  // Null when there is none, as for no key.
  T* Find(EntryKey key) const {
    const size_t page = PageOf(key);
    return page < pages_.size() && pages_[page] ? pages_[page]->objects[SlotOf(key)] : nullptr;
  }

  // False, and nothing done, when the key is in use. An object without a key is not indexed.
  bool Insert(T& object) {
    const Keyed& keyed = object;
    if (keyed.key.IsNone()) return true;
    const size_t number = PageOf(keyed.key);
    if (number >= pages_.size()) pages_.resize(number + 1);
    if (!pages_[number]) pages_[number] = std::make_unique<Page>();
    T*& place = pages_[number]->objects[SlotOf(keyed.key)];
    if (place != nullptr) return false;
    place = &object;
    ++pages_[number]->count;
    return true;
  }

  // Nothing is done when it is not indexed.
  void Remove(const T& object) {
    const Keyed& keyed = object;
    if (Find(keyed.key) != &object) return;
    std::unique_ptr<Page>& page = pages_[PageOf(keyed.key)];
    page->objects[SlotOf(keyed.key)] = nullptr;
    if (--page->count == 0) page.reset();
  }

  void Clear() { pages_.clear(); }

 private:
  static constexpr size_t kPageSlots = 512;
  struct Page {
    std::array<T*, kPageSlots> objects{};
    size_t count = 0;
  };

  static size_t PageOf(EntryKey key) { return static_cast<quint32>(key.Place()) / kPageSlots; }
  static size_t SlotOf(EntryKey key) { return static_cast<quint32>(key.Place()) % kPageSlots; }

  std::vector<std::unique_ptr<Page>> pages_;
};
