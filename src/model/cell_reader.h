// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

// Reads a text in rows of cells, as spreadsheets write it into the clipboard: tabs between the
// cells of a row, and a cell that holds a line break or a tab in quotes, with those inside it
// doubled. Every other text is one of such rows, too; a quote that does not stand so was typed.
class CellReader {
 public:
  // `text` must outlive this object.
  explicit CellReader(const QString& text) : text_(text) {}

  bool AtEnd() const { return at_ == text_.size(); }
  // The line of the text that is read next, counted from 1.
  int Line() const { return line_; }

  // Reads the next cell, and behind the last one of a row the line break. Returns whether the row
  // has more.
  bool Read(QString& cell);

 private:
  bool AtCellEnd() const;
  bool ReadQuoted(QString& cell);

  const QString& text_;
  qsizetype at_ = 0;
  int line_ = 1;
};
