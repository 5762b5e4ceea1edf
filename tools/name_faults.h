// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "fault.h"

#include <QHash>
#include <QSet>

#include <functional>

// `name` in one line of moderate length, between quotation marks.
QString Shown(const QString& name);

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
  // Null when it would be too long.
  QString FreeName(const QString& name);

  QSet<QString> taken_;
  QHash<QString, int> numbers_;  // the last one tried behind each name
};
