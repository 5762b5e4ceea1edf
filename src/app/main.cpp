// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "word_lib_main.h"

int main(int argc, char** argv) {
  return Main(argc, argv);
}
