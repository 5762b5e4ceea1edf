// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "registry.h"

#include "registry_file.h"

#include <QDir>
#include <QStandardPaths>

#include <algorithm>

namespace {

// Programs that show a machine's details when they are started without arguments.
struct SystemInformationProgram {
  const char* name;
  const char* desktop;  // the only one that it runs on, if any
};
constexpr SystemInformationProgram kSystemInformationPrograms[] = {
    {"kinfocenter", nullptr}, {"gnome-control-center", "GNOME"}, {"hardinfo2", nullptr},
    {"hardinfo", nullptr},    {"mate-system-monitor", nullptr},  {"gnome-system-monitor", nullptr},
};

QString FindSystemInformationProgram() {
  const QList<QByteArray> desktops = qgetenv("XDG_CURRENT_DESKTOP").split(':');
  for (const auto& [name, desktop] : kSystemInformationPrograms) {
    if (desktop && !desktops.contains(desktop)) continue;
    QString path = QStandardPaths::findExecutable(QLatin1String(name));
    if (!path.isEmpty()) return path;
  }
  return {};
}

// Earlier folders go before later ones, value by value. What a file says that cannot be read is not
// known, so nothing that comes after it counts.
RegistryKeys ReadTree() {
  QStringList folders =
      qEnvironmentVariable("XDG_CONFIG_DIRS").split(QLatin1Char(':'), Qt::SkipEmptyParts);
  folders.removeIf([](const QString& folder) { return QDir::isRelativePath(folder); });
  if (folders.isEmpty()) folders = {QStringLiteral("/etc/xdg")};
  RegistryKeys keys;
  for (const QString& folder : folders) {
    if (!ReadRegistryFile(folder + QLatin1String("/hcwordlib/registry.conf"), keys)) return keys;
  }

  const QString program = QStringLiteral("software\\microsoft\\shared tools\\msinfo");
  const QString folder = QStringLiteral("software\\microsoft\\shared tools location");
  if (!keys.contains(program) && !keys.contains(folder)) {
    const QString path = FindSystemInformationProgram();
    if (!path.isEmpty()) keys[program].insert(QStringLiteral("path"), TextValue(path));
  }
  return keys;
}

}  // namespace

std::optional<RegistryKey> RegistryKey::Open(quint32 root, const QString& path, quint32 access) {
  if (root != kHKeyLocalMachine || !(access & kKeyQueryValue)) return std::nullopt;
  const RegistryKeys keys = ReadTree();
  const auto key = keys.find(path.toLower());
  if (key == keys.end()) return std::nullopt;
  return RegistryKey(*key);
}

bool RegistryKey::Query(const QString& name, quint32& type, char* buffer, qsizetype size) const {
  const auto value = values_.find(name.toLower());
  if (value == values_.end() || value->data.size() > size) return false;
  type = value->type;
  std::copy(value->data.begin(), value->data.end(), buffer);
  return true;
}
