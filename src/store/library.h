// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared_text.h"

#include <QString>

#include <vector>

class Connection;

// A row of Items but for its SortID.
struct WordRow {
  qint32 id = 0;
  qint32 fatherId = 0;
  SharedText name;
};

// What the program asks of the library apart from its records. Failures of the database reach the
// caller unchanged unless said otherwise.

// Opens and closes the data source "HCWordLib".
void OpenLibrary(Connection& connection);
void CloseLibrary(Connection& connection);

// All words of the category DictID, by ID.
std::vector<WordRow> WordsOf(Connection& connection, qint32 DictID);

// Whether a category, or any word of the category DictID, has the name.
bool IsCategoryNameTaken(Connection& connection, const QString& SortName);
bool IsWordNameTaken(Connection& connection, const QString& NodeName, qint32 DictID);

// Whether the database still holds the category, after deleting it failed half-way perhaps. A
// database that cannot tell is taken to hold it.
bool IsCategoryStored(Connection& connection, qint32 GID);

// Whether the identifier generator can be created, and whether `reason`, with which an identifier
// was not drawn, says that it cannot.
bool IsGeneratorThere();
bool SaysNoGenerator(const QString& reason);
