// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "engines.h"
#include "session.h"
#include "shrink.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>

namespace {

constexpr int kSkipped = 77;  // what ctest takes for skipped
constexpr int kSessionTimeout = 600'000;

const Engine* EngineNamed(const QString& name) {
  for (const Engine& engine : kEngines) {
    if (name == QLatin1String(engine.name)) return &engine;
  }
  return nullptr;
}

// The program knows one data source and one settings store by name, so a session has its own.
bool TakeDataSource(const Engine& engine, const QTemporaryDir& folder) {
  const QByteArray source = qgetenv(engine.variable);
  QFile sources(qEnvironmentVariable("ODBCINI"));
  QFile renamed(folder.filePath(QStringLiteral("odbc.ini")));
  if (source.isEmpty() || !sources.open(QIODevice::ReadOnly) ||
      !renamed.open(QIODevice::WriteOnly)) {
    return false;
  }
  QByteArray text = sources.readAll().replace('[' + source + ']', "[HCWordLib]");
  renamed.write(text.replace("SyncPragma=FULL", "SyncPragma=OFF"));  // nothing here need last
  qputenv("ODBCINI", QFile::encodeName(renamed.fileName()));
  qputenv("XDG_CONFIG_HOME", QFile::encodeName(folder.path()));
  return true;
}

int RunSession(const Engine& engine, quint32 seed, const QList<int>& acts) {
  const QTemporaryDir folder;
  if (!TakeDataSource(engine, folder)) return kSkipped;
  QApplication::setQuitOnLastWindowClosed(false);
  try {
    Session session(engine, seed);
    for (const int act : acts) session.Act(act);
  } catch (const std::exception& fault) {
    std::printf("\nFAULT %s\n", fault.what());
    return EXIT_FAILURE;
  }
  return EXIT_SUCCESS;
}

struct Outcome {
  int status = 0;
  QStringList lines;
  // What tells one fault from another: the message up to its first colon.
  QString Kind() const {
    for (const QString& line : lines) {
      if (line.startsWith(QStringLiteral("FAULT "))) return line.section(u':', 0, 0);
    }
    return QStringLiteral("status %1").arg(status);
  }
};

QString Joined(const QList<int>& acts) {
  QStringList numbers;
  for (const int act : acts) numbers += QString::number(act);
  return numbers.join(u',');
}

Outcome RunInProcess(const QString& engine, quint32 seed, const QList<int>& acts) {
  QProcess process;
  process.setProcessChannelMode(QProcess::MergedChannels);
  process.start(QCoreApplication::applicationFilePath(),
                {QStringLiteral("--engine"), engine, QStringLiteral("--seed"),
                 QString::number(seed), QStringLiteral("--only"), Joined(acts)});
  Outcome outcome;
  const bool ended = process.waitForFinished(kSessionTimeout);
  if (!ended) process.kill(), process.waitForFinished();
  outcome.lines = QString::fromUtf8(process.readAll()).split(u'\n', Qt::SkipEmptyParts);
  outcome.status = !ended                                        ? -2
                   : process.exitStatus() == QProcess::CrashExit ? -1
                                                                 : process.exitCode();
  // A new category whose identifier cannot be drawn ends the program without a box.
  const bool toldFault = outcome.Kind().startsWith(QStringLiteral("FAULT"));
  if (outcome.status == EXIT_FAILURE && !toldFault &&
      outcome.lines.contains(QStringLiteral("hcwordlib: injected fault"))) {
    outcome.status = EXIT_SUCCESS;
  }
  return outcome;
}

void TellFault(const QString& engine, quint32 seed, const Outcome& outcome,
               const QList<int>& acts) {
  std::printf("\n%s, seed %u: %s\nshortening it ...\n", qUtf8Printable(engine), seed,
              qUtf8Printable(outcome.Kind()));
  std::fflush(stdout);
  const bool hangs = outcome.status == -2;
  const QList<int> fewest = hangs ? acts : Shrunk(acts, [&](const QList<int>& rest) {
    return RunInProcess(engine, seed, rest).Kind() == outcome.Kind();
  });
  const Outcome last = hangs ? outcome : RunInProcess(engine, seed, fewest);
  std::printf("%s\n\nagain with:  script/soak --engine %s --seed %u --only %s\n",
              qUtf8Printable(last.lines.join(u'\n')), qUtf8Printable(engine), seed,
              qUtf8Printable(Joined(fewest)));
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QCommandLineParser parser;
  parser.setApplicationDescription(
      QStringLiteral("Random sessions in the real main window, audited after every act."));
  parser.addHelpOption();
  parser.addOptions({
      {QStringLiteral("engine"), QStringLiteral("sqlite, postgresql or mariadb"),
       QStringLiteral("name"), QStringLiteral("sqlite")},
      {QStringLiteral("seed"), QStringLiteral("of the first session"), QStringLiteral("number"),
       QStringLiteral("1")},
      {QStringLiteral("sessions"), QStringLiteral("how many, unless --minutes is given"),
       QStringLiteral("number"), QStringLiteral("10")},
      {QStringLiteral("minutes"), QStringLiteral("how long"), QStringLiteral("number")},
      {QStringLiteral("acts"), QStringLiteral("in each session"), QStringLiteral("number"),
       QStringLiteral("400")},
      {QStringLiteral("only"), QStringLiteral("one session of just these acts"),
       QStringLiteral("numbers")},
  });
  parser.process(application);
  const QString name = parser.value(QStringLiteral("engine"));
  const Engine* engine = EngineNamed(name);
  const quint32 seed = parser.value(QStringLiteral("seed")).toUInt();
  if (engine == nullptr) parser.showHelp(2);

  QList<int> acts;
  if (parser.isSet(QStringLiteral("only"))) {
    for (const QString& act :
         parser.value(QStringLiteral("only")).split(u',', Qt::SkipEmptyParts)) {
      acts += act.toInt();
    }
    return RunSession(*engine, seed, acts);
  }
  for (int i = 0; i < parser.value(QStringLiteral("acts")).toInt(); ++i) acts += i;

  const double minutes = parser.value(QStringLiteral("minutes")).toDouble();
  const int sessions = parser.value(QStringLiteral("sessions")).toInt();
  QElapsedTimer clock;
  clock.start();
  qsizetype done = 0;
  int count = 0;
  for (; minutes > 0 ? static_cast<double>(clock.elapsed()) < minutes * 60'000 : count < sessions;
       ++count) {
    const auto current = seed + static_cast<quint32>(count);
    const Outcome outcome = RunInProcess(name, current, acts);
    if (outcome.status == kSkipped) {
      std::printf("the data source %s is not there\n", engine->variable);
      return kSkipped;
    }
    done += std::count_if(outcome.lines.begin(), outcome.lines.end(),
                          [](const QString& line) { return line.front().isDigit(); });
    if (outcome.status == EXIT_SUCCESS) continue;
    TellFault(name, current, outcome, acts);
    return EXIT_FAILURE;
  }
  std::printf("%s: %lld acts in %d sessions from seed %u on, %lld s, no finding\n",
              qUtf8Printable(name), static_cast<long long>(done), count, seed,
              static_cast<long long>(clock.elapsed() / 1000));
  return EXIT_SUCCESS;
}
