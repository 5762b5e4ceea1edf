// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include <QCoreApplication>

#include <gmock/gmock.h>

int main(int argc, char** argv) {
  // Makes the process's encoding UTF-8.
  const QCoreApplication application(argc, argv);
  testing::InitGoogleMock(&argc, argv);
  return RUN_ALL_TESTS();
}
