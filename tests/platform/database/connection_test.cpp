// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "database_error.h"
#include "engines.h"
#include "fault_injection.h"
#include "recordset.h"

#include <gmock/gmock.h>

namespace {

// Runs `work`, which has to raise a DatabaseError, and hands that back.
template <typename Work>
DatabaseError Raised(Work work) {
  try {
    work();
  } catch (const DatabaseError& error) {
    return error;
  }
  ADD_FAILURE() << "no error was raised";
  return DatabaseError(QString());
}

class ConnectionTest : public EngineTest {
 protected:
  qint32 CountOf(const char* table) {
    Recordset set;
    set.Open(QStringLiteral("select * from ") + QLatin1String(table), connection_);
    return set.RecordCount();
  }

  void AddCategory(qint32 gid) {
    connection_.Execute(
        QStringLiteral("insert into Dictionary (GID,SortName,Position) values (%1,'钻削',1)")
            .arg(gid));
  }
};

TEST_P(ConnectionTest, KeepsAllOrNothingOfATransaction) {
  connection_.BeginTransaction();
  AddCategory(1);
  connection_.RollbackTransaction();
  connection_.BeginTransaction();
  AddCategory(1);
  connection_.CommitTransaction();
  connection_.BeginTransaction();
  AddCategory(2);
  FailDatabaseStep(1);
  Raised([&] { connection_.CommitTransaction(); });
  connection_.RollbackTransaction();
  EXPECT_EQ(CountOf("Dictionary"), 1);
}

TEST_P(ConnectionTest, ReportsWhatTheDriverSays) {
  AddCategory(1);
  const DatabaseError duplicate = Raised([&] { AddCategory(1); });
  const QString engine = connection_.EngineName();
  EXPECT_EQ(duplicate.SqlState(), engine.startsWith(u"SQLite")       ? u"HY000"
                                  : engine.startsWith(u"PostgreSQL") ? u"23505"
                                                                     : u"23000");
  EXPECT_TRUE(duplicate.IsDuplicateKey());
  EXPECT_THAT(duplicate.what(), testing::Not(testing::StartsWith("[")));
  EXPECT_EQ(CountOf("Dictionary"), 1);
  const DatabaseError missing =
      Raised([&] { connection_.Execute(QStringLiteral("delete * from 没有的表")); });
  EXPECT_FALSE(missing.IsDuplicateKey());
  EXPECT_THAT(missing.what(), testing::HasSubstr("没有的表"));
  connection_.Close();
  EXPECT_EQ(Raised([&] { AddCategory(2); }).Description(),
            QStringLiteral("对象关闭时，不允许操作。"));
}

TEST_P(ConnectionTest, FailsAtTheStepAskedForAndOnlyThere) {
  const auto work = [&] {
    AddCategory(1);
    Recordset set;
    set.Open(QStringLiteral("select * from GUIDLists"), connection_, CursorType::kDynamic,
             LockType::kOptimistic);
    set.AddNew();
    for (const char* field : {"GUIDField1", "GUIDField2", "GUIDField3", "GUIDField4"}) {
      set.SetField(field, 1);
    }
    set.Update();
    set.FieldInteger("ID");
  };
  for (int step = 1; step <= 4; ++step) {
    SCOPED_TRACE(step);
    MakeEmptyLibrary(GetParam(), connection_);
    FailDatabaseStep(step);
    Raised(work);
    EXPECT_FALSE(IsDatabaseFaultPending());
    EXPECT_EQ(CountOf("Dictionary"), step > 1 ? 1 : 0);
    EXPECT_EQ(CountOf("GUIDLists"), step > 3 ? 1 : 0);
  }
  MakeEmptyLibrary(GetParam(), connection_);
  FailDatabaseStep(5);
  work();
  EXPECT_TRUE(IsDatabaseFaultPending());
  FailDatabaseStep(0);
}

INSTANTIATE_ON_ENGINES(ConnectionTest);

TEST(ConnectionWithoutSource, IsRefusedAndStaysClosed) {
  Connection connection;
  connection.SetConnectionString(QStringLiteral("DSN=没有的数据源"));
  EXPECT_EQ(Raised([&] { connection.Open(); }).SqlState(), u"IM002");
  EXPECT_FALSE(connection.IsOpen());
}

}  // namespace
