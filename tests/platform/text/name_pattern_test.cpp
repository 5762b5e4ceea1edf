// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "name_pattern.h"

#include <gtest/gtest.h>

#include <tuple>

namespace {

enum Place { kNowhere, kInside, kAtTheBeginning };

TEST(NamePattern, FindsWhatIsWrittenAndWhatIsMeant) {
  const std::tuple<const char*, const char*, Place> cases[] = {
      // As it is written.
      {"", "车", kNowhere},
      {"外圆", "粗车外圆", kInside},
      {"ra0.8", "表面粗糙度Ｒａ０．８", kInside},
      {"Ａ　１", "a 1", kAtTheBeginning},
      {"ｶ", "カ", kAtTheBeginning},
      {"Φ50", "车φ５０", kInside},
      {"aab", "xaaab", kInside},
      {"𠮷野", "𠮷野家", kAtTheBeginning},
      {"𠀀", "𠮷", kNowhere},
      // In pinyin: initials and syllables, mixed with each other and with what is written.
      {"cwy", "粗车外圆", kInside},
      {"chewaiyuan", "车外圆", kAtTheBeginning},
      {"ＣｈWAIy", "车外圆", kAtTheBeginning},
      {"chew", "车外圆", kAtTheBeginning},
      {"车wy5", "车外圆50", kAtTheBeginning},
      {"che", "车", kAtTheBeginning},
      {"zhah", "张昊", kNowhere},  // only the last syllable may be begun
      {"zhh", "张昊", kAtTheBeginning},
      {"xian", "西安", kAtTheBeginning},
      {"xian", "先", kAtTheBeginning},
      {"e", "车", kNowhere},
      {"lv", "绿", kAtTheBeginning},
      {"lü", "绿", kAtTheBeginning},
      {"changd", "长度", kAtTheBeginning},
      {"zd", "长度", kAtTheBeginning},
      {"chong", "重", kAtTheBeginning},
  };
  for (const auto& [typed, name, place] : cases) {
    const NamePattern pattern(QString::fromUtf8(typed));
    const QString text = QString::fromUtf8(name);
    EXPECT_EQ(pattern.IsPartOf(text), place != kNowhere) << typed << ' ' << name;
    EXPECT_EQ(pattern.Begins(text), place == kAtTheBeginning) << typed << ' ' << name;
  }
}

}  // namespace
