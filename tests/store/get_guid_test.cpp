// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "get_guid.h"

#include "component.h"
#include "engines.h"
#include "rows.h"

#include <QCoreApplication>
#include <QDir>

#include <gmock/gmock.h>

#include <filesystem>
#include <set>
#include <thread>

namespace {

constexpr char kRegister[] = "GUIDLists";

// Takes the generator's library away from beside this program.
class GeneratorTakenAway {
 public:
  GeneratorTakenAway() { std::filesystem::rename(library_, hidden_); }
  ~GeneratorTakenAway() { std::filesystem::rename(hidden_, library_); }

 private:
  const std::filesystem::path library_ =
      QDir(QCoreApplication::applicationDirPath())
          .filePath(QStringLiteral("lib%1.so").arg(QLatin1String(kGUIDGenProgId)))
          .toStdString();
  const std::filesystem::path hidden_ = library_.string() + ".away";
};

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

TEST_P(GetGUIDTest, TheGeneratorIsCreatedOnFirstUseAndKept) {
  GetGUID getGUID;
  qint32 id = -7;
  QString reason;
  {
    const GeneratorTakenAway away;
    EXPECT_FALSE(getGUID.NewID(connection_, QLatin1String(kRegister), id, &reason));
  }
  EXPECT_EQ(reason, CannotCreateObjectText());
  EXPECT_EQ(id, -7);
  EXPECT_EQ(RegisterRows(connection_), "");
  EXPECT_TRUE(getGUID.NewID(connection_, QLatin1String(kRegister), id));
  const GeneratorTakenAway away;
  EXPECT_TRUE(getGUID.NewID(connection_, QLatin1String(kRegister), id));
}

}  // namespace
