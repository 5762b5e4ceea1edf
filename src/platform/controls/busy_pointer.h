// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QGuiApplication>

// While it lives, the pointer shows that the program is at work: for everything that may have to
// wait for a server or for another user. The work itself keeps the event loop from running, so the
// pointer has to change before.
class BusyPointer {
 public:
  BusyPointer() { QGuiApplication::setOverrideCursor(Qt::BusyCursor); }
  ~BusyPointer() { QGuiApplication::restoreOverrideCursor(); }
  BusyPointer(const BusyPointer&) = delete;
  BusyPointer& operator=(const BusyPointer&) = delete;
};
