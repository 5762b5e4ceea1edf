// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

class Connection;

// What the program asks of the library apart from its records. Failures of the database reach the
// caller unchanged unless said otherwise.

// Opens and closes the data source "HCWordLib".
void OpenLibrary(Connection& connection);
void CloseLibrary(Connection& connection);

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
