// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "fault.h"

class Connection;

struct Checked {
  qsizetype categories = 0;
  qsizetype words = 0;
  Faults faults;  // of the tables, the categories and the words
};

// Reads the whole library, in one state where the engine isolates it so, and changes nothing.
// Failures of the database are raised as DatabaseError.
Checked CheckLibrary(Connection& connection);

struct Repaired {
  Faults mended;
  Checked left;  // the library afterwards
};

// Mends what can be mended, in one transaction in which nobody else writes. Raises Error, the
// library being as it was, when anything is refused, or when a word would be lost. MariaDB cannot
// have triggers, indexes, collations and storage engines in a transaction: there they come first,
// and stay.
Repaired RepairLibrary(Connection& connection);
