// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "compact_text.h"

#include <QStringList>

#include <algorithm>
#include <limits>

namespace {

QStringList& Words() {
  static QStringList words = {QString()};
  return words;
}

}  // namespace

// The number is the longest at the end of the text that has no leading zero and fits 31 bits.
CompactText::CompactText(QStringView text) {
  qsizetype wordEnd = text.size();
  qint64 number = 0;
  qint64 power = 1;
  const qsizetype mostDigits = std::min<qsizetype>(text.size(), 10);
  for (qsizetype i = text.size() - 1; i >= text.size() - mostDigits; --i) {
    const int digit = text[i].unicode() - u'0';
    if (digit < 0 || digit > 9) break;
    number += digit * power;
    if (number > std::numeric_limits<qint32>::max()) break;
    power *= 10;
    if (digit == 0 && i != text.size() - 1) continue;
    wordEnd = i;
    number_ = static_cast<qint32>(number);
  }

  const QStringView word = text.first(wordEnd);
  QStringList& words = Words();
  word_ = static_cast<qint32>(words.indexOf(word));
  if (word_ >= 0) return;
  word_ = static_cast<qint32>(words.size());
  words.append(word.toString());
}

QString CompactText::ToString() const {
  const QString& word = Words().at(word_);
  return number_ < 0 ? word : word + QString::number(number_);
}
