// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "command_line.h"

#include <algorithm>
#include <iterator>

const char kHelp[] = R"(用法：hcwordlib-admin [选项] 命令

建立、导入、导出、复制和检查 ODBC 数据源中的词句库。

命令：
  new [文件]      为本人建立单机使用的词句库（SQLite）：文件、数据源、各表和示例；
                  不给出文件时放在 ~/.local/share/hcwordlib/library.sqlite，那里
                  已有词句库而没有数据源时，只建立数据源；已经存在的从不改动
  init            建立词句库的各表；其中任何一个表已经存在时，什么也不建立
  import 文件     把大纲文件中的分类条目和分类词加到词句库已有的内容之后；
                  文件有任何错误时，逐一指出行号，什么也不导入；
                  文件写作 - 时读标准输入
  export [文件]   把词句库写成大纲文件；不给出文件时写到标准输出；
                  逐一指出没有上级而未导出的词、导入前须改的名称，退出状态为 1
  copy --to 名称  把词句库连同所有编号复制到另一个数据源的空表中，没有表时先建立；
                  两边逐行核对，有任何不同时什么也不复制
  check           检查整个词句库，逐一指出问题；有问题时退出状态为 1

选项：
  --dsn 名称      数据源的名称（不给出时为 HCWordLib）
  --duplicates 方式  导入时如何对待重名：refuse 拒绝整个文件（不给出时）；
                  skip 不导入后一个及其下的词；number 在后一个的名称后加 2、3……
  --to 名称       复制到的数据源的名称
  --empty         新建的词句库不含示例
  --repair        检查时在一个事务中修复能修复的，不丢失任何词：没有归属的词连同其下的词
                  移到分类条目“找回的词”，后一个重名的在名称后加 2、3……
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

namespace {

struct CommandForm {
  const char* name;
  qsizetype leastWords, mostWords;  // behind the command
  QStringList options;              // besides --dsn
};

const CommandForm kCommands[] = {
    {"new", 0, 1, {QStringLiteral("--empty")}},
    {"init", 0, 0, {}},
    {"import", 1, 1, {QStringLiteral("--duplicates")}},
    {"export", 0, 1, {}},
    {"copy", 0, 0, {QStringLiteral("--to")}},
    {"check", 0, 0, {QStringLiteral("--repair")}},
};

Duplicates DuplicatesCalled(const QString& name) {
  if (name == u"refuse") return Duplicates::kRefuse;
  if (name == u"skip") return Duplicates::kSkip;
  if (name == u"number") return Duplicates::kNumber;
  throw UsageError(QStringLiteral("“%1”不是 refuse、skip 或 number。").arg(name));
}

const QString& CheckedDsn(const QString& name) {
  for (const QChar character : QStringLiteral("[]{}(),;?*=!@\\")) {
    if (name.isEmpty() || name.contains(character)) {
      throw UsageError(QStringLiteral("“%1”不是数据源的名称。").arg(name));
    }
  }
  return name;
}

// The arguments taken apart: the words in their order, and each option with its value, which is
// empty for an option that takes none.
struct Arguments {
  QStringList words;
  QList<std::pair<QString, QString>> options;
};

Arguments TakeApart(const QStringList& arguments) {
  static const QStringList kWithValue{QStringLiteral("--dsn"), QStringLiteral("--duplicates"),
                                      QStringLiteral("--to")};
  static const QStringList kAlone{QStringLiteral("--empty"), QStringLiteral("--help"),
                                  QStringLiteral("--repair"), QStringLiteral("--version")};
  Arguments result;
  bool optionsEnded = false;
  for (qsizetype i = 1; i < arguments.size(); ++i) {
    const QString& argument = arguments[i];
    const qsizetype equals = argument.indexOf(u'=');
    const QString name = argument.left(equals);
    if (optionsEnded || argument == u"-" || !argument.startsWith(u'-')) {
      result.words += argument;
    } else if (argument == u"--") {
      optionsEnded = true;
    } else if (kAlone.contains(argument)) {
      result.options.emplaceBack(argument, QString());
    } else if (kWithValue.contains(name) && equals >= 0) {
      result.options.emplaceBack(name, argument.mid(equals + 1));
    } else if (kWithValue.contains(name) && i + 1 < arguments.size()) {
      result.options.emplaceBack(name, arguments[++i]);
    } else {
      throw UsageError(QStringLiteral("选项“%1”有误。").arg(argument));
    }
  }
  return result;
}

const CommandForm& FormOf(const QStringList& words) {
  if (words.isEmpty()) throw UsageError(QStringLiteral("没有给出命令。"));
  const auto* form =
      std::find_if(std::begin(kCommands), std::end(kCommands),
                   [&](const auto& each) { return words[0] == QLatin1String(each.name); });
  if (form == std::end(kCommands)) {
    throw UsageError(QStringLiteral("没有命令“%1”。").arg(words[0]));
  }
  const qsizetype following = words.size() - 1;
  if (following < form->leastWords || following > form->mostWords ||
      (following > 0 && words[1].isEmpty())) {
    throw UsageError(QStringLiteral("命令“%1”的参数有误。").arg(words[0]));
  }
  return *form;
}

}  // namespace

CommandLine ParseCommandLine(const QStringList& arguments) {
  const auto [words, options] = TakeApart(arguments);
  CommandLine result;
  for (const auto& option : options) {
    if (option.first == u"--help") result.wantsHelp = true;
    if (option.first == u"--version") result.wantsVersion = true;
  }
  if (result.wantsHelp || result.wantsVersion) return result;

  const CommandForm& form = FormOf(words);
  result.command = words[0];
  result.file = words.value(1);
  for (const auto& [name, value] : options) {
    if (name == u"--dsn") {
      result.dsn = CheckedDsn(value);
    } else if (!form.options.contains(name)) {
      throw UsageError(QStringLiteral("命令“%1”没有选项“%2”。").arg(words[0], name));
    } else if (name == u"--empty") {
      result.isEmpty = true;
    } else if (name == u"--repair") {
      result.repair = true;
    } else if (name == u"--duplicates") {
      result.duplicates = DuplicatesCalled(value);
    } else if (name == u"--to") {
      result.target = CheckedDsn(value);
    }
  }
  if (result.command == u"copy") {
    if (result.target.isEmpty()) throw UsageError(QStringLiteral("没有用 --to 给出目标数据源。"));
    if (result.target.compare(result.dsn, Qt::CaseInsensitive) == 0) {
      throw UsageError(QStringLiteral("不能把数据源“%1”复制到它自己。").arg(result.dsn));
    }
  }
  return result;
}
