// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

class Connection;

struct Copied {
  qsizetype categories = 0;
  qsizetype words = 0;
};

// Copies the library as it is at one moment, with all numbers, into the empty tables of `target`,
// made where there is none, and compares both sides row by row, in one transaction. New categories
// get identifiers there that neither side has ever given. Raises Error, having copied nothing, when
// the tables are not empty, when words of the source hang on nothing, for a name that the target
// does not take, and at any failure of a database; tables that were made stay, empty.
Copied CopyLibrary(Connection& source, Connection& target);
