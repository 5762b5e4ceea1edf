// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "get_guid.h"

#include "engines.h"
#include "rows.h"

#include <set>
#include <thread>

namespace {

constexpr char kRegister[] = "GUIDLists";

class GetGUIDTest : public EngineTest {};

INSTANTIATE_ON_ENGINES(GetGUIDTest);

TEST_P(GetGUIDTest, WritersAtTheSameTimeDrawDifferentIdentifiers) {
  std::vector<qint32> drawn[2];
  std::vector<std::thread> writers;
  for (std::vector<qint32>& ids : drawn) {
    writers.emplace_back([&ids] {
      Connection connection;
      connection.SetConnectionString(ConnectionStringOf(GetParam()));
      connection.Open();
      GetGUID getGUID;
      for (int i = 0; i < 40; ++i) {
        qint32 id = 0;
        EXPECT_TRUE(getGUID.NewID(connection, QLatin1String(kRegister), id));
        ids.push_back(id);
      }
    });
  }
  for (std::thread& writer : writers) writer.join();
  std::set<qint32> all;
  for (const std::vector<qint32>& ids : drawn) all.insert(ids.begin(), ids.end());
  EXPECT_EQ(all.size(), 80u);
  std::string stored;
  for (const qint32 id : all) stored += std::to_string(id) + '\n';
  EXPECT_EQ(Rows(QStringLiteral("select * from GUIDLists order by ID"), {"ID"}, connection_),
            stored);
}

}  // namespace
