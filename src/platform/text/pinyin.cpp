// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "pinyin.h"

#include "log.h"

#include <QString>

#include <unicode/translit.h>

#include <array>
#include <cstring>
#include <iterator>
#include <memory>

namespace {

bool IsIdeograph(char16_t c) {
  return (c >= 0x3400 && c <= 0x9FFF) || (c >= 0xF900 && c <= 0xFAFF) || c == 0x3007;
}

class Pinyin {
 public:
  Pinyin() : usual_(Create("Han-Latin")), inNames_(Create("Han-Latin/Names")) {}

  const PinyinReadings& Of(char16_t character) {
    std::unique_ptr<Page>& page = pages_[character >> 8];
    if (!page) page = std::make_unique<Page>();
    Entry& entry = (*page)[character & 0xFF];
    if (!entry.known) {
      entry.known = true;
      Read(usual_.get(), character, entry.readings.first);
      Read(inNames_.get(), character, entry.readings.second);
      if (std::strcmp(entry.readings.first, entry.readings.second) == 0) {
        entry.readings.second[0] = '\0';
      }
    }
    return entry.readings;
  }

 private:
  struct Entry {
    bool known = false;
    PinyinReadings readings;
  };
  using Page = std::array<Entry, 256>;

  static std::unique_ptr<icu::Transliterator> Create(const char* id) {
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::Transliterator> created(
        icu::Transliterator::createInstance(id, UTRANS_FORWARD, status));
    if (U_FAILURE(status)) {
      qCWarning(lcHCWordLib, "不能按拼音查找：%s：%s", id, u_errorName(status));
      created.reset();
    }
    return created;
  }

  // Stays empty when the transliterator knows the character not, or as something else.
  static void Read(const icu::Transliterator* transliterator, char16_t character,
                   char (&reading)[7]) {
    if (transliterator == nullptr) return;
    icu::UnicodeString text(character);
    transliterator->transliterate(text);
    const QString read = QString::fromUtf16(text.getBuffer(), text.length())
                             .normalized(QString::NormalizationForm_D);
    size_t size = 0;
    for (const QChar c : read) {
      if (c == QChar(0x0308) && size > 0) {
        reading[size - 1] = 'v';
      } else if (c >= u'a' && c <= u'z' && size + 1 < std::size(reading)) {
        reading[size++] = static_cast<char>(c.unicode());
      } else if (!c.isMark()) {
        size = 0;
        break;
      }
    }
    reading[size] = '\0';
  }

  std::unique_ptr<icu::Transliterator> usual_;
  std::unique_ptr<icu::Transliterator> inNames_;
  std::array<std::unique_ptr<Page>, 256> pages_;
};

Pinyin& ThePinyin() {
  static Pinyin pinyin;
  return pinyin;
}

}  // namespace

const PinyinReadings& PinyinOf(char16_t character) {
  static const PinyinReadings kNone;
  return IsIdeograph(character) ? ThePinyin().Of(character) : kNone;
}

void PreparePinyin() {
  ThePinyin();
}
