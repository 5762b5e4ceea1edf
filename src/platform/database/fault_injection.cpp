// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "fault_injection.h"

#include "database_error.h"

namespace {
int g_stepsToFault = 0;
}

void FailDatabaseStep(int n) {
  g_stepsToFault = n;
}

bool IsDatabaseFaultPending() {
  return g_stepsToFault > 0;
}

void TakeDatabaseStep() {
  if (g_stepsToFault > 0 && --g_stepsToFault == 0) {
    throw DatabaseError(QStringLiteral("injected fault"), QStringLiteral("HY000"), 0);
  }
}
