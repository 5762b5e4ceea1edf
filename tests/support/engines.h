// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "connection.h"

#include <QStringList>

#include <gtest/gtest.h>
#include <ostream>

// A database engine that the tests run on. script/servers.sh starts the servers and sets the
// variables.
struct Engine {
  const char* name;      // as in data/schema/<name>.sql
  const char* variable;  // the environment variable that holds the name of the data source
};

inline constexpr Engine kEngines[] = {{"sqlite", "HCW_TEST_SQLITE"},
                                      {"postgresql", "HCW_TEST_POSTGRESQL"},
                                      {"mariadb", "HCW_TEST_MARIADB"}};

inline void PrintTo(const Engine& engine, std::ostream* stream) {
  *stream << engine.name;
}

// "DSN=..." of the engine's data source, or an empty text when it is not there.
QString ConnectionStringOf(const Engine& engine);

// The statements of the engine's schema.
QStringList SchemaOf(const Engine& engine);

// Drops the library's tables, if there are any, and makes them again, empty. One process at a time
// may use an engine.
void MakeEmptyLibrary(const Engine& engine, Connection& connection);

// The base of tests that run on each engine: an empty library and an open connection to it. Use
// INSTANTIATE_ON_ENGINES(YourTest) in the source that has the tests.
class EngineTest : public testing::TestWithParam<Engine> {
 protected:
  // Skips the test when the engine's data source is not there.
  void SetUp() override;
  // From here on the tables take words without a category or a parent word, as those do that were
  // made by other means.
  void DropGuards();

  Connection connection_;
};

#define INSTANTIATE_ON_ENGINES(TestClass)                                        \
  INSTANTIATE_TEST_SUITE_P(Engines, TestClass, testing::ValuesIn(kEngines),      \
                           [](const testing::TestParamInfo<Engine>& parameter) { \
                             return std::string(parameter.param.name);           \
                           })
