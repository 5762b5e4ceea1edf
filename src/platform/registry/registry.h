// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

#include <optional>
#include <utility>

// The root of the machine-wide tree.
inline constexpr quint32 kHKeyLocalMachine = 0x80000002;

// Access masks: to query values, and everything.
inline constexpr quint32 kKeyQueryValue = 0x1;
inline constexpr quint32 kKeyAllAccess = 0x2003f;

// The types of values.
inline constexpr quint32 kRegSz = 1;
inline constexpr quint32 kRegBinary = 3;
inline constexpr quint32 kRegDword = 4;

struct RegistryValue {
  quint32 type = kRegSz;
  QByteArray data;  // a text's 8-bit characters and a zero; a number's bytes, the lowest first
};

using RegistryValues = QMap<QString, RegistryValue>;  // by the name in lower case

// An open key of the machine-wide tree, which administrators keep in the files
// hcwordlib/registry.conf of the system's configuration folders (docs/registry.md) and which this
// program only reads. Where one of them cannot be read, there is only what those before it hold. A
// machine whose files do not tell where its system-information program is has the first known one
// that is installed under SOFTWARE\Microsoft\Shared Tools\MSINFO, PATH.
class RegistryKey {
 public:
  // None when there is no such key. Keys and names are the same in upper and lower case.
  static std::optional<RegistryKey> Open(quint32 root, const QString& path, quint32 access);

  // Copies the value's bytes to `buffer` and leaves the rest of it alone; false when there is no
  // such value or `size` bytes do not hold it.
  bool Query(const QString& name, quint32& type, char* buffer, qsizetype size) const;

 private:
  explicit RegistryKey(RegistryValues values) : values_(std::move(values)) {}

  RegistryValues values_;
};
