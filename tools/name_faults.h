// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "fault.h"

#include <QHash>
#include <QSet>

#include <functional>

// `name` in one line of moderate length, between quotation marks.
QString Shown(const QString& name);

// `name` with the first number behind it, from 2 on or behind the one that `numbers` has for it,
// that makes it one of which `isTaken` is not true; null when that would be too long.
QString FreeName(const QString& name, QHash<QString, int>& numbers,
                 const std::function<bool(const QString&)>& isTaken);

// The names of all categories, or of the words of one.
class Names {
 public:
  // Adds `names`. Tells those that are empty, equal to an earlier one, or such that the program or
  // the outline cannot hold them; `labelOf` says of whom. Returns what each is replaced by, null
  // where it stays: the second of equal names gets a number behind it, an empty one becomes
  // `defaultName`. What cannot be read as it is stored is left alone.
  std::vector<QString> Settle(const std::vector<QString>& names, const QString& defaultName,
                              const std::function<QString(size_t)>& labelOf, Faults& faults);

 private:
  QSet<QString> taken_;
  QHash<QString, int> numbers_;  // the last one tried behind each name
};
