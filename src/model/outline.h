// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "error.h"

#include <QByteArray>
#include <QString>

#include <vector>

// The library as a text file: UTF-8, one category per unindented line, the words below it indented
// by one tab a level. What a line cannot hold stands in a name as an escape: \\ for the backslash,
// \n, \r, \t, \uXXXX for a UTF-16 unit; \e alone is the empty name.

struct OutlineWord {
  QString name;   // null where the line is refused
  qint32 parent;  // number of the parent word, words counted from 1; 0 directly under the category
  int line;
};

struct OutlineCategory {
  QString name;  // null where the line is refused
  int line;
  std::vector<OutlineWord> words;  // each behind its parent
};

// What there is to say about the line `line` of an outline, counted from 1.
struct LineRemark {
  int line;
  QString text;
};

// The first 50 remarks in the order of their lines, one a line, and how many more there are.
QString TextOf(std::vector<LineRemark> remarks);

struct Outline {
  std::vector<OutlineCategory> categories;  // or, where it was taken from below one, words
  std::vector<LineRemark> faults;           // of lines that are malformed or whose name is too long
};

// Reads a whole outline, in UTF-8 or, with a byte order mark, in UTF-16. Raises Error for a text
// that cannot be read at all.
Outline ParseOutline(const QByteArray& text);

// Reads a text that was not written as an outline: lines that somebody has typed, the cells of a
// spreadsheet. A line hangs on the last one before it that is less indented, by however many tabs;
// of the cells of a spreadsheet's row (see CellReader) the first one with a text counts, those
// before it being such tabs. A name is put on one line; a backslash in it is just that. What has no
// text is passed over; a fault is a name that is too long.
Outline ParseList(const QString& text);

// Appends the line of a category (depth 0) or of a word.
void AppendOutlineLine(QByteArray& text, qsizetype depth, const QString& name);
