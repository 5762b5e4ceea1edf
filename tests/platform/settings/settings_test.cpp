// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "settings.h"

#include <gtest/gtest.h>

#include <clocale>

TEST(Settings, NumbersAreTheSameInEveryLocale) {
  std::setlocale(LC_NUMERIC, "de_DE.UTF-8");
  for (const char* text : {"100000", "-67.5", "1005.3333", "0.1"}) {
    EXPECT_EQ(SingleToText(TextToSingle(text, 6500)), text);
  }
  for (const char* text : {"", "abc", "1,5", "1000 twips", "nan", "inf", "1e99"}) {
    EXPECT_EQ(TextToSingle(text, 6500), 6500) << text;
  }
}
