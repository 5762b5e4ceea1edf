// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "fault.h"

#include <QStringList>

class Connection;

// What is wrong with the tables themselves: triggers and indexes that are missing or not those of
// the schema, missing keys, a text encoding without Chinese, an engine of MariaDB's without
// transactions, a collation of MariaDB's under which different names are equal.
struct Structure {
  Faults faults;
  QStringList statements;  // that mend them
};

Structure ExamineStructure(Connection& connection);

// The register that gives the identifiers of new categories.
struct Register {
  bool countsUp = true;   // whether the database does give them
  bool isVisible = true;  // whether the account may know what follows
  qint64 counter = 0;     // the identifier that it gave last
};

Register ExamineRegister(Connection& connection);
// Has it go on behind `last`.
void AdvanceRegister(Connection& connection, qint64 last);
