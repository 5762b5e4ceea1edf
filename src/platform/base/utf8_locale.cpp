// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "utf8_locale.h"

#include <QByteArray>

void NameUtf8WithoutLocale() {
  for (const char* name : {"LC_ALL", "LC_CTYPE", "LANG"}) {
    if (!qEnvironmentVariableIsEmpty(name)) return;
  }
  qputenv("LC_CTYPE", "C.UTF-8");
}
