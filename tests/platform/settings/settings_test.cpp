// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "settings.h"

#include <gtest/gtest.h>

#include <QLocale>

#include <clocale>

namespace {

TEST(Settings, NumbersAreTheSameInEveryLocale) {
  const std::pair<float, const char*> cases[] = {
      {100000, "100000"}, {-67.5F, "-67.5"}, {1005.3333F, "1005.3333"}, {0.1F, "0.1"}};
  std::setlocale(LC_NUMERIC, "de_DE.UTF-8");
  QLocale::setDefault(QLocale(QLocale::German));
  for (const auto& [number, text] : cases) {
    EXPECT_EQ(SingleToText(number), text);
    EXPECT_EQ(TextToSingle(text, 6500), number);
  }
  for (const char* text : {"", "abc", "1,5", "1000 twips", "nan", "inf", "1e99"}) {
    EXPECT_EQ(TextToSingle(text, 6500), 6500) << text;
  }
}

}  // namespace
