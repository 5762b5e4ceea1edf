// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "engines.h"

#include "sql_script.h"

#include <QFile>

#include <stdexcept>
#include <string_view>

QString ConnectionStringOf(const Engine& engine) {
  const QString source = qEnvironmentVariable(engine.variable);
  return source.isEmpty() ? QString() : QStringLiteral("DSN=") + source;
}

QStringList SchemaOf(const Engine& engine) {
  QFile file(QStringLiteral(SCHEMA_FOLDER "/%1.sql").arg(QLatin1String(engine.name)));
  if (!file.open(QIODevice::ReadOnly)) {
    throw std::runtime_error("missing schema: " + file.fileName().toStdString());
  }
  return StatementsOf(QString::fromUtf8(file.readAll()));
}

void MakeEmptyLibrary(const Engine& engine, Connection& connection) {
  for (const char* table : {"Dictionary", "Items", "GUIDLists"}) {
    connection.Execute(QStringLiteral("drop table if exists ") + QLatin1String(table));
  }
  for (const QString& statement : SchemaOf(engine)) connection.Execute(statement);
}

void EngineTest::SetUp() {
  const QString connectionString = ConnectionStringOf(GetParam());
  if (connectionString.isEmpty()) GTEST_SKIP() << GetParam().variable << " is not set";
  connection_.SetConnectionString(connectionString);
  connection_.Open();
  MakeEmptyLibrary(GetParam(), connection_);
}

void EngineTest::DropGuards() {
  const bool isPostgreSql = std::string_view(GetParam().name) == "postgresql";
  connection_.Execute(QStringLiteral("drop trigger if exists ItemsInserted") +
                      QLatin1String(isPostgreSql ? " on Items" : ""));
}
