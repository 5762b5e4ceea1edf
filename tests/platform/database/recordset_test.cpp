// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "recordset.h"

#include "database_error.h"
#include "engines.h"

#include <limits>
#include <string_view>

namespace {

class RecordsetTest : public EngineTest {
 protected:
  void OpenForAdding(Recordset& set, const char* statement) {
    set.Open(QString::fromUtf8(statement), connection_, CursorType::kDynamic,
             LockType::kOptimistic);
  }

  static void AddWord(Recordset& set, qint32 id, const QString& name) {
    set.AddNew();
    set.SetField("SortID", 1);
    set.SetField("ID", id);
    set.SetField("FatherID", id - 1);
    set.SetField("NodeName", name);
    set.Update();
  }

  static void AddIdentifier(Recordset& set) {
    set.AddNew();
    for (const char* field : {"GUIDField1", "GUIDField2", "GUIDField3", "GUIDField4"}) {
      set.SetField(field, std::numeric_limits<qint32>::min());
    }
    set.Update();
  }
};

TEST_P(RecordsetTest, MovesOverTheRowsAndNoFurther) {
  Recordset words;
  OpenForAdding(words, "select * from Items where  SortID=1 order by ID");
  EXPECT_TRUE(words.IsEof());
  EXPECT_EQ(words.RecordCount(), 0);
  EXPECT_THROW(words.MoveFirst(), DatabaseError);
  EXPECT_THROW(words.MoveLast(), DatabaseError);
  EXPECT_THROW(words.MoveNext(), DatabaseError);
  EXPECT_THROW(words.FieldInteger("ID"), DatabaseError);
  // More rows than a reading block holds.
  for (qint32 id = 1; id <= 200; ++id) AddWord(words, id, QString::number(id));
  words.Close();

  words.Open(QStringLiteral("select * from Items where SortID=1 Order by ID,FatherID"),
             connection_);
  words.MoveLast();
  EXPECT_EQ(words.FieldInteger("ID"), 200);
  ASSERT_EQ(words.RecordCount(), 200);
  words.MoveFirst();
  for (qint32 id = 1; id <= 200; ++id, words.MoveNext()) {
    ASSERT_EQ(words.FieldInteger("id"), id);
    ASSERT_EQ(words.FieldInteger("FATHERID"), id - 1);
    ASSERT_EQ(words.FieldText("nodename"), QString::number(id));
  }
  EXPECT_TRUE(words.IsEof());
  EXPECT_THROW(words.MoveNext(), DatabaseError);
  EXPECT_THROW(words.FieldText("NodeName"), DatabaseError);
}

TEST_P(RecordsetTest, FindsForwardFromTheCurrentRow) {
  Recordset words;
  OpenForAdding(words, "select * from Items where  SortID=1 order by ID");
  qint32 id = 0;
  for (const char* name : {"甲", "乙", "甲", "o'x", "乙", "甲"})
    AddWord(words, ++id, QString::fromUtf8(name));
  const auto foundFrom = [&](qint32 row, const char* criterion) {
    words.MoveFirst();
    while (--row > 0) words.MoveNext();
    words.Find(QString::fromUtf8(criterion));
    return words.IsEof() ? 0 : words.FieldInteger("ID");
  };
  // The second round goes through the table that the first one did not need.
  for (int round = 0; round < 2; ++round) {
    EXPECT_EQ(foundFrom(1, "NodeName='甲'"), 1);
    EXPECT_EQ(foundFrom(2, "NodeName='甲'"), 3);
    EXPECT_EQ(foundFrom(4, " nodename = '甲' "), 6);
    EXPECT_EQ(foundFrom(6, "NodeName='乙'"), 0);
    EXPECT_EQ(foundFrom(1, "NodeName='o''x'"), 4);
    EXPECT_EQ(foundFrom(1, "NodeName=''"), 0);
  }
  AddWord(words, 7, QStringLiteral("丙"));
  EXPECT_EQ(foundFrom(1, "NodeName='丙'"), 7);
  words.MoveFirst();
  for (const char* criterion : {"", "NodeName", "NodeName=甲", "NodeName='甲", "NodeName='o'x'",
                                "NodeName>'甲'", "NodeName='甲' and ID=1", "Name='甲'", "ID='1'"}) {
    EXPECT_THROW(words.Find(QString::fromUtf8(criterion)), DatabaseError) << criterion;
    EXPECT_EQ(words.FieldInteger("ID"), 1);
  }
}

TEST_P(RecordsetTest, GivesEachRowItsOwnNumberWhileOthersInsert) {
  Connection other;
  other.SetConnectionString(ConnectionStringOf(GetParam()));
  other.Open();
  Recordset mine;
  OpenForAdding(mine, "select * from GUIDLists");
  Recordset theirs;
  theirs.Open(QStringLiteral("select * from GUIDLists"), other, CursorType::kDynamic,
              LockType::kOptimistic);
  qint32 last = 0;
  for (int round = 0; round < 3; ++round) {
    AddIdentifier(mine);
    AddIdentifier(theirs);
    mine.MoveLast();
    theirs.MoveLast();
    EXPECT_EQ(theirs.FieldInteger("ID"), mine.FieldInteger("ID") + 1);
    EXPECT_GT(mine.FieldInteger("ID"), last);
    last = theirs.FieldInteger("ID");
  }
  EXPECT_EQ(mine.RecordCount(), 3);

  // A number that was given once is not given again after its row was deleted.
  connection_.Execute(QStringLiteral("delete * from GUIDLists"));
  AddIdentifier(mine);
  EXPECT_EQ(mine.FieldInteger("ID"), last + 1);

  // A number that nobody asked for in time is not mistaken for the next row's.
  AddIdentifier(mine);
  AddIdentifier(mine);
  EXPECT_EQ(mine.FieldInteger("ID"), last + 3);
  mine.MoveFirst();
  EXPECT_NO_THROW(mine.FieldInteger("ID"));
  for (qint32 row = 1; row < mine.RecordCount() - 1; ++row) mine.MoveNext();
  EXPECT_THROW(mine.FieldInteger("ID"), DatabaseError);
}

TEST_P(RecordsetTest, StandsWhereItStoodWhenARowIsRefused) {
  Recordset words;
  OpenForAdding(words, "select * from Items where  SortID=1 order by ID");
  AddWord(words, 1, QStringLiteral("甲"));
  AddWord(words, 2, QStringLiteral("乙"));
  words.MoveFirst();
  EXPECT_THROW(AddWord(words, 2, QStringLiteral("丙")), DatabaseError);
  EXPECT_EQ(words.FieldInteger("ID"), 1);
  EXPECT_EQ(words.RecordCount(), 2);
  AddWord(words, 3, QStringLiteral("丁"));
  EXPECT_EQ(words.FieldInteger("ID"), 3);
  Recordset stored;
  stored.Open(QStringLiteral("select * from Items order by ID"), connection_);
  ASSERT_EQ(stored.RecordCount(), 3);
  stored.MoveLast();
  EXPECT_EQ(stored.FieldText("NodeName"), QStringLiteral("丁"));
}

TEST_P(RecordsetTest, RefusesWhatItIsNotOpenFor) {
  Recordset set;
  try {
    set.Close();
    FAIL();
  } catch (const DatabaseError& error) {
    EXPECT_EQ(error.Description(), QStringLiteral("对象关闭时，不允许操作。"));
    EXPECT_TRUE(error.SqlState().isEmpty());
  }
  EXPECT_THROW(set.IsEof(), DatabaseError);
  EXPECT_THROW(set.Open(QStringLiteral("select * from NoSuchTable"), connection_), DatabaseError);
  EXPECT_THROW(set.Open(QStringLiteral("delete from Items where ID=1"), connection_),
               DatabaseError);
  EXPECT_FALSE(set.IsOpen());

  // Unspecified is read-only; a lock that was set before holds for an Open that leaves it out.
  const QString statement = QStringLiteral("select * from GUIDLists");
  set.Open(statement, connection_, CursorType::kDynamic, LockType::kUnspecified);
  EXPECT_THROW(set.AddNew(), DatabaseError);
  EXPECT_THROW(set.Open(statement, connection_), DatabaseError);
  set.Close();
  set.SetCursorType(CursorType::kDynamic);
  set.SetLockType(LockType::kOptimistic);
  set.Open(statement, connection_);
  EXPECT_THROW(set.SetField("GUIDField1", 1), DatabaseError);
  EXPECT_THROW(set.Update(), DatabaseError);
  AddIdentifier(set);
  EXPECT_THROW(set.FieldInteger("NoSuchField"), DatabaseError);
  set.AddNew();
  EXPECT_THROW(set.SetField("NoSuchField", 1), DatabaseError);
  EXPECT_THROW(set.SetField("GUIDField1", QStringLiteral("1")), DatabaseError);
  EXPECT_THROW(set.FieldInteger("ID"), DatabaseError);
  EXPECT_THROW(set.MoveLast(), DatabaseError);
  set.Close();

  Recordset stored;
  stored.Open(statement, connection_);
  EXPECT_EQ(stored.RecordCount(), 1);
}

TEST_P(RecordsetTest, ConvertsWhatOtherProgramsStored) {
  connection_.Execute(QStringLiteral("drop table if exists Oddities"));
  connection_.Execute(QStringLiteral(
      "create table Oddities (ID integer, Big bigint, Word varchar(20), Body text)"));
  connection_.Execute(QStringLiteral(
      "insert into Oddities values (1,2147483648,'12',null),(2,-2147483648,'十二','x'),"
      "(null,null,null,'')"));
  Recordset set;
  OpenForAdding(set, "select * from Oddities");
  // MariaDB's driver cannot be given a text type to cut: it looks behind the end of its own buffer.
  const bool isLong = GetParam().name != std::string_view("mariadb");
  const QString longText =
      QStringLiteral("𠮷x词").repeated(isLong ? 2500 : 100) + QStringLiteral("𠮷尾");
  set.AddNew();
  set.SetField("ID", 4);
  set.SetField("Body", longText);
  set.Update();
  set.Close();

  set.Open(QStringLiteral("select * from Oddities"), connection_);
  EXPECT_THROW(set.FieldInteger("Big"), DatabaseError);
  EXPECT_EQ(set.FieldText("Big"), u"2147483648");
  EXPECT_EQ(set.FieldInteger("Word"), 12);
  EXPECT_EQ(set.FieldText("Body"), QString());
  set.MoveNext();
  EXPECT_EQ(set.FieldInteger("Big"), std::numeric_limits<qint32>::min());
  EXPECT_THROW(set.FieldInteger("Word"), DatabaseError);
  set.MoveNext();
  EXPECT_EQ(set.FieldInteger("ID"), 0);
  EXPECT_EQ(set.FieldText("Word"), QString());
  set.MoveNext();
  EXPECT_EQ(set.FieldText("Body"), longText);
  connection_.Execute(QStringLiteral("drop table Oddities"));
}

INSTANTIATE_ON_ENGINES(RecordsetTest);

}  // namespace
