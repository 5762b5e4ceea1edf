// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "outline.h"

#include <QSet>

// What becomes of a name that is given twice: to two categories, those of the library among them,
// or to two words of one category.
enum class Duplicates {
  kRefuse,
  kSkip,    // the second one is left out with all that hangs on it
  kNumber,  // the second one gets the first of 2, 3, ... behind its name that makes it a new one
};

// Leaves out or renames, and tells the lines where `categories` have such names; those that are
// refused, or would be too long with a number, are added to `faults` instead. `taken` are the names
// of the library's categories.
std::vector<LineRemark> SettleDuplicates(std::vector<OutlineCategory>& categories,
                                         const QSet<QString>& taken, Duplicates how,
                                         std::vector<LineRemark>& faults);
