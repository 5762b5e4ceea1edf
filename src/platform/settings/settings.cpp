// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "settings.h"

#include "error.h"

#include <QSettings>

#include <array>
#include <charconv>
#include <cmath>

namespace {

// As many places as the longest float has without an exponent, and some.
constexpr int kMaxNumberLength = 192;

QString Path(const QString& section, const QString& key) {
  return section + QLatin1Char('/') + key;
}

}  // namespace

QString GetSetting(const QString& appName, const QString& section, const QString& key,
                   const QString& defaultValue) {
  QSettings settings(QSettings::NativeFormat, QSettings::UserScope, appName);
  settings.setFallbacksEnabled(false);  // no file of the machine's
  return settings.value(Path(section, key), defaultValue).toString();
}

void SaveSetting(const QString& appName, const QString& section, const QString& key,
                 const QString& value) {
  QSettings settings(QSettings::NativeFormat, QSettings::UserScope, appName);
  settings.setValue(Path(section, key), value);
  settings.sync();
  if (settings.status() != QSettings::NoError) {
    throw Error(QStringLiteral("无法保存设置：%1").arg(settings.fileName()));
  }
}

QString SingleToText(float number) {
  std::array<char, kMaxNumberLength> text;
  const auto end =
      std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed).ptr;
  return QString::fromLatin1(text.data(), end - text.data());
}

float TextToSingle(const QString& text, float fallback) {
  bool ok = false;
  const float number = text.toFloat(&ok);
  return ok && std::isfinite(number) ? number : fallback;
}
