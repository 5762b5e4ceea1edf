// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

// The key of an entry: of a tree's node, of the list item that shows it and of the records of both.
// It is none, the root's, or one of those that are numbered from 0.
class EntryKey {
 public:
  constexpr EntryKey() noexcept = default;
  static constexpr EntryKey Root() noexcept { return EntryKey(0); }
  static constexpr EntryKey Numbered(qint32 number) noexcept { return EntryKey(number + 1); }

  constexpr bool IsNone() const noexcept { return place_ < 0; }

  // "HCWLIBTitle", "TheItem" with the number behind it, or nothing.
  QString Text() const;

  // The place among all keys, at least 0 unless it is none.
  constexpr qint32 Place() const noexcept { return place_; }

  friend constexpr bool operator==(EntryKey, EntryKey) noexcept = default;

 private:
  explicit constexpr EntryKey(qint32 place) noexcept : place_(place) {}

  qint32 place_ = -1;
};

// The kind of an entry. The owner of the entries gives each value its meaning; 0 is none.
enum class EntryTag : quint8 {};
