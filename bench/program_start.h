// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <xcb/xcb.h>
#include <optional>

// Starts the program as its user does and watches from outside. Needs an X display with a window
// manager and no other windows.
class ProgramStart {
 public:
  ProgramStart();
  ~ProgramStart();
  ProgramStart(const ProgramStart&) = delete;
  ProgramStart& operator=(const ProgramStart&) = delete;

  struct Result {
    double milliseconds;           // until the window is painted
    double peakMegabytes;          // of memory, until then
    double processorMilliseconds;  // that the process has used until then
  };
  // Starts `program`, waits until its window has been painted and closes it again. Nothing when it
  // could not be started or did not end well.
  std::optional<Result> Measure(const QString& program);

 private:
  xcb_window_t ClientWindow() const;
  bool IsPainted(xcb_window_t window) const;
  void Close(xcb_window_t window) const;
  xcb_atom_t Atom(const char* name) const;

  xcb_connection_t* connection_;
  xcb_window_t root_ = XCB_WINDOW_NONE;
};
