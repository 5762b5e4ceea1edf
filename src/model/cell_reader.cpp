// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "cell_reader.h"

#include "characters.h"

bool CellReader::Read(QString& cell) {
  if (!ReadQuoted(cell)) {
    const qsizetype begin = at_;
    while (!AtCellEnd()) ++at_;
    cell = text_.sliced(begin, at_ - begin);
  }
  if (AtEnd()) return false;
  const QChar behind = text_[at_++];
  if (behind == u'\t') return true;
  if (behind == u'\r' && !AtEnd() && text_[at_] == u'\n') ++at_;
  ++line_;
  return false;
}

bool CellReader::AtCellEnd() const {
  return AtEnd() || text_[at_] == u'\t' || IsLineBreak(text_[at_]);
}

// Leaves the place in the text where it was when there is no such cell.
bool CellReader::ReadQuoted(QString& cell) {
  if (AtEnd() || text_[at_] != u'"') return false;
  const qsizetype begin = at_;
  int breaks = 0;
  bool needsQuotes = false;
  cell.clear();
  for (++at_; !AtEnd(); ++at_) {
    const QChar c = text_[at_];
    if (c == u'"') {
      ++at_;
      if (AtCellEnd() && needsQuotes) {
        line_ += breaks;
        return true;
      }
      if (AtEnd() || text_[at_] != u'"') break;
    }
    cell += c;
    if (IsLineBreak(c) && !cell.endsWith(QStringLiteral("\r\n"))) ++breaks;
    needsQuotes = needsQuotes || c == u'\t' || IsLineBreak(c);
  }
  at_ = begin;
  return false;
}
