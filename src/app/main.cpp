// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "command_line.h"
#include "word_lib_main.h"

int main(int argc, char** argv) {
  const std::optional<int> status = AnswerCommandLine(argc, argv);
  return status ? *status : Main(argc, argv);
}
