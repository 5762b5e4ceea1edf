// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "schema.h"

#include "connection.h"
#include "error.h"
#include "sql_script.h"

#include <QFile>

QStringList SchemaOf(const Connection& connection) {
  QFile schema(QStringLiteral(":/schema/%1.sql").arg(connection.EngineName().toLower()));
  if (!schema.open(QIODevice::ReadOnly)) {
    throw Error(
        QStringLiteral("没有为数据库引擎“%1”准备的建表语句。").arg(connection.EngineName()));
  }
  return StatementsOf(QString::fromUtf8(schema.readAll()));
}
