// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "duplicates.h"
#include "error.h"

#include <QStringList>

// What the arguments ask for; what the command does not take keeps its default.
struct CommandLine {
  QString dsn = QStringLiteral("HCWordLib");
  QString command;  // one of those that --help tells
  QString file;     // empty when absent, "-" for standard input
  QString target;   // the data source that is copied to
  Duplicates duplicates = Duplicates::kRefuse;
  bool isEmpty = false;
  bool repair = false;
  bool wantsHelp = false;
  bool wantsVersion = false;
};

class UsageError : public Error {
 public:
  using Error::Error;
};

// `arguments` are those of the program, its own name first. Raises UsageError for what the help
// does not allow. With --help or --version the rest is not looked at.
CommandLine ParseCommandLine(const QStringList& arguments);
