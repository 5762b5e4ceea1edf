// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "get_guid.h"

#include "component.h"
#include "connection.h"
#include "engines.h"
#include "fault_injection.h"
#include "recordset.h"
#include "rows.h"

#include <QCoreApplication>
#include <QDir>

#include <gmock/gmock.h>

#include <filesystem>
#include <set>
#include <thread>

namespace {

constexpr qint32 kUntouched = -7;

const QString& RegisterTable() {
  static const QString kTable = QStringLiteral("GUIDLists");
  return kTable;
}

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

class GetGUIDTest : public EngineTest {
 protected:
  qint32 NewID() {
    qint32 id = kUntouched;
    QString reason = QStringLiteral("untouched");
    EXPECT_TRUE(getGUID_.NewID(connection_, RegisterTable(), id, &reason)) << qPrintable(reason);
    EXPECT_EQ(reason, QStringLiteral("untouched"));
    return id;
  }

  QString FailingNewID(const QString& table) {
    qint32 id = kUntouched;
    QString reason;
    EXPECT_FALSE(getGUID_.NewID(connection_, table, id, &reason)) << qPrintable(table);
    EXPECT_EQ(id, kUntouched);
    EXPECT_FALSE(getGUID_.NewID(connection_, table, id));
    return reason;
  }

  GetGUID getGUID_;
};

INSTANTIATE_ON_ENGINES(GetGUIDTest);

TEST_P(GetGUIDTest, TheIdentifierIsThatOfTheOneNewRow) {
  const qint32 first = NewID();
  EXPECT_EQ(Rows(QStringLiteral("select * from GUIDLists"), {"ID"}, connection_),
            std::to_string(first) + '\n');
  const std::string before = RegisterRows(connection_);
  EXPECT_GT(NewID(), first);
  const std::string after = RegisterRows(connection_);
  EXPECT_EQ(after.substr(0, before.size()), before);
  EXPECT_NE(after.substr(after.find('|')), before.substr(before.find('|')));
}

TEST_P(GetGUIDTest, ARowOfAnotherWriterIsNeverTakenForTheOwnOne) {
  Connection other;
  other.SetConnectionString(ConnectionStringOf(GetParam()));
  other.Open();
  GetGUID otherGUID;
  qint32 otherId = 0;
  const auto otherDraws = [&] { EXPECT_TRUE(otherGUID.NewID(other, RegisterTable(), otherId)); };

  // The steps of a drawing, the other writer's between any two of them.
  Recordset rows;
  otherDraws();
  rows.Open(QStringLiteral("select * from GUIDLists"), connection_, CursorType::kDynamic,
            LockType::kOptimistic);
  otherDraws();
  rows.AddNew();
  for (const char* field : {"GUIDField1", "GUIDField2", "GUIDField3", "GUIDField4"}) {
    rows.SetField(field, 4711);
  }
  otherDraws();
  rows.Update();
  otherDraws();
  rows.MoveLast();
  const qint32 id = rows.FieldInteger("ID");
  EXPECT_EQ(
      Rows(QStringLiteral("select * from GUIDLists where GUIDField1=4711"), {"ID"}, connection_),
      std::to_string(id) + '\n');
}

TEST_P(GetGUIDTest, WritersAtTheSameTimeDrawDifferentIdentifiers) {
  constexpr int kWriters = 2;
  constexpr int kDrawings = 40;
  std::vector<qint32> drawn[kWriters];
  std::vector<std::thread> writers;
  for (std::vector<qint32>& ids : drawn) {
    writers.emplace_back([&ids] {
      Connection connection;
      connection.SetConnectionString(ConnectionStringOf(GetParam()));
      connection.Open();
      GetGUID getGUID;
      for (int i = 0; i < kDrawings; ++i) {
        qint32 id = 0;
        QString reason;
        EXPECT_TRUE(getGUID.NewID(connection, RegisterTable(), id, &reason)) << qPrintable(reason);
        ids.push_back(id);
      }
    });
  }
  for (std::thread& writer : writers) {
    writer.join();
  }
  std::set<qint32> all;
  for (const std::vector<qint32>& ids : drawn) {
    EXPECT_TRUE(std::is_sorted(ids.begin(), ids.end()));
    all.insert(ids.begin(), ids.end());
  }
  EXPECT_EQ(all.size(), size_t{kWriters * kDrawings});
  std::string stored;
  for (const qint32 id : all) {
    stored += std::to_string(id) + '\n';
  }
  EXPECT_EQ(Rows(QStringLiteral("select * from GUIDLists order by ID"), {"ID"}, connection_),
            stored);
}

TEST_P(GetGUIDTest, AnyFailureLeavesTheIdentifierUntouchedAndIsDescribed) {
  for (int step = 1; step <= 3; ++step) {
    qint32 id = kUntouched;
    QString reason;
    FailDatabaseStep(step);
    EXPECT_FALSE(getGUID_.NewID(connection_, RegisterTable(), id, &reason));
    EXPECT_FALSE(IsDatabaseFaultPending()) << step;
    EXPECT_EQ(id, kUntouched);
    EXPECT_EQ(reason, QStringLiteral("injected fault"));
  }

  connection_.Execute(
      QStringLiteral("create temporary table LacksField (GUIDField1 int, GUIDField2 int, "
                     "GUIDField3 int, ID int)"));
  connection_.Execute(
      QStringLiteral("create temporary table LacksNumber (GUIDField1 int, GUIDField2 int, "
                     "GUIDField3 int, GUIDField4 int)"));
  connection_.Execute(
      QStringLiteral("create temporary table RefusesRow (GUIDField1 int, GUIDField2 int, "
                     "GUIDField3 int, GUIDField4 int, ID int, Extra int not null)"));
  EXPECT_THAT(FailingNewID(QStringLiteral("NoTable")).toLower().toStdString(),
              testing::HasSubstr("notable"));
  EXPECT_THAT(FailingNewID(QStringLiteral("LacksField")).toStdString(),
              testing::HasSubstr("GUIDField4"));
  EXPECT_THAT(FailingNewID(QStringLiteral("LacksNumber")).toStdString(), testing::HasSubstr("ID"));
  EXPECT_THAT(FailingNewID(QStringLiteral("RefusesRow")).toLower().toStdString(),
              testing::HasSubstr("extra"));
  NewID();
}

TEST_P(GetGUIDTest, TheGeneratorIsCreatedOnFirstUseAndKept) {
  {
    const GeneratorTakenAway away;
    EXPECT_EQ(FailingNewID(RegisterTable()), CannotCreateObjectText());
    EXPECT_EQ(RegisterRows(connection_), "");
  }
  const qint32 first = NewID();
  const GeneratorTakenAway away;
  EXPECT_GT(NewID(), first);
}

}  // namespace
