// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

class Library;
class Report;

// The categories that the window's work is measured on, each by its number.
struct WorkCategories {
  // Adds them to the library.
  explicit WorkCategories(Library& library);

  qint32 flat;      // 100,000 words directly below it
  qint32 doomed;    // 20,000 words directly below it
  qint32 defaults;  // 20,000 default names
  // One word with 5,000 words below it: one for the program, one for the bare statements.
  qint32 nested;
  qint32 nestedTwin;
};

// Loads the library into the main window, in this process, and measures what a user does there, by
// the events that the user's mouse and keyboard would make. Raises Error when the window does not
// answer as it should.
void MeasureWindowWork(int argc, char** argv, const WorkCategories& categories, Report& report);
