// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "sql_script.h"

#include <QRegularExpression>

QStringList StatementsOf(const QString& script) {
  static const QRegularExpression kComment(QStringLiteral("^--.*\\n"),
                                           QRegularExpression::MultilineOption);
  static const QRegularExpression kEnd(QStringLiteral(";\\s*(?:\\n\\n|\\z)"));
  QStringList statements;
  for (const QString& part : QString(script).remove(kComment).split(kEnd)) {
    if (const QString statement = part.trimmed(); !statement.isEmpty()) statements += statement;
  }
  return statements;
}
