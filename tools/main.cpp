// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

// hcwordlib-admin: creates, fills and writes out the library of a data source.

#include "connection.h"
#include "library_tasks.h"

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

constexpr char kHelp[] = R"(用法：hcwordlib-admin [选项] 命令

建立、导入和导出 ODBC 数据源中的词句库。

命令：
  init            建立词句库的各表；其中任何一个表已经存在时，什么也不建立
  import 文件     把大纲文件中的分类条目和分类词加到词句库已有的内容之后；
                  文件有任何错误时，逐一指出行号，什么也不导入；
                  文件写作 - 时读标准输入
  export [文件]   把词句库写成大纲文件；不给出文件时写到标准输出；
                  逐一指出没有上级而未导出的词、导入前须改的名称，退出状态为 1

选项：
  --dsn 名称      数据源的名称（不给出时为 HCWordLib）
  --duplicates 方式  导入时如何对待重名：refuse 拒绝整个文件（不给出时）；
                  skip 不导入后一个及其下的词；number 在后一个的名称后加 2、3……
  --help          显示本说明
  --version       显示版本

大纲文件是 UTF-8 文本：每个分类条目占一行，不缩进；其下的分类词各占一行，每级缩进
一个制表符。分类条目不能重名，同一分类条目中的分类词不能重名。
名称中的下列内容写作转义：
  \\      反斜杠
  \n \r   换行、回车
  \t      制表符
  \uXXXX  一个 UTF-16 单元（四位十六进制数），用于其他控制字符等；
          空字符（\u0000）和不成对的代理项不能导入
  \e      空名称（单独成为名称）

退出状态：0 成功；1 失败；2 用法错误。
)";

struct CommandLine {
  QString dsn = QStringLiteral("HCWordLib");
  QString command;
  QString file;  // empty when absent, "-" for standard input
  Duplicates duplicates = Duplicates::kRefuse;
  bool wantsHelp = false;
  bool wantsVersion = false;
};

class UsageError : public Error {
 public:
  using Error::Error;
};

Duplicates DuplicatesCalled(const QString& name) {
  if (name == u"refuse") return Duplicates::kRefuse;
  if (name == u"skip") return Duplicates::kSkip;
  if (name == u"number") return Duplicates::kNumber;
  throw UsageError(QStringLiteral("“%1”不是 refuse、skip 或 number。").arg(name));
}

CommandLine ParseCommandLine(const QStringList& arguments) {
  CommandLine result;
  QStringList words;
  bool optionsEnded = false;
  for (qsizetype i = 1; i < arguments.size(); ++i) {
    const QString& argument = arguments[i];
    const QString assignment = QStringLiteral("--dsn=");
    const QString duplicates = QStringLiteral("--duplicates=");
    if (optionsEnded || argument == u"-" || !argument.startsWith(QLatin1Char('-'))) {
      words += argument;
    } else if (argument == QLatin1String("--")) {
      optionsEnded = true;
    } else if (argument == QLatin1String("--help")) {
      result.wantsHelp = true;
    } else if (argument == QLatin1String("--version")) {
      result.wantsVersion = true;
    } else if (argument == QLatin1String("--dsn") && i + 1 < arguments.size()) {
      result.dsn = arguments[++i];
    } else if (argument.startsWith(assignment)) {
      result.dsn = argument.mid(assignment.size());
    } else if (argument == QLatin1String("--duplicates") && i + 1 < arguments.size()) {
      result.duplicates = DuplicatesCalled(arguments[++i]);
    } else if (argument.startsWith(duplicates)) {
      result.duplicates = DuplicatesCalled(argument.mid(duplicates.size()));
    } else {
      throw UsageError(QStringLiteral("选项“%1”有误。").arg(argument));
    }
  }
  if (result.wantsHelp || result.wantsVersion) {
    return result;
  }
  for (const QChar character : QStringLiteral("[]{}(),;?*=!@\\")) {
    if (result.dsn.isEmpty() || result.dsn.contains(character)) {
      throw UsageError(QStringLiteral("“%1”不是数据源的名称。").arg(result.dsn));
    }
  }
  if (words.isEmpty()) {
    throw UsageError(QStringLiteral("没有给出命令。"));
  }
  result.command = words.takeFirst();
  const bool isInit = result.command == QLatin1String("init");
  const bool isImport = result.command == QLatin1String("import");
  if (!isInit && !isImport && result.command != QLatin1String("export")) {
    throw UsageError(QStringLiteral("没有命令“%1”。").arg(result.command));
  }
  if (words.size() > (isInit ? 0 : 1) || (isImport && words.isEmpty()) ||
      (!words.isEmpty() && words[0].isEmpty())) {
    throw UsageError(QStringLiteral("命令“%1”的参数有误。").arg(result.command));
  }
  result.file = words.value(0);
  return result;
}

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

int Run(const QStringList& arguments) {
  const CommandLine commandLine = ParseCommandLine(arguments);
  if (commandLine.wantsHelp) {
    std::fputs(kHelp, stdout);
    return kSuccess;
  }
  if (commandLine.wantsVersion) {
    Print(QStringLiteral("hcwordlib-admin %1\n").arg(QCoreApplication::applicationVersion()),
          stdout);
    return kSuccess;
  }
  Connection connection;
  connection.SetConnectionString(QStringLiteral("DSN=") + commandLine.dsn);
  if (commandLine.command == QLatin1String("init")) {
    connection.Open();
    CreateTables(connection);
  } else if (commandLine.command == QLatin1String("import")) {
    Import(connection, commandLine);
  } else {
    return Export(connection, commandLine.file);
  }
  return kSuccess;
}

}  // namespace

int main(int argc, char* argv[]) {
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
