// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "registry.h"

using RegistryKeys = QMap<QString, RegistryValues>;  // by the path in lower case

// Adds the keys and values of the file that `keys` does not hold yet. A file that does not exist
// adds nothing; lines that cannot be read are named on standard error and left out. False, and said
// there, when something is there that is no regular file or cannot be read.
bool ReadRegistryFile(const QString& path, RegistryKeys& keys);

RegistryValue TextValue(const QString& text);
