// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringView>

#include <algorithm>

// The most characters of a name, as the tables of the library take them.
inline constexpr qsizetype kMostCharacters = 4000;

// The number of characters (Unicode code points) of a text: a surrogate pair is one.
inline qsizetype Characters(QStringView text) {
  return std::count_if(text.begin(), text.end(), [](QChar c) { return !c.isLowSurrogate(); });
}

// A name as a message quotes it, which a long one would fill.
inline QString Shortened(const QString& name) {
  constexpr qsizetype kMost = 40;
  if (name.size() <= kMost) return name;
  return name.first(name[kMost - 1].isHighSurrogate() ? kMost - 1 : kMost) + u'…';
}

// Whether a line ends with it: line feed, carriage return and what Unicode adds to them.
bool IsLineBreak(QChar c);

// What of a text that comes in from elsewhere can be part of a name. Breaks and tabs are trimmed
// from its ends, a run of them inside becomes a blank; halves of surrogate pairs and null
// characters go.
QString OnOneLine(QStringView text);
