// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "name_faults.h"

// Identifiers as wide as an engine can hold them; those of a sound library have 32 bits.

// Whether an identifier has 32 bits and others can be given behind it.
bool IsInRange(qint64 identifier);

// The name of the category for words without a category or a parent word.
QString HomeName();

struct CheckedWord {
  qint64 id;
  qint64 fatherId;
  QString name;
};

// What becomes of the row words[word].
struct WordChange {
  size_t word;
  bool goesHome;  // into the category HomeName
  qint64 id;
  qint64 fatherId;
  QString name;  // null where it stays
};

// What a category's words have used up.
struct Room {
  qint64 nextId = 1;
  Names names;
};

// Tells what is wrong with the words of the category `gid`, which stand in the order of their IDs,
// and returns what mends it. `isThere` tells whether the category is. Of a category but HomeName's,
// `room` is empty before; of that one it is `home`. A word that gets another number gets one
// behind all others, so that whoever still knows the old one changes no other word by it. Where two
// words have one number, nothing is mended: their rows cannot be told apart.
std::vector<WordChange> ExamineWords(const std::vector<CheckedWord>& words, qint64 gid,
                                     bool isThere, Room& room, Room& home, Faults& faults);
