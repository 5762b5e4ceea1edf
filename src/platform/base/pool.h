// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>

// Memory for hundreds of thousands of small objects, taken side by side from large blocks, without
// the allocator's time and bytes for each. What is given back serves the next object of that size;
// blocks are kept. Used by one thread.
void* TakePooled(size_t bytes);
// `place` came from TakePooled(bytes).
void GivePooled(void* place, size_t bytes) noexcept;

// Base of a class T whose objects are created there.
template <class T>
class Pooled {
 public:
  static void* operator new(size_t) { return TakePooled(sizeof(T)); }
  static void operator delete(void* object) noexcept { GivePooled(object, sizeof(T)); }
};
