// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QHashFunctions>
#include <QString>
#include <QStringView>

#include <array>
#include <cstring>
#include <utility>

// A text in 16 bytes. Up to 15 characters of Latin-1 or 7 of any writing are kept in place, so
// that the keys and tags of hundreds of thousands of entries cost no allocation; any other text is
// kept on the heap. A text has one form only.
class CompactText {
 public:
  CompactText() noexcept = default;
  explicit CompactText(QStringView text) {
    if (SetLatin1(text)) return;
    if (text.size() <= kMostUtf16) {
      std::memcpy(bytes_.data(), text.utf16(), size_t(text.size()) * sizeof(char16_t));
      bytes_[kForm] = static_cast<char>(kUtf16 + text.size());
    } else {
      SetHeap(new QString(text.toString()));
    }
  }
  CompactText(const CompactText& other) : bytes_(other.bytes_) {
    if (OnHeap()) SetHeap(new QString(*other.Heap()));
  }
  CompactText(CompactText&& other) noexcept : bytes_(std::exchange(other.bytes_, {})) {}
  CompactText& operator=(CompactText other) noexcept {
    other.bytes_ = std::exchange(bytes_, other.bytes_);
    return *this;
  }
  ~CompactText() {
    if (OnHeap()) delete Heap();
  }

  bool IsEmpty() const noexcept { return bytes_[kForm] == 0; }

  QString ToString() const {
    if (OnHeap()) return *Heap();
    const int form = bytes_[kForm];
    if (form < kUtf16) return QString::fromLatin1(bytes_.data(), form);
    QString text(form - kUtf16, Qt::Uninitialized);
    std::memcpy(text.data(), bytes_.data(), size_t(text.size()) * sizeof(char16_t));
    return text;
  }

  friend bool operator==(const CompactText& a, const CompactText& b) noexcept {
    return a.OnHeap() && b.OnHeap() ? *a.Heap() == *b.Heap() : a.bytes_ == b.bytes_;
  }

  // Texts that differ in their last character only, as keys made in turn mostly do, get neighbouring
  // values, so that a table of them is filled and read along the processor's cache lines.
  friend size_t qHash(const CompactText& text, size_t seed = 0) noexcept {
    if (text.OnHeap()) return qHash(*text.Heap(), seed);
    std::array<char, 16> bytes = text.bytes_;
    const size_t last = static_cast<size_t>(bytes[kForm] - 1) & 0xF;
    const size_t neighbour = static_cast<size_t>(std::exchange(bytes[last], 0)) & 0xF;
    std::array<quint64, 2> words;
    std::memcpy(words.data(), bytes.data(), sizeof words);
    quint64 mixed = (words[0] ^ seed) * 0x9E3779B97F4A7C15U;
    mixed = (mixed ^ (mixed >> 32) ^ words[1]) * 0xD6E8FEB86659FD93U;
    return static_cast<size_t>((mixed ^ (mixed >> 29)) << 4) | neighbour;
  }

 private:
  static constexpr size_t kForm = 15;  // the length in Latin-1, or kUtf16 plus that in UTF-16
  static constexpr int kMostLatin1 = 15;
  static constexpr int kMostUtf16 = 7;
  static constexpr int kUtf16 = 0x20;
  static constexpr char kOnHeap = 0x7F;

  bool SetLatin1(QStringView text) {
    if (text.size() > kMostLatin1) return false;
    for (qsizetype i = 0; i < text.size(); ++i) {
      const char16_t unit = text.utf16()[i];
      if (unit > 0xFF) {
        bytes_ = {};
        return false;
      }
      bytes_[size_t(i)] = static_cast<char>(unit);
    }
    bytes_[kForm] = static_cast<char>(text.size());
    return true;
  }
  bool OnHeap() const noexcept { return bytes_[kForm] == kOnHeap; }
  QString* Heap() const noexcept {
    QString* text = nullptr;
    std::memcpy(&text, bytes_.data(), sizeof text);
    return text;
  }
  void SetHeap(QString* text) noexcept {
    bytes_ = {};
    std::memcpy(bytes_.data(), &text, sizeof text);
    bytes_[kForm] = kOnHeap;
  }

  std::array<char, 16> bytes_ = {};
};
