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
#include <cmath>
#include <limits>

namespace {

const QString kApp = QStringLiteral("HCWordLib");
const QString kSection = QStringLiteral("Settings");

QString ConfigFile(const QString& name) {
  return qEnvironmentVariable("XDG_CONFIG_HOME") + QLatin1Char('/') + name;
}

TEST(Settings, TextsComeBackAsTheyWereStored) {
  EXPECT_EQ(GetSetting(kApp, kSection, QStringLiteral("Nothing"), QStringLiteral("1000")),
            QStringLiteral("1000"));
  for (const char* utf8 : {"1000", "-15.5", "", "词,句 = \"库\";\\@%1", " a "}) {
    const QString text = QString::fromUtf8(utf8);
    SaveSetting(kApp, kSection, QStringLiteral("Text"), text);
    EXPECT_EQ(GetSetting(kApp, kSection, QStringLiteral("Text"), QStringLiteral("x")), text);
  }
  SaveSetting(kApp, kSection, QStringLiteral("MainLeft"), QStringLiteral("1000"));
  QFile file(ConfigFile(QStringLiteral("HCWordLib.conf")));
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const QByteArray content = file.readAll();
  EXPECT_TRUE(content.contains("[Settings]\n") && content.contains("\nMainLeft=1000\n"))
      << content.data();
}

TEST(Settings, AStoreThatCannotBeWrittenIsAnError) {
  ASSERT_TRUE(QDir().mkpath(ConfigFile(QStringLiteral("Blocked.conf/folder"))));
  EXPECT_THROW(SaveSetting(QStringLiteral("Blocked"), kSection, QStringLiteral("Key"), kApp),
               Error);
}

TEST(Settings, NumbersAreTheSameInEveryLocale) {
  const std::pair<float, QString> cases[] = {{1000, "1000"},     {0, "0"},
                                             {-67.5F, "-67.5"},  {1005.3333F, "1005.3333"},
                                             {100000, "100000"}, {0.1F, "0.1"}};
  const float fallback = 6500;
  for (const char* locale : {"C", "de_DE.UTF-8", "fr_FR.UTF-8"}) {
    std::setlocale(LC_NUMERIC, locale);
    QLocale::setDefault(QLocale(QString::fromLatin1(locale)));
    for (const auto& [number, text] : cases) {
      EXPECT_EQ(SingleToText(number), text);
      EXPECT_EQ(TextToSingle(text, fallback), number);
    }
    for (const float number :
         {1.0F / 3, 1e9F, std::nextafterf(1000, 2000), std::numeric_limits<float>::max(),
          std::numeric_limits<float>::min()}) {
      EXPECT_EQ(TextToSingle(SingleToText(number), fallback), number);
    }
    EXPECT_EQ(TextToSingle(QStringLiteral(" 1.5e3 "), fallback), 1500);
    for (const char* text : {"", "abc", "1,5", "1000 twips", "nan", "inf", "1e99"}) {
      EXPECT_EQ(TextToSingle(QString::fromLatin1(text), fallback), fallback) << text;
    }
  }
  std::setlocale(LC_NUMERIC, "C");
}

}  // namespace

int main(int argc, char** argv) {
  const QTemporaryDir home;
  qputenv("XDG_CONFIG_HOME", QFile::encodeName(home.path()));
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
