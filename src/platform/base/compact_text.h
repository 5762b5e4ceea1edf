// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringView>

// A text in 8 bytes, for the keys and tags of hundreds of thousands of entries: a word, which the
// program keeps once and for ever, and the number behind it. It suits texts of a few words only,
// for a word is searched for among all of them. Used by one thread.
class CompactText {
 public:
  CompactText() noexcept = default;
  CompactText(const QString& text) : CompactText(QStringView(text)) {}
  explicit CompactText(QStringView text);

  // This text, which ends in no digit, with `number`, at least 0, behind it.
  CompactText Numbered(qint32 number) const noexcept { return CompactText(word_, number); }

  bool IsEmpty() const noexcept { return *this == CompactText(); }
  QString ToString() const;

  // What tells the text from all others.
  qint32 Word() const noexcept { return word_; }
  qint32 Number() const noexcept { return number_; }

  friend bool operator==(CompactText, CompactText) noexcept = default;

 private:
  CompactText(qint32 word, qint32 number) noexcept : word_(word), number_(number) {}

  qint32 word_ = 0;     // the empty one
  qint32 number_ = -1;  // none
};
