// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <new>
#include <utility>

// Base of a class T that has hundreds of thousands of objects: they are created side by side in
// blocks, without the allocator's time and bytes for each. The place of a deleted object serves the
// next one; blocks are not given back. Used by one thread. The address sanitizer is to see every
// object, so it gets them from the allocator.
template <class T>
class Pooled {
#ifndef __SANITIZE_ADDRESS__
 public:
  static void* operator new(size_t) {
    if (free_ == nullptr) AddBlock();
    return std::exchange(free_, free_->next);
  }
  static void operator delete(void* object) noexcept {
    if (object != nullptr) free_ = ::new (object) Place{free_};
  }

 private:
  struct Place {
    Place* next;
  };

  static void AddBlock() {
    constexpr size_t kObjects = 256;
    auto* const block = static_cast<std::byte*>(::operator new(kObjects * sizeof(T)));
    for (size_t i = kObjects; i-- > 0;) free_ = ::new (block + i * sizeof(T)) Place{free_};
  }

  inline static Place* free_ = nullptr;
#endif
};
