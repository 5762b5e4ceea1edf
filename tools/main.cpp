// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

// hcwordlib-admin: creates, fills, writes out, copies and checks the library of a data source.

#include "command_line.h"
#include "connection.h"
#include "library_check.h"
#include "library_copy.h"
#include "library_tasks.h"
#include "new_library.h"
#include "utf8_locale.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <unistd.h>
#include <cstdio>

namespace {

constexpr int kSuccess = 0;
constexpr int kFailure = 1;
constexpr int kUsageError = 2;

void Print(const QString& text, FILE* stream) {
  std::fputs(text.toUtf8().constData(), stream);
}

void PrintMessage(const QString& message) {
  Print(QStringLiteral("hcwordlib-admin: %1\n").arg(message), stderr);
}

QByteArray ReadFile(const QString& name) {
  QFile file(name);
  QByteArray text;
  if (name == u"-" ? file.open(STDIN_FILENO, QIODevice::ReadOnly)
                   : file.open(QIODevice::ReadOnly)) {
    text = file.readAll();
  }
  if (file.error() != QFileDevice::NoError) {
    throw Error(QStringLiteral("无法读取文件“%1”：%2").arg(name, file.errorString()));
  }
  return text;
}

void Import(Connection& connection, const CommandLine& commandLine) {
  Outline outline = ParseOutline(ReadFile(commandLine.file));
  connection.Open();
  const Imported imported = ImportLibrary(connection, std::move(outline), commandLine.duplicates);
  if (!imported.duplicates.empty()) Print(TextOf(imported.duplicates) + u'\n', stdout);
  Print(QStringLiteral("已导入 %1 个分类条目、%2 个分类词。\n")
            .arg(imported.categories)
            .arg(imported.words),
        stdout);
}

int Export(Connection& connection, const QString& fileName) {
  connection.Open();
  // Unbuffered: what is written has arrived, or the reason is at hand.
  constexpr auto kMode = QIODevice::WriteOnly | QIODevice::Unbuffered;
  const QFileInfo place(fileName);
  QFile device(fileName);  // standard output, and what is written into rather than replaced
  QSaveFile file(fileName);
  const bool isReplaced = !fileName.isEmpty() && (place.isFile() || !place.exists());
  QFileDevice& output = isReplaced ? static_cast<QFileDevice&>(file) : device;
  const QString name =
      fileName.isEmpty() ? QStringLiteral("标准输出") : QStringLiteral("文件“%1”").arg(fileName);
  const bool isOpen = fileName.isEmpty() ? device.open(STDOUT_FILENO, kMode) : output.open(kMode);
  if (!isOpen) throw Error(QStringLiteral("无法写%1：%2").arg(name, output.errorString()));
  const QStringList remarks = ExportLibrary(connection, output, !fileName.isEmpty());
  if (isReplaced && !file.commit()) {
    throw Error(QStringLiteral("无法写%1：%2").arg(name, file.errorString()));
  }
  for (const QString& message : remarks) {
    PrintMessage(message);
  }
  return remarks.isEmpty() ? kSuccess : kFailure;
}

void Copy(Connection& source, const QString& targetDsn) {
  source.Open();
  Connection target;
  target.SetConnectionString(QStringLiteral("DSN=") + targetDsn);
  target.Open();
  const Copied copied = CopyLibrary(source, target);
  Print(QStringLiteral("已复制 %1 个分类条目、%2 个分类词，逐行核对相同。\n")
            .arg(copied.categories)
            .arg(copied.words),
        stdout);
}

int Check(Connection& connection, bool repair) {
  connection.Open();
  Repaired repaired;
  if (repair) {
    repaired = RepairLibrary(connection);
  } else {
    repaired.left = CheckLibrary(connection);
  }
  const auto& [mended, left] = repaired;
  for (const Fault& fault : mended) {
    Print(QStringLiteral("%1；已%2。\n").arg(fault.text, fault.mend), stdout);
  }
  for (const Fault& fault : left.faults) Print(fault.text + QStringLiteral("。\n"), stdout);
  QString summary =
      QStringLiteral("%1 个分类条目、%2 个分类词").arg(left.categories).arg(left.words);
  if (repair) summary += QStringLiteral("，已修复 %1 个问题").arg(mended.size());
  if (left.faults.empty()) {
    Print(summary + (mended.empty() ? QStringLiteral("，没有问题。\n") : QStringLiteral("。\n")),
          stdout);
    return kSuccess;
  }
  std::fflush(stdout);
  PrintMessage(summary + (repair ? QStringLiteral("，还有 %1 个问题要由人改正。")
                                 : QStringLiteral("，有 %1 个问题。"))
                             .arg(left.faults.size()));
  return kFailure;
}

int Run(const QStringList& arguments) {
  const CommandLine commandLine = ParseCommandLine(arguments);
  if (commandLine.wantsHelp) {
    std::fputs(ReadFile(QStringLiteral(":/help/hcwordlib-admin.txt")).constData(), stdout);
    return kSuccess;
  }
  if (commandLine.wantsVersion) {
    Print(QStringLiteral("hcwordlib-admin %1\n").arg(QCoreApplication::applicationVersion()),
          stdout);
    return kSuccess;
  }
  if (commandLine.command == u"new") {
    Print(MakeEmbeddedLibrary(commandLine.dsn, commandLine.file, !commandLine.isEmpty), stdout);
    return kSuccess;
  }
  Connection connection;
  connection.SetConnectionString(QStringLiteral("DSN=") + commandLine.dsn);
  if (commandLine.command == QLatin1String("init")) {
    connection.Open();
    CreateTables(connection);
  } else if (commandLine.command == QLatin1String("import")) {
    Import(connection, commandLine);
  } else if (commandLine.command == QLatin1String("copy")) {
    Copy(connection, commandLine.target);
  } else if (commandLine.command == QLatin1String("check")) {
    return Check(connection, commandLine.repair);
  } else {
    return Export(connection, commandLine.file);
  }
  return kSuccess;
}

}  // namespace

int main(int argc, char* argv[]) {
  NameUtf8WithoutLocale();
  QCoreApplication application(argc, argv);
  QCoreApplication::setApplicationVersion(QStringLiteral(HCWORDLIB_VERSION));
  try {
    return Run(QCoreApplication::arguments());
  } catch (const UsageError& error) {
    PrintMessage(error.Description());
    PrintMessage(QStringLiteral("用 hcwordlib-admin --help 查看用法。"));
    return kUsageError;
  } catch (const std::exception& error) {
    PrintMessage(QString::fromUtf8(error.what()));
    return kFailure;
  }
}
