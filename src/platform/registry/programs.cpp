// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "programs.h"

#include "error.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>

namespace {

QString NativePath(QString path) {
  return path.replace(QLatin1Char('\\'), QLatin1Char('/'));
}

}  // namespace

bool FileExists(const QString& path) {
  return QFileInfo(NativePath(path)).isFile();
}

void StartProgram(const QString& path) {
  const QString program = NativePath(path);
  if (!QDir::isAbsolutePath(program) || !QProcess::startDetached(program, {})) {
    throw Error(QStringLiteral("无法启动程序：%1").arg(path));
  }
}
