// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

class Report;

// Loads the library into a main window of this process, which has a QApplication and no other main
// window, and measures how F5 reads it again; then leaves the category `kept` alone in it and
// measures what a hundred times more leave in memory.
void MeasureReload(int kept, Report& report);
