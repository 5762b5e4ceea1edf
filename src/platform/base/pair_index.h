// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

#include <array>
#include <unordered_map>
#include <utility>

// Finds objects of type T, which it does not own, by two numbers of which the second mostly counts
// up. It keeps them in pages of neighbours, about ten bytes an object, so that adding them in turn
// stays within the processor's caches.
template <class T>
class PairIndex {
 public:
  PairIndex() = default;
  PairIndex(const PairIndex&) = delete;
  PairIndex& operator=(const PairIndex&) = delete;

  // Null when there is none.
  T* Find(qint32 first, qint32 second) const {
    const auto page = pages_.find(PageNumber(first, second));
    return page == pages_.end() ? nullptr : page->second.objects[Slot(second)];
  }

  // False, and nothing done, when there is an object already.
  bool Insert(qint32 first, qint32 second, T& object) {
    const quint64 number = PageNumber(first, second);
    if (filled_ == nullptr || filled_->first != number)
      filled_ = &*pages_.try_emplace(number).first;
    T*& place = filled_->second.objects[Slot(second)];
    if (place != nullptr) return false;
    place = &object;
    ++filled_->second.count;
    return true;
  }

  // Nothing is done when there is none.
  void Remove(qint32 first, qint32 second) {
    const auto page = pages_.find(PageNumber(first, second));
    if (page == pages_.end() || page->second.objects[Slot(second)] == nullptr) return;
    page->second.objects[Slot(second)] = nullptr;
    if (--page->second.count > 0) return;
    filled_ = nullptr;
    pages_.erase(page);
  }

  void Clear() {
    filled_ = nullptr;
    pages_.clear();
  }

 private:
  static constexpr unsigned kSlotBits = 8;
  struct Page {
    std::array<T*, 1 << kSlotBits> objects{};
    int count = 0;
  };

  static size_t Slot(qint32 second) {
    return static_cast<quint32>(second) & ((1U << kSlotBits) - 1);
  }
  static quint64 PageNumber(qint32 first, qint32 second) {
    return quint64{static_cast<quint32>(first)} << 32 | static_cast<quint32>(second) >> kSlotBits;
  }

  std::unordered_map<quint64, Page> pages_;
  // The page that the last object came to.
  std::pair<const quint64, Page>* filled_ = nullptr;
};
