// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "outline.h"

#include <QStringList>

#include <vector>

class Connection;
class QIODevice;

// Creates the tables of the library in the data source's engine. Raises Error, having created
// nothing, when one of them exists or the engine is not known.
void CreateTables(Connection& connection);

// Adds the categories behind those of the library, in one transaction. Raises Error, having added
// nothing, at the first line that is refused (a LineError) and at any failure of the database.
void ImportLibrary(Connection& connection, const std::vector<OutlineCategory>& categories);

// `device` is not buffered. Writes every word that hangs on its category, whatever the order of the
// IDs. Returns a message for each word that does not and was left out, and for each name that
// import would refuse: one that has an equal before it, which users working at the same time can
// make, or holds a null character.
QStringList ExportLibrary(Connection& connection, QIODevice& device, bool showProgress);
