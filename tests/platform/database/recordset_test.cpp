// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "recordset.h"

#include "bulk_writer.h"
#include "database_error.h"
#include "engines.h"
#include "rows.h"
#include "transaction.h"

namespace {

class RecordsetTest : public EngineTest {
 protected:
  void OpenForAdding(Recordset& set, const char* statement) {
    DropGuards();
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

  // How the connecting or the first statement that fails does; an empty description when none.
  DatabaseError Raised(std::initializer_list<const char*> statements) {
    try {
      if (!connection_.IsOpen()) connection_.Open();
      for (const char* statement : statements) connection_.Execute(QString::fromUtf8(statement));
    } catch (const DatabaseError& error) {
      return error;
    }
    return DatabaseError(QString());
  }

  std::string StoredNames() { return Rows(QLatin1String(kWords), {"NodeName"}, connection_); }

  static constexpr char kWords[] = "select * from Items where  SortID=1 order by ID";
};

TEST_P(RecordsetTest, MovesOverTheRowsAndNoFurther) {
  Recordset words;
  OpenForAdding(words, kWords);
  EXPECT_TRUE(words.IsEof());
  EXPECT_THROW(words.FieldInteger("ID"), DatabaseError);
  // More rows than a reading block holds.
  for (qint32 id = 1; id <= 200; ++id) AddWord(words, id, QString::number(id));
  words.MoveFirst();
  EXPECT_THROW(AddWord(words, 2, QStringLiteral("丙")), DatabaseError);
  EXPECT_EQ(words.FieldInteger("ID"), 1);
  EXPECT_EQ(words.RecordCount(), 200);
  words.Close();

  // Read-only when nothing else was said.
  words.Open(QLatin1String(kWords), connection_);
  EXPECT_THROW(words.AddNew(), DatabaseError);
  for (qint32 id = 1; id <= 200; ++id, words.MoveNext()) {
    ASSERT_EQ(words.FieldInteger("id"), id);
    ASSERT_EQ(words.FieldText("nodename"), QString::number(id));
  }
  EXPECT_TRUE(words.IsEof());
  EXPECT_THROW(words.MoveNext(), DatabaseError);
}

TEST_P(RecordsetTest, FindsForwardFromTheCurrentRow) {
  Recordset words;
  OpenForAdding(words, kWords);
  qint32 id = 0;
  for (const char* name : {"甲", "乙", "甲", "o'x"}) AddWord(words, ++id, QString::fromUtf8(name));
  const auto foundFrom = [&](qint32 row, const char* criterion) {
    words.MoveFirst();
    while (--row > 0) words.MoveNext();
    words.Find(QString::fromUtf8(criterion));
    return words.IsEof() ? 0 : words.FieldInteger("ID");
  };
  // The second round goes through the table that the first one did not need.
  for (int round = 0; round < 2; ++round) {
    EXPECT_EQ(foundFrom(1, "NodeName='甲'"), 1);
    EXPECT_EQ(foundFrom(2, " nodename = '甲' "), 3);
    EXPECT_EQ(foundFrom(3, "NodeName='乙'"), 0);
    EXPECT_EQ(foundFrom(1, "NodeName='o''x'"), 4);
  }
  AddWord(words, 5, QStringLiteral("丙"));
  EXPECT_EQ(foundFrom(1, "NodeName='丙'"), 5);
  for (const char* criterion : {"NodeName", "NodeName='甲", "NodeName='o'x'", "Name='甲'"})
    EXPECT_THROW(words.Find(QString::fromUtf8(criterion)), DatabaseError) << criterion;
}

// Neighbours differ only in what a sloppy comparison, an unescaped statement or a narrow encoding
// would lose.
TEST_P(RecordsetTest, NamesAreStoredAndFoundExactly) {
  QStringList names =
      QStringLiteral(
          "车外圆|车外圆 | "
          "车外圆|车外圆　|M6|m6|Ｍ６|𠮷野家|𠀀野家|é|e\u0301|e|👩‍🔧🔩|"
          "👩🔧🔩|"
          "שלום "
          "עולם|"
          "it's|it''s|'|''|' or '1'='1|\"|\\|\\\\|\\'|C:\\n\\0\\|100%|100_|%d%s|a;b|"
          "'; delete from Items; --|-- 注释|/* 注释 */|# 注释|?|你?我:b $1 $$ @x|{d '2020-01-01'}|"
          "{fn now()}|delete * from Items|制表\t换行\n回车\r|NULL|| ")
          .split(u'|');
  // Every character of the basic plane, and some beyond: drivers err on single ones.
  for (char32_t first = 0x20; first < 0x20400; first += 0x80) {
    if (first == 0x10000) first = 0x1F300;
    QString name;
    for (char32_t c = first; c < first + 0x80; ++c) {
      if (!QChar::isSurrogate(c) && c != 0x7F) name += QString::fromUcs4(&c, 1);
      if (c == 0xFFFD) break;
    }
    if (!name.isEmpty()) names += name;
  }
  Recordset all;
  OpenForAdding(all, kWords);
  for (qint32 id = 1; id <= names.size(); ++id) AddWord(all, id, names[id - 1]);
  ASSERT_EQ(StoredNames(), (names.join(u'\n') + u'\n').toStdString());
  const auto quoted = [](QString name) {
    return u'\'' + name.replace(QLatin1String("'"), QLatin1String("''")) + u'\'';
  };
  for (qint32 id = 1; id <= names.size(); ++id) {
    const QString criterion = QStringLiteral("NodeName=") + quoted(names[id - 1]);
    SCOPED_TRACE(criterion.toStdString());
    Recordset same;
    same.Open(QStringLiteral("select * from Items where %1 And SortID=1").arg(criterion),
              connection_);
    ASSERT_EQ(same.RecordCount(), 1);
    EXPECT_EQ(same.FieldInteger("ID"), id);
    all.MoveFirst();
    all.Find(criterion);
    EXPECT_EQ(all.FieldInteger("ID"), id);
  }
}

TEST_P(RecordsetTest, LongTextsComeBackWholeOrAreRefused) {
  QStringList names;
  // Around the size of the place that a text is read into first, and far beyond it.
  for (int bytes = 1016; bytes <= 1026; ++bytes) {
    names << QString(bytes, u'a') << QString(bytes - 7, u'a') + QStringLiteral("𠮷尾");
  }
  for (int units : {3998, 1999, 12500}) names += QStringLiteral("𠮷").repeated(units) + u'尾';
  Recordset words;
  OpenForAdding(words, kWords);
  for (qint32 id = 1; id < names.size(); ++id) AddWord(words, id, names[id - 1]);
  EXPECT_THROW(AddWord(words, 100, names.takeLast()), DatabaseError);
  EXPECT_EQ(StoredNames(), (names.join(u'\n') + u'\n').toStdString());
}

TEST_P(RecordsetTest, ErrorsSayWhatTheDriverSays) {
  const char insert[] = "insert into Dictionary (GID,SortName,Position) values (1,'钻削',1)";
  EXPECT_EQ(Raised({insert}).Description(), "");
  const DatabaseError duplicate = Raised({insert});
  EXPECT_TRUE(duplicate.IsDuplicateKey());
  EXPECT_FALSE(duplicate.Description().startsWith(u'['));
  EXPECT_EQ(Categories(connection_), "1|钻削|1\n");
  const DatabaseError missing = Raised({"delete * from 没有的表"});
  EXPECT_FALSE(missing.IsDuplicateKey() || missing.IsRowRefused());
  EXPECT_TRUE(missing.Description().contains(QStringLiteral("没有的表")));
  connection_.Close();
  EXPECT_THROW(connection_.Execute(QString::fromUtf8(insert)), DatabaseError);
}

// A line in Chinese stands before what the driver says.
TEST_P(RecordsetTest, FailuresOfTheDatabaseAreToldApart) {
  const bool isSqlite = GetParam().name == std::string("sqlite");
  const bool isMariaDb = GetParam().name == std::string("mariadb");
  const auto expect = [this](const char* beginning, std::initializer_list<const char*> statements) {
    const QStringList lines = Raised(statements).Description().split(u'\n');
    EXPECT_TRUE(lines.size() > 1 && lines[0].startsWith(QString::fromUtf8(beginning)))
        << beginning << " - " << qPrintable(lines.join(u'\n'));
  };
  expect("数据库中没有词句库的表；", {"delete from NoSuchTable"});
  expect("数据库是只读的，", {isSqlite    ? "pragma query_only=1"
                              : isMariaDb ? "set session transaction read only"
                                          : "set default_transaction_read_only=on",
                              "delete from Items"});
  if (isSqlite) {
    expect("数据库所在的磁盘已满，",
           {"pragma query_only=0", "pragma max_page_count=1",
            "with recursive n(i) as (select 1 union all select i+1 from n where i<9999)"
            "insert into Dictionary select i,printf('%.4000c','x'),i from n"});
  } else {
    Raised({isMariaDb ? "kill connection connection_id()"
                      : "do 'begin perform pg_terminate_backend(pg_backend_pid()); end'"});
    expect("与数据库服务器的连接断开了；", {"delete from Items"});
  }
  connection_.Close();
  connection_.SetConnectionString(ConnectionStringOf(GetParam()) + QStringLiteral(";DATABASE=/no"));
  expect(isSqlite ? "打不开数据源所写的数据库文件" : "服务器上没有数据源所写的数据库", {});
  connection_.SetConnectionString(QStringLiteral("DSN=没有的数据源"));
  expect("没有这个数据源", {});
}

// Far more text than a statement takes, and rows for several.
TEST_P(RecordsetTest, BulkRowsAreStoredUpToTheOneThatIsRefused) {
  DropGuards();
  const Transaction transaction(connection_, Transaction::Use::kWrite);
  BulkWriter rows(connection_, QStringLiteral("Items"),
                  QStringLiteral("SortID,ID,FatherID,NodeName"));
  std::string stored;
  for (qint32 id = 1; id <= 300; ++id) {
    const QString name = QStringLiteral("'\\?%1").arg(id) + QString(id % 4 == 0 ? 3990 : 0, u'词');
    rows.Add({1, id, id - 1, name});
    stored += name.toStdString() + '\n';
  }
  rows.Finish();
  EXPECT_EQ(StoredNames(), stored);
  for (qint32 id = 301; id <= 310; ++id) rows.Add({1, id == 307 ? 5 : id, 0, QString()});
  EXPECT_THROW(rows.Finish(), DatabaseError);
  EXPECT_EQ(rows.StoredRows(), 306);
}

TEST_P(RecordsetTest, WhatIsNotCommittedIsTakenBack) {
  const auto store = [this](int gid) {
    connection_.Execute(
        QStringLiteral("insert into Dictionary (GID,SortName,Position) values (%1,'',0)").arg(gid));
  };
  {
    Transaction kept(connection_, Transaction::Use::kWrite);
    EXPECT_THROW(Transaction(connection_, Transaction::Use::kRead), DatabaseError);
    store(1);
    kept.Commit();
    store(2);
    Transaction refused(connection_, Transaction::Use::kWrite);
    store(3);
    refused.Rollback();
    store(4);
    const Transaction left(connection_, Transaction::Use::kRead);
    store(5);
  }
  Transaction lost(connection_, Transaction::Use::kWrite);
  store(6);
  connection_.Close();
  EXPECT_THROW(lost.Commit(), DatabaseError);
  connection_.Open();
  EXPECT_EQ(Categories(connection_), "1||0\n2||0\n4||0\n");
  Connection reader;  // whatever a server's default is
  reader.SetConnectionString(
      ConnectionStringOf(GetParam()) +
      QStringLiteral(";INITSTMT={set session transaction isolation level read committed}"));
  reader.Open();
  const Transaction reading(reader, Transaction::Use::kRead);
  EXPECT_EQ(Categories(reader), "1||0\n2||0\n4||0\n");
  store(7);
  EXPECT_EQ(Categories(reader), "1||0\n2||0\n4||0\n");
}

INSTANTIATE_ON_ENGINES(RecordsetTest);

}  // namespace
