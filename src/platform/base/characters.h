// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringView>

#include <algorithm>

// The most characters of a name, as the tables of the library take them.
inline constexpr qsizetype kMostCharacters = 4000;

// The number of characters (Unicode code points) of a text: a surrogate pair is one.
inline qsizetype Characters(QStringView text) {
  return std::count_if(text.begin(), text.end(), [](QChar c) { return !c.isLowSurrogate(); });
}
