// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringView>

#include <vector>

// What somebody types to get at a name. A name holds it as it is written, whatever the case and the
// width of the letters, or in pinyin: a Chinese character is its syllable, its initial or the first
// letter of that, the last one also the beginning of its syllable: "cwy", "chewaiy" and "车wy" are
// in 粗车外圆. Matching takes time in proportion to the name, once per character for most names.
class NamePattern {
 public:
  NamePattern() = default;
  explicit NamePattern(const QString& text);

  // The empty pattern is part of nothing.
  bool IsEmpty() const { return text_.isEmpty(); }
  bool IsPartOf(QStringView name) const { return Matches(name, true); }
  bool Begins(QStringView name) const { return Matches(name, false); }

 private:
  bool Matches(QStringView name, bool anywhere) const;
  // Adds to `next_` where in the pattern one is behind a character of the name when one was at
  // `from` before it. True when the pattern ends with it.
  bool Step(qsizetype from, char16_t character, char16_t folded) const;
  bool StepSyllable(qsizetype from, const char* syllable) const;
  bool Reach(qsizetype place) const;

  QString text_;  // folded
  // Places in the pattern, while a name is being read.
  mutable std::vector<qsizetype> reached_;
  mutable std::vector<qsizetype> next_;
};

// In small letters and of half width.
QString Folded(const QString& text);
