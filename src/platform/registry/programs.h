// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

// Paths from the machine-wide tree, which separate folders by either slash.

bool FileExists(const QString& path);

// Starts the program of this full path, never through a shell and without arguments, as a process
// of its own and returns at once. Raises Error when it cannot be started.
void StartProgram(const QString& path);
