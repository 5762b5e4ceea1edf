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
  QString name;
  qint32 parent;  // number of the parent word, words counted from 1; 0 directly under the category
  int line;
};

struct OutlineCategory {
  QString name;
  int line;
  std::vector<OutlineWord> words;  // each behind its parent
};

// An error in the line `line` of an outline, counted from 1.
Error LineError(int line, const QString& reason);

// Reads a whole outline. Raises LineError at the first line that is malformed or whose name is
// longer than the tables take or given twice: to two categories, or to two words of one category.
std::vector<OutlineCategory> ParseOutline(const QByteArray& text);

// Appends the line of a category (depth 0) or of a word.
void AppendOutlineLine(QByteArray& text, qsizetype depth, const QString& name);
