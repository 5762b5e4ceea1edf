// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

// Makes an embedded library with its data source `dsn` for the user who runs this, who alone may
// read them, and returns what was made, a line each. `file` is the library's; when it is empty, the
// library is library.sqlite in the user's data folder, and one that is there already only gets its
// data source. Raises Error, having made nothing, when the data source or anything else that is to
// be made exists.
QString MakeEmbeddedLibrary(const QString& dsn, const QString& file, bool withSample);
