// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "registry_file.h"

#include <QFile>
#include <QStringDecoder>
#include <QtEndian>

#include <algorithm>
#include <cctype>

namespace {

bool IsHex(const QString& text) {
  return std::all_of(text.begin(), text.end(),
                     [](QChar c) { return c.unicode() < 0x80 && std::isxdigit(c.unicode()); });
}

std::optional<RegistryValue> ReadValue(const QString& text) {
  const qsizetype colon = text.indexOf(QLatin1Char(':'));
  const QString type = text.left(colon).trimmed().toLower();
  const QString content = text.mid(colon + 1).trimmed();
  if (colon < 0) return std::nullopt;
  if (type == QLatin1String("text")) return TextValue(content);
  if (type == QLatin1String("dword")) {
    constexpr int kMaxDigits = 8;
    if (content.isEmpty() || content.size() > kMaxDigits || !IsHex(content)) return std::nullopt;
    const quint32 number = qToLittleEndian(content.toUInt(nullptr, 16));
    return RegistryValue{kRegDword,
                         QByteArray(reinterpret_cast<const char*>(&number), sizeof number)};
  }
  if (type == QLatin1String("binary")) {
    const QString digits = QString(content).remove(QLatin1Char(' '));
    if (digits.size() % 2 != 0 || !IsHex(digits)) return std::nullopt;
    return RegistryValue{kRegBinary, QByteArray::fromHex(digits.toLatin1())};
  }
  return std::nullopt;
}

}  // namespace

RegistryValue TextValue(const QString& text) {
  return {kRegSz, text.toLocal8Bit() + '\0'};
}

void ReadRegistryFile(const QString& path, RegistryKeys& keys) {
  QFile file(path);
  if (!file.exists()) return;
  if (!file.open(QIODevice::ReadOnly)) {
    qWarning("%s：无法读取：%s", qUtf8Printable(path), qUtf8Printable(file.errorString()));
    return;
  }
  RegistryValues* key = nullptr;
  for (int number = 1; !file.atEnd(); ++number) {
    QStringDecoder decode(QStringDecoder::Utf8);  // drops a byte order mark
    const QString line = QString(decode(file.readLine())).trimmed();
    const auto skip = [&](const char* reason) {
      qWarning("%s:%d：%s，已忽略此行", qUtf8Printable(path), number, reason);
    };
    if (decode.hasError()) {
      skip("不是 UTF-8 文字");
    } else if (line.isEmpty() || line.startsWith(QLatin1Char('#'))) {
      continue;
    } else if (line.startsWith(QLatin1Char('[')) && line.endsWith(QLatin1Char(']'))) {
      key = &keys[line.mid(1, line.size() - 2).trimmed().toLower()];
    } else {
      const qsizetype equals = line.indexOf(QLatin1Char('='));
      const QString name = line.left(std::max<qsizetype>(equals, 0)).trimmed().toLower();
      const std::optional<RegistryValue> value = ReadValue(line.mid(equals + 1));
      if (!key) {
        skip("前面没有 [键]");
      } else if (name.isEmpty()) {
        skip("没有“名称 =”");
      } else if (!value) {
        skip("值应为 text:文字、dword:十六进制数 或 binary:十六进制字节");
      } else if (!key->contains(name)) {
        key->insert(name, *value);
      }
    }
  }
}
