// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

// The identifier generator's operations: Generate makes a new 128-bit GUID inside the component,
// Part1 to Part4 hand it out in 32-bit quarters.
class GUIDGen {
 public:
  virtual ~GUIDGen() = default;

  virtual void Generate() = 0;
  virtual qint32 Part1() const = 0;
  virtual qint32 Part2() const = 0;
  virtual qint32 Part3() const = 0;
  virtual qint32 Part4() const = 0;
};
