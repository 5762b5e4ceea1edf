// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

// One client of a team that works on one library; soak/team.py runs several of them.
//
//   hcwordlib-team writer|window NAME SEED
//   hcwordlib-team empty ENGINE 0
//
// works on the data source "HCWordLib" until standard input ends, and writes its journal to
// standard output.

#include "engines.h"
#include "window_user.h"
#include "writer.h"

#include <poll.h>
#include <unistd.h>

#include <QApplication>

#include <cstdio>
#include <cstdlib>

namespace {

constexpr int kThinkingTime = 10;  // milliseconds

// Lets some time pass; false when standard input has ended.
bool GoesOn() {
  pollfd input{STDIN_FILENO, POLLIN, 0};
  return poll(&input, 1, kThinkingTime) == 0;
}

void MakeEmpty(const QString& name) {
  for (const Engine& engine : kEngines) {
    if (name != QLatin1String(engine.name)) continue;
    Connection connection;
    connection.SetConnectionString(QStringLiteral("DSN=HCWordLib"));
    connection.Open();
    MakeEmptyLibrary(engine, connection);
  }
}

template <class Client>
void Work(const QString& name, quint32 seed) {
  Client client(name, seed);
  while (GoesOn()) client.Act();
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() != 4) return 2;
  const auto work = arguments[1] == u"window" ? Work<WindowUser> : Work<Writer>;
  try {
    if (arguments[1] == u"empty") {
      MakeEmpty(arguments[2]);
    } else {
      work(arguments[2], arguments[3].toUInt());
    }
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s: %s\n", qUtf8Printable(arguments[2]), error.what());
    return EXIT_FAILURE;
  }
  std::fflush(nullptr);
  std::_Exit(EXIT_SUCCESS);
}
