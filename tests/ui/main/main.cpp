// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>

// The program knows one data source and one settings store by name, so this process gets its own.
int main(int argc, char** argv) {
  const QTemporaryDir folder;
  QFile database(folder.filePath(QStringLiteral("library.db")));
  QFile sources(folder.filePath(QStringLiteral("odbc.ini")));
  if (!database.open(QIODevice::WriteOnly) || !sources.open(QIODevice::WriteOnly)) return 1;
  sources.write("[HCWordLib]\nDriver=SQLite3\nNoCreat=1\nSyncPragma=OFF\nDatabase=" +
                QFile::encodeName(database.fileName()) + "\n");
  sources.close();
  qputenv("ODBCINI", QFile::encodeName(sources.fileName()));
  qputenv("HCW_TEST_SQLITE", "HCWordLib");
  qputenv("XDG_CONFIG_HOME", QFile::encodeName(folder.path()));

  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
