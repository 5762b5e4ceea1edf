// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "data_source.h"

#include "database_error.h"

#include <odbcinst.h>

#include <array>

namespace {

constexpr char kFile[] = "odbc.ini";  // unixODBC's name for the user's file and the machine's

// As SQLGetPrivateProfileString gives it; a null `key` asks for the names of all keys.
QByteArray Value(const QString& name, const char* key) {
  std::array<char, 4096> value{};
  SQLGetPrivateProfileString(name.toUtf8().constData(), key, "", value.data(), value.size(), kFile);
  return value.data();
}

void Write(const QString& name, const QByteArray& key, const QByteArray& value) {
  if (!SQLWritePrivateProfileString(name.toUtf8().constData(), key.constData(), value.constData(),
                                    kFile)) {
    throw DatabaseError(QStringLiteral("无法写数据源“%1”，用户的数据源文件不能改写。").arg(name));
  }
}

}  // namespace

QString DataSourceValue(const QString& name, const QString& key) {
  return QString::fromUtf8(Value(name, key.toUtf8().constData()));
}

bool DataSourceExists(const QString& name) {
  return !Value(name, nullptr).isEmpty();
}

void WriteDataSource(const QString& name, const DataSourceEntries& entries) {
  SQLSetConfigMode(ODBC_USER_DSN);
  try {
    for (const auto& [key, value] : entries) {
      Write(name, key.toUtf8(), value.toUtf8());
      if (DataSourceValue(name, key) != value) {
        throw DatabaseError(QStringLiteral("数据源中的 %1 不能写作“%2”。").arg(key, value));
      }
    }
  } catch (const DatabaseError&) {
    SQLWritePrivateProfileString(name.toUtf8().constData(), nullptr, nullptr, kFile);
    SQLSetConfigMode(ODBC_BOTH_DSN);
    throw;
  }
  SQLSetConfigMode(ODBC_BOTH_DSN);
}
