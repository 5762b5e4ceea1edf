// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "command_line.h"

#include <QCommandLineParser>
#include <QFile>

#include <cstdio>

namespace {

constexpr int kSuccess = 0;
constexpr int kUsageError = 2;

// Qt takes these off the command line itself, but only once it has a display.
const char* const kQtFlags[] = {"reverse", "widgetcount", "nograb", "dograb", "testability"};
const char* const kQtOptions[] = {"platform",
                                  "platformpluginpath",
                                  "platformtheme",
                                  "plugin",
                                  "qwindowgeometry",
                                  "geometry",
                                  "qwindowtitle",
                                  "title",
                                  "qwindowicon",
                                  "icon",
                                  "session",
                                  "display",
                                  "name",
                                  "style",
                                  "stylesheet",
                                  "qmljsdebugger"};

void Print(const QByteArray& text, FILE* stream) {
  std::fputs(text.constData(), stream);
}

}  // namespace

std::optional<int> AnswerCommandLine(int argc, char** argv) {
  QCommandLineParser parser;
  parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
  const QString help = QStringLiteral("help");
  const QString version = QStringLiteral("version");
  parser.addOption(QCommandLineOption(help));
  parser.addOption(QCommandLineOption(version));
  for (const char* flag : kQtFlags) parser.addOption(QCommandLineOption(QLatin1String(flag)));
  for (const char* option : kQtOptions) {
    const QString name = QLatin1String(option);
    parser.addOption(QCommandLineOption(name, QString(), name));
  }
  QStringList arguments;
  for (int i = 0; i < argc; ++i) arguments += QString::fromLocal8Bit(argv[i]);

  if (!parser.parse(arguments) || !parser.positionalArguments().isEmpty()) {
    Print("hcwordlib: 参数有误：" + arguments.mid(1).join(u' ').toUtf8() +
              "\n用法：hcwordlib [选项]；用 hcwordlib --help 查看说明。\n",
          stderr);
    return kUsageError;
  }
  if (parser.isSet(help)) {
    QFile text(QStringLiteral(":/help/hcwordlib.txt"));
    if (text.open(QIODevice::ReadOnly)) Print(text.readAll(), stdout);
    return kSuccess;
  }
  if (parser.isSet(version)) {
    Print("hcwordlib " HCWORDLIB_VERSION "\n", stdout);
    return kSuccess;
  }
  return std::nullopt;
}
