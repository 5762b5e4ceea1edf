// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "pool.h"

#include <QString>
#include <QStringView>

#include <cstring>
#include <new>
#include <utility>

// A text in 8 bytes and about as many beyond its characters, which all copies of it share: for the
// names of hundreds of thousands of entries. Used by one thread.
class SharedText {
 public:
  SharedText() noexcept = default;
  SharedText(const QString& text) : SharedText(QStringView(text)) {}
  explicit SharedText(QStringView text) {
    if (text.isEmpty()) return;
    content_ = ::new (TakePooled(Bytes(text.size()))) Content{1, static_cast<qint32>(text.size())};
    std::memcpy(content_ + 1, text.utf16(), sizeof(char16_t) * static_cast<size_t>(text.size()));
  }
  SharedText(const SharedText& other) noexcept : content_(other.content_) {
    if (content_ != nullptr) ++content_->users;
  }
  SharedText(SharedText&& other) noexcept : content_(std::exchange(other.content_, nullptr)) {}
  SharedText& operator=(SharedText other) noexcept {
    std::swap(content_, other.content_);
    return *this;
  }
  ~SharedText() {
    if (content_ != nullptr && --content_->users == 0) GivePooled(content_, Bytes(content_->size));
  }

  QString ToString() const { return View().toString(); }
  // Lives as long as a copy of the text does.
  QStringView View() const {
    if (content_ == nullptr) return QStringView();
    return QStringView(reinterpret_cast<const QChar*>(content_ + 1), content_->size);
  }

 private:
  // The characters stand behind it.
  struct Content {
    qint32 users;
    qint32 size;
  };
  static size_t Bytes(qsizetype size) {
    return sizeof(Content) + sizeof(char16_t) * static_cast<size_t>(size);
  }

  Content* content_ = nullptr;
};
