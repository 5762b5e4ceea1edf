// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "main_window.h"
#include "run_tests.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>

// The program knows one data source and one settings store by name, so this process gets its own.
int main(int argc, char** argv) {
  const QTemporaryDir folder;
  const QByteArray source = qgetenv(TestedEngine().variable);
  if (source.isEmpty()) {
    std::puts("The engine's data source is not there.");
    return kSkippedTests;
  }
  QFile sources(qEnvironmentVariable("ODBCINI"));
  QFile renamed(folder.filePath(QStringLiteral("odbc.ini")));
  if (!sources.open(QIODevice::ReadOnly) || !renamed.open(QIODevice::WriteOnly)) return 1;
  renamed.write(sources.readAll().replace('[' + source + ']', "[HCWordLib]"));
  renamed.close();
  qputenv("ODBCINI", QFile::encodeName(renamed.fileName()));
  qputenv("XDG_CONFIG_HOME", QFile::encodeName(folder.path()));

  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  testing::InitGoogleTest(&argc, argv);
  return RunTests();
}
