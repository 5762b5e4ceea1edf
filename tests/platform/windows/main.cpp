// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "instance_process.h"

#include <gtest/gtest.h>

#include <QApplication>

#include <cstring>

int main(int argc, char** argv) {
  if (argc == 2 && (!std::strcmp(argv[1], "instance") || !std::strcmp(argv[1], "parent"))) {
    return RunInstance(argc, argv);
  }
  const QApplication app(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
