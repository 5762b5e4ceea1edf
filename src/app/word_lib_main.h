// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

// The entry routine: hands over to an instance that runs already, else loads and shows the main
// window and lives on its events. Returns the program's exit status.
int Main(int argc, char** argv);
