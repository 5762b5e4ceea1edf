// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "pinyin.h"

#include "log.h"

#include <QString>

#include <dlfcn.h>
#include <link.h>
#include <unicode/utrans.h>

#include <array>
#include <cstring>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>

namespace {

bool IsIdeograph(char16_t c) {
  return (c >= 0x3400 && c <= 0x9FFF) || (c >= 0xF900 && c <= 0xFAFF) || c == 0x3007;
}

// The ICU that Qt has loaded. ICU's version is part of its libraries' names and of its functions',
// so that a program linked with it would run on one release of the system only.
class LoadedIcu {
 public:
  LoadedIcu() { dl_iterate_phdr(FindVersion, &version_); }

  // The function whose address this type is; nullptr when there is none.
  template <typename Function>
  Function Get(const char* name) const {
    if (version_.empty()) return nullptr;
    return reinterpret_cast<Function>(dlsym(RTLD_DEFAULT, (name + ("_" + version_)).c_str()));
  }

 private:
  static int FindVersion(dl_phdr_info* library, size_t, void* version) {
    static constexpr char kName[] = "/libicui18n.so.";
    const char* found = std::strstr(library->dlpi_name, kName);
    if (found == nullptr) return 0;
    found += std::strlen(kName);
    static_cast<std::string*>(version)->assign(found, std::strspn(found, "0123456789"));
    return 1;
  }

  std::string version_;
};

class Pinyin {
 public:
  Pinyin() {
    const LoadedIcu icu;
    const auto open = icu.Get<decltype(&utrans_openU)>("utrans_openU");
    const auto close = icu.Get<decltype(&utrans_close)>("utrans_close");
    transliterate_ = icu.Get<decltype(&utrans_transUChars)>("utrans_transUChars");
    if (open == nullptr || close == nullptr || transliterate_ == nullptr) {
      qCWarning(lcHCWordLib, "不能按拼音查找：Qt 没有装入 ICU");
      return;
    }
    const auto create = [&](std::u16string_view id) {
      UErrorCode status = U_ZERO_ERROR;
      Transliterator created(open(id.data(), static_cast<int>(id.size()), UTRANS_FORWARD, nullptr,
                                  0, nullptr, &status),
                             close);
      if (U_FAILURE(status)) qCWarning(lcHCWordLib, "不能按拼音查找：ICU 错误 %d", status);
      return created;
    };
    usual_ = create(u"Han-Latin");
    inNames_ = create(u"Han-Latin/Names");
  }

  const PinyinReadings& Of(char16_t character) {
    std::unique_ptr<Page>& page = pages_[character >> 8];
    if (!page) page = std::make_unique<Page>();
    Entry& entry = (*page)[character & 0xFF];
    if (!entry.known) {
      entry.known = true;
      Read(usual_, character, entry.readings.first);
      Read(inNames_, character, entry.readings.second);
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
  using Transliterator = std::unique_ptr<UTransliterator, decltype(&utrans_close)>;

  // Stays empty when the transliterator knows the character not, or as something else.
  void Read(const Transliterator& transliterator, char16_t character, char (&reading)[7]) const {
    if (!transliterator) return;
    char16_t text[16] = {character};
    int length = 1;
    int limit = 1;
    UErrorCode status = U_ZERO_ERROR;
    transliterate_(transliterator.get(), text, &length, std::size(text), 0, &limit, &status);
    if (U_FAILURE(status)) return;
    const QString read = QString::fromUtf16(text, length).normalized(QString::NormalizationForm_D);
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

  decltype(&utrans_transUChars) transliterate_ = nullptr;
  Transliterator usual_{nullptr, nullptr};
  Transliterator inNames_{nullptr, nullptr};
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
