// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "duplicates.h"

#include <QStringList>

#include <vector>

class Connection;
class QIODevice;

// Whether all tables of the library are there.
bool TablesExist(Connection& connection);

// Creates the tables of the library in the data source's engine. Raises Error, having created
// nothing, when one of them exists or the engine is not known.
void CreateTables(Connection& connection);

struct Imported {
  qsizetype categories = 0;
  qsizetype words = 0;
  std::vector<LineRemark> duplicates;  // those left out or renamed
};

// Adds the categories behind those of the library, in one transaction. Raises Error, having added
// nothing, with all faults of the outline, for a line that the database refuses, and at any failure
// of the database.
Imported ImportLibrary(Connection& connection, Outline outline, Duplicates how);

// `device` is not buffered. Writes every word that hangs on its category, whatever the order of the
// IDs. Returns a message for each word that does not and was left out, and for each name that
// import would refuse: one that has an equal before it, which users working at the same time can
// make, or holds a null character.
QStringList ExportLibrary(Connection& connection, QIODevice& device, bool showProgress);
