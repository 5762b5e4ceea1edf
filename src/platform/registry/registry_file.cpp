// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "registry_file.h"

#include "log.h"

#include <QFile>
#include <QStringDecoder>
#include <QtEndian>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstring>

#include <sys/stat.h>

namespace {

// Also a link to nowhere, and what stands in a folder that may not be searched.
bool MayBeThere(const QString& path) {
  struct stat status;
  return lstat(QFile::encodeName(path).constData(), &status) == 0 ||
         (errno != ENOENT && errno != ENOTDIR);
}

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

bool ReadRegistryFile(const QString& path, RegistryKeys& keys) {
  if (!MayBeThere(path)) return true;
  QFile file(path);
  // A pipe would have to be waited for.
  struct stat status;
  const bool isThere = stat(QFile::encodeName(path).constData(), &status) == 0;
  const int reason = errno;
  const bool regular = isThere && S_ISREG(status.st_mode);
  const QByteArray content =
      regular && file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  if (!regular || file.error() != QFile::NoError) {
    qCWarning(lcHCWordLib, "%s：无法读取：%s", qUtf8Printable(path),
              regular   ? qUtf8Printable(file.errorString())
              : isThere ? "不是普通文件"
                        : std::strerror(reason));
    return false;
  }
  RegistryValues* key = nullptr;
  int number = 0;
  for (const QByteArray& bytes : content.split('\n')) {
    ++number;
    QStringDecoder decode(QStringDecoder::Utf8);  // drops a byte order mark
    const QString line = QString(decode(bytes)).trimmed();
    const auto skip = [&](const char* reason) {
      qCWarning(lcHCWordLib, "%s:%d：%s，已忽略此行", qUtf8Printable(path), number, reason);
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
  return true;
}
