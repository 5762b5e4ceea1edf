// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

// What one client of the team tried and what came of it, as lines on standard output: the fields
// divided by tabs behind the time in nanoseconds of the machine, in one write each, so that what
// was confirmed to the client stands there even when it is killed at the next instant. First what
// is tried:
//   create  GID FATHERID NAME      a category (GID 0, not known yet) or a word
//   rename  GID ID OLD NEW         a word
//   delete  GID ID NAME ID NAME... a word and the words below it, as the client knows them
//   drop    GID NAME               a category
//   restore                        the last delete or drop of this client is taken back
// and then one of
//   done    NUMBER                 of what was created, else 0
//   refused MESSAGE                what the user was told
class Journal {
 public:
  void Try(const QStringList& fields) { Write(fields); }
  void Done(qint32 number = 0) { Write({QStringLiteral("done"), QString::number(number)}); }
  void Refused(QString message) {
    Write({QStringLiteral("refused"), message.replace(u'\n', u' ').replace(u'\t', u' ')});
  }

 private:
  static void Write(const QStringList& fields);
};
