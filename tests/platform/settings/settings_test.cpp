// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "settings.h"

#include "error.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QLocale>
#include <QTemporaryDir>

#include <clocale>

namespace {

TEST(Settings, TextsComeBackAsStoredAndAFailureIsAnError) {
  const QTemporaryDir home;
  qputenv("XDG_CONFIG_HOME", QFile::encodeName(home.path()));
  for (const char* utf8 : {"-15.5", "", "词,句 = \"库\";\\@%1", " a "}) {
    EXPECT_EQ(GetSetting("App", "Settings", QString::fromUtf8(utf8), "1000"), "1000");
    SaveSetting("App", "Settings", "Text", QString::fromUtf8(utf8));
    EXPECT_EQ(GetSetting("App", "Settings", "Text", "x"), QString::fromUtf8(utf8));
  }
  ASSERT_TRUE(QDir(home.path()).mkpath("Blocked.conf/folder"));
  EXPECT_THROW(SaveSetting("Blocked", "Settings", "Text", "x"), Error);
}

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
