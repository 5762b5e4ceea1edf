// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "command_line.h"

#include <algorithm>
#include <iterator>

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

// As ODBC has it (SQLConfigDataSource in its reference), where 32 is SQL_MAX_DSN_LENGTH.
const QString& CheckedDsn(const QString& name) {
  constexpr qsizetype kMostCharacters = 32;
  const bool isName =
      !name.isEmpty() && name.size() <= kMostCharacters && name.trimmed() == name &&
      std::all_of(name.begin(), name.end(), [](QChar character) {
        return character.isPrint() && !QStringLiteral("[]{}(),;?*=!@\\").contains(character);
      });
  if (!isName) throw UsageError(QStringLiteral("“%1”不是数据源的名称。").arg(name));
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
