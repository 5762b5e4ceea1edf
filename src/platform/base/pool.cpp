// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "pool.h"

#include <new>
#include <utility>

namespace {

constexpr size_t kStep = 8;
// The address sanitizer is to see every object, so it gets them all from the allocator.
#ifdef __SANITIZE_ADDRESS__
constexpr size_t kLargest = 0;
#else
constexpr size_t kLargest = 128;
#endif
constexpr size_t kBlock = size_t{1} << 18;

struct Place {
  Place* next;
};

// By their size in steps.
Place* freePlaces[kLargest / kStep + 1];
// What is left of the last block.
std::byte* rest = nullptr;
size_t restBytes = 0;

}  // namespace

void* TakePooled(size_t bytes) {
  if (bytes > kLargest) return ::operator new(bytes);
  const size_t steps = (bytes + kStep - 1) / kStep;
  Place*& freePlace = freePlaces[steps];
  if (freePlace != nullptr) return std::exchange(freePlace, freePlace->next);
  const size_t size = steps * kStep;
  if (restBytes < size) {
    rest = static_cast<std::byte*>(::operator new(kBlock));
    restBytes = kBlock;
  }
  restBytes -= size;
  return std::exchange(rest, rest + size);
}

void GivePooled(void* place, size_t bytes) noexcept {
  if (bytes > kLargest) {
    ::operator delete(place);
  } else if (place != nullptr) {
    Place*& freePlace = freePlaces[(bytes + kStep - 1) / kStep];
    freePlace = ::new (place) Place{freePlace};
  }
}
