// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "event_guard.h"

#include "log.h"
#include "message_box.h"

#include <QApplication>

#include <cstdio>
#include <cstdlib>

void EndProgram() {
  std::fflush(nullptr);
  std::_Exit(EXIT_FAILURE);
}

void ReportErrorAndEnd(const QString& description) {
  qCCritical(lcHCWordLib, "%s", qUtf8Printable(description));
  MsgBox(QApplication::activeWindow(), description, MsgBoxButtons::kOkOnly, MsgBoxIcon::kCritical);
  EndProgram();
}
