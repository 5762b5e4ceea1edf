// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "entry_key.h"

QString EntryKey::Text() const {
  if (IsNone()) return QString();
  if (*this == Root()) return QStringLiteral("HCWLIBTitle");
  return QStringLiteral("TheItem") + QString::number(place_ - 1);
}
