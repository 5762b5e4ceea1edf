// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "compact_text.h"

#include <gtest/gtest.h>

#include <QList>

namespace {

TEST(CompactText, GivesBackEveryTextAndTellsAllApart) {
  QList<QString> texts = {QString(), QStringLiteral("分类条\u0000目"), QStringLiteral("𠮷1"),
                          QString(QChar(0xDFB7)) + QChar(0xD842)};
  for (const char* number : {"", "0", "00", "1", "01", "10", "2147483647", "2147483648",
                             "12147483647", "99999999999", "1x", "-1", "1.5"}) {
    texts += QStringLiteral("TheItem") + QLatin1String(number);
    texts += QLatin1String(number);
  }
  for (const QString& text : texts) {
    SCOPED_TRACE(text.toUtf8().constData());
    EXPECT_EQ(CompactText(text).ToString(), text);
    EXPECT_EQ(CompactText(text).IsEmpty(), text.isEmpty());
    for (const QString& other : texts) {
      EXPECT_EQ(CompactText(text) == CompactText(other), text == other) << qPrintable(other);
    }
  }
}

}  // namespace
