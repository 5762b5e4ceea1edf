// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "run_tests.h"

#include <QApplication>

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  // Closing a test's window must not end the event loops of the next.
  QApplication::setQuitOnLastWindowClosed(false);
  testing::InitGoogleTest(&argc, argv);
  return RunTests();
}
