// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "characters.h"

#include <utility>

bool IsLineBreak(QChar c) {
  return c == u'\n' || c == u'\r' || c == u'\v' || c == u'\f' || c == QChar(0x85) ||
         c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
}

QString OnOneLine(QStringView text) {
  QString line;
  bool afterBreak = false;
  for (qsizetype i = 0; i < text.size(); ++i) {
    const QChar c = text[i];
    const bool isPair = c.isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
    if (c == u'\t' || IsLineBreak(c)) {
      afterBreak = true;
    } else if (isPair || !(c.isSurrogate() || c.isNull())) {
      if (std::exchange(afterBreak, false) && !line.isEmpty()) line += u' ';
      line += c;
      if (isPair) line += text[++i];
    }
  }
  return line;
}
