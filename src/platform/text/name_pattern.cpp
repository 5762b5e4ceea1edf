// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "name_pattern.h"

#include "pinyin.h"

#include <algorithm>

namespace {

constexpr char16_t kIdeographicSpace = 0x3000;
constexpr char16_t kHalfAndFullWidthForms = 0xFF00;

char16_t FoldedCharacter(char16_t c) {
  if (c < 0x80) return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + (u'a' - u'A')) : c;
  if (c > kIdeographicSpace && c < 0xA000) return c;  // most of all, and without case
  QChar folded(c);
  if (c == kIdeographicSpace || c >= kHalfAndFullWidthForms) {
    const QChar::Decomposition tag = folded.decompositionTag();
    if (tag == QChar::Wide || tag == QChar::Narrow) folded = folded.decomposition().front();
  }
  return folded.toCaseFolded().unicode();
}

bool IsLetter(QChar typed) {
  return (typed >= u'a' && typed <= u'z') || typed == u'ü';
}

// Whether `typed` is meant for this letter of a syllable; ü, which is v there, is typed in any way.
bool Means(QChar typed, char letter) {
  return typed == QLatin1Char(letter) || (letter == 'v' && (typed == u'u' || typed == u'ü'));
}

}  // namespace

QString Folded(const QString& text) {
  QString folded = text;
  for (QChar& c : folded) c = QChar(FoldedCharacter(c.unicode()));
  return folded;
}

NamePattern::NamePattern(const QString& text) : text_(Folded(text)) {}

bool NamePattern::Matches(QStringView name, bool anywhere) const {
  if (text_.isEmpty()) return false;
  reached_.clear();
  for (qsizetype i = 0; i < name.size(); ++i) {
    const char16_t character = name[i].unicode();
    const char16_t folded = FoldedCharacter(character);
    next_.clear();
    if ((anywhere || i == 0) && Step(0, character, folded)) return true;
    for (const qsizetype from : reached_) {
      if (Step(from, character, folded)) return true;
    }
    std::swap(reached_, next_);
    if (!anywhere && reached_.empty()) return false;
  }
  return false;
}

bool NamePattern::Step(qsizetype from, char16_t character, char16_t folded) const {
  const QChar typed = text_[from];
  if (typed == QChar(folded)) return Reach(from + 1);
  if (!IsLetter(typed)) return false;
  const PinyinReadings& readings = PinyinOf(character);
  return StepSyllable(from, readings.first) || StepSyllable(from, readings.second);
}

bool NamePattern::StepSyllable(qsizetype from, const char* syllable) const {
  qsizetype common = 0;
  while (syllable[common] != '\0' && from + common < text_.size() &&
         Means(text_[from + common], syllable[common])) {
    ++common;
  }
  if (common == 0) return false;
  if (from + common == text_.size()) return true;
  if (syllable[common] == '\0') Reach(from + common);
  if (common > 1 && syllable[1] == 'h') Reach(from + 2);  // zh, ch, sh
  Reach(from + 1);
  return false;
}

bool NamePattern::Reach(qsizetype place) const {
  if (place == text_.size()) return true;
  if (std::find(next_.begin(), next_.end(), place) == next_.end()) next_.push_back(place);
  return false;
}
