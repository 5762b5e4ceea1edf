// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "database_error.h"
#include "engines.h"
#include "fault_injection.h"
#include "recordset.h"

#include <gmock/gmock.h>

namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

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

TEST_P(ConnectionTest, TakesTheCatalogueOfStatementsAsItIs) {
  for (const char* statement :
       {"insert into Dictionary (GID,SortName,Position) values (-5,'车削',1)",
        "insert into Dictionary (GID,SortName,Position) values (7,'铣削',2)",
        "insert into Items (SortID,ID,FatherID,NodeName) values (-5,1,0,'甲')",
        "insert into Items (SortID,ID,FatherID,NodeName) values (-5,2,1,'乙')",
        "insert into Items (SortID,ID,FatherID,NodeName) values (7,1,0,'丙')"}) {
    connection_.Execute(QString::fromUtf8(statement));
  }
  const struct {
    const char* statement;
    CursorType cursorType;
    LockType lockType;
    qint32 rows;
  } kSelects[] = {
      {"select * from Dictionary ", CursorType::kKeyset, LockType::kUnspecified, 2},
      {"Select * from Dictionary ", CursorType::kKeyset, LockType::kUnspecified, 2},
      {"Select * from Items where SortID=-5", CursorType::kKeyset, LockType::kUnspecified, 2},
      {"select * from Items where SortID=-5 Order by ID,FatherID", CursorType::kKeyset,
       LockType::kUnspecified, 2},
      {"select * from Dictionary where SortName='车削'", CursorType::kStatic,
       LockType::kUnspecified, 1},
      {"select * from Items where NodeName='丙' And SortID=-5", CursorType::kStatic,
       LockType::kUnspecified, 0},
      {"select * from GUIDLists", CursorType::kDynamic, LockType::kOptimistic, 0},
      {"select * from Dictionary order by Position", CursorType::kDynamic, LockType::kOptimistic,
       2},
      {"select * from Items where  SortID=7 order by ID", CursorType::kDynamic,
       LockType::kOptimistic, 1},
  };
  for (const auto& select : kSelects) {
    SCOPED_TRACE(select.statement);
    Recordset set;
    set.Open(QString::fromUtf8(select.statement), connection_, select.cursorType, select.lockType);
    EXPECT_EQ(set.RecordCount(), select.rows);
    EXPECT_EQ(set.IsEof(), select.rows == 0);
    set.Close();
  }

  connection_.Execute(
      QStringLiteral("update Dictionary set  SortName='delete * from Items' where GID=7"));
  connection_.Execute(QStringLiteral("update Items set  NodeName='丁' where SortID=-5 And ID=2"));
  Recordset renamed;
  renamed.Open(QStringLiteral("select * from Dictionary where GID=7"), connection_);
  EXPECT_EQ(renamed.FieldText("SortName"), QStringLiteral("delete * from Items"));
  renamed.Close();
  renamed.Open(QStringLiteral("select * from Items where NodeName='丁' And SortID=-5"),
               connection_);
  EXPECT_EQ(renamed.FieldInteger("ID"), 2);

  // The second time, there is nothing left to delete or to change: no error.
  for (int round = 0; round < 2; ++round) {
    connection_.Execute(QStringLiteral("delete * from Items  where SortID=-5 And ID=1"));
    EXPECT_EQ(CountOf("Items"), 2);
    connection_.Execute(QStringLiteral("update Items set  NodeName='甲' where SortID=-5 And ID=1"));
  }
  connection_.Execute(QStringLiteral("delete * from  Dictionary  where GID=-5"));
  connection_.Execute(QStringLiteral("delete * from Items  where SortID=-5"));
  EXPECT_EQ(CountOf("Dictionary"), 1);
  EXPECT_EQ(CountOf("Items"), 1);
}

TEST_P(ConnectionTest, KeepsAllOrNothingOfATransaction) {
  connection_.BeginTransaction();
  AddCategory(1);
  connection_.RollbackTransaction();
  EXPECT_EQ(CountOf("Dictionary"), 0);

  connection_.BeginTransaction();
  AddCategory(1);
  EXPECT_EQ(CountOf("Dictionary"), 1);
  connection_.CommitTransaction();
  AddCategory(2);
  Raised([&] { connection_.CommitTransaction(); });

  connection_.BeginTransaction();
  AddCategory(3);
  connection_.Close();
  connection_.Open();
  EXPECT_EQ(CountOf("Dictionary"), 2);

  connection_.BeginTransaction();
  AddCategory(3);
  FailDatabaseStep(1);
  Raised([&] { connection_.CommitTransaction(); });
  connection_.RollbackTransaction();
  EXPECT_EQ(CountOf("Dictionary"), 2);
}

TEST_P(ConnectionTest, ReportsWhatTheDriverSays) {
  AddCategory(1);
  const DatabaseError duplicate = Raised([&] { AddCategory(1); });
  const QString engine = connection_.EngineName();
  EXPECT_EQ(duplicate.SqlState(), engine.startsWith(u"SQLite")       ? u"HY000"
                                  : engine.startsWith(u"PostgreSQL") ? u"23505"
                                                                     : u"23000");
  EXPECT_NE(duplicate.NativeCode(), 0);
  EXPECT_TRUE(duplicate.IsDuplicateKey());
  EXPECT_THAT(duplicate.what(), Not(StartsWith("[")));
  EXPECT_EQ(CountOf("Dictionary"), 1);

  const DatabaseError missing =
      Raised([&] { connection_.Execute(QStringLiteral("delete * from 没有的表")); });
  EXPECT_FALSE(missing.IsDuplicateKey());
  EXPECT_THAT(missing.what(), HasSubstr("没有的表"));
  EXPECT_THAT(missing.what(), Not(HasSubstr("*")));
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
    connection_.Execute(QStringLiteral("delete * from Items"));
  };
  const struct {
    int step, categories, identifiers;
  } kLeft[] = {{1, 0, 0}, {2, 1, 0}, {3, 1, 0}, {4, 1, 1}, {5, 1, 1}};
  for (const auto& left : kLeft) {
    SCOPED_TRACE(left.step);
    MakeEmptyLibrary(GetParam(), connection_);
    FailDatabaseStep(left.step);
    EXPECT_EQ(Raised(work).Description(), QStringLiteral("injected fault"));
    EXPECT_FALSE(IsDatabaseFaultPending());
    EXPECT_EQ(CountOf("Dictionary"), left.categories);
    EXPECT_EQ(CountOf("GUIDLists"), left.identifiers);
  }
  MakeEmptyLibrary(GetParam(), connection_);
  FailDatabaseStep(6);
  work();
  EXPECT_TRUE(IsDatabaseFaultPending());
  FailDatabaseStep(0);
}

TEST_P(ConnectionTest, IsOpenedAndClosedOnce) {
  EXPECT_TRUE(connection_.IsOpen());
  Raised([&] { connection_.Open(); });
  EXPECT_TRUE(connection_.IsOpen());
  connection_.Close();
  EXPECT_FALSE(connection_.IsOpen());
  const QString closed = QStringLiteral("对象关闭时，不允许操作。");
  EXPECT_EQ(Raised([&] { connection_.Close(); }).Description(), closed);
  EXPECT_EQ(Raised([&] { AddCategory(1); }).Description(), closed);
  EXPECT_EQ(Raised([&] { connection_.BeginTransaction(); }).Description(), closed);
  Recordset set;
  EXPECT_EQ(
      Raised([&] { set.Open(QStringLiteral("select * from Items"), connection_); }).Description(),
      closed);
}

INSTANTIATE_ON_ENGINES(ConnectionTest);

TEST(ConnectionWithoutSource, IsRefusedAndStaysClosed) {
  Connection connection;
  connection.SetConnectionString(QStringLiteral("DSN=没有的数据源"));
  const DatabaseError error = Raised([&] { connection.Open(); });
  EXPECT_EQ(error.SqlState(), u"IM002");
  EXPECT_THAT(error.what(), StartsWith("Data source name not found"));
  EXPECT_FALSE(connection.IsOpen());
}

}  // namespace
