// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QHashFunctions>
#include <QString>
#include <QStringView>

#include <array>
#include <cstring>
#include <utility>

// A text in 16 bytes. Up to 15 bytes of UTF-8 are kept in place, so that the keys and tags of
// hundreds of thousands of entries cost no allocation; any other text is kept on the heap.
class CompactText {
 public:
  CompactText() noexcept = default;
  explicit CompactText(QStringView text) { Set(text); }
  CompactText(const CompactText& other) : bytes_(other.bytes_) {
    if (OnHeap()) SetHeap(new QString(*other.Heap()));
  }
  CompactText(CompactText&& other) noexcept { std::swap(bytes_, other.bytes_); }
  CompactText& operator=(CompactText other) noexcept {
    std::swap(bytes_, other.bytes_);
    return *this;
  }
  ~CompactText() {
    if (OnHeap()) delete Heap();
  }

  QString ToString() const {
    return OnHeap() ? *Heap() : QString::fromUtf8(bytes_.data(), bytes_[kLengthAt]);
  }

  // Equal texts have equal bytes in place; a text of either form never equals one of the other.
  friend bool operator==(const CompactText& a, const CompactText& b) noexcept {
    return a.OnHeap() && b.OnHeap() ? *a.Heap() == *b.Heap() : a.bytes_ == b.bytes_;
  }
  friend size_t qHash(const CompactText& text, size_t seed = 0) noexcept {
    return text.OnHeap() ? qHash(*text.Heap(), seed)
                         : qHashBits(text.bytes_.data(), text.bytes_.size(), seed);
  }

 private:
  static constexpr size_t kLengthAt = 15;
  static constexpr char kOnHeap = 0x7F;

  void Set(QStringView text) {
    // Latin letters and digits, which keys are made of, need no encoder.
    if (text.size() <= qsizetype(kLengthAt)) {
      qsizetype length = 0;
      while (length < text.size() && text[length].unicode() - 1U < 0x7FU) {
        bytes_[length] = static_cast<char>(text[length].unicode());
        ++length;
      }
      if (length == text.size()) {
        bytes_[kLengthAt] = static_cast<char>(length);
        return;
      }
      bytes_ = {};
      const QByteArray utf8 = text.toUtf8();
      // Half a surrogate pair has no UTF-8 and would not come back as it was.
      if (utf8.size() <= qsizetype(kLengthAt) && QString::fromUtf8(utf8) == text) {
        std::memcpy(bytes_.data(), utf8.constData(), utf8.size());
        bytes_[kLengthAt] = static_cast<char>(utf8.size());
        return;
      }
    }
    SetHeap(new QString(text.toString()));
  }
  bool OnHeap() const noexcept { return bytes_[kLengthAt] == kOnHeap; }
  QString* Heap() const noexcept {
    QString* text = nullptr;
    std::memcpy(&text, bytes_.data(), sizeof text);
    return text;
  }
  void SetHeap(QString* text) noexcept {
    bytes_ = {};
    std::memcpy(bytes_.data(), &text, sizeof text);
    bytes_[kLengthAt] = kOnHeap;
  }

  std::array<char, 16> bytes_ = {};
};
