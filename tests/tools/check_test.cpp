// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

// Breaks libraries in every way that hcwordlib-admin check knows, and has it mend them.

#include "engines.h"
#include "rows.h"

#include <QProcess>

#include <gmock/gmock.h>
#include <map>

namespace {

using testing::HasSubstr;

class CheckTest : public EngineTest {
 protected:
  // What is told on standard output; a library that is not sound is summed up on the other one.
  std::string Check(bool isSound, const QStringList& options = {}) const {
    QProcess process;
    process.start(QStringLiteral(ADMIN_PROGRAM),
                  QStringList{QStringLiteral("check"), QStringLiteral("--dsn"),
                              ConnectionStringOf(GetParam()).mid(4)} +
                      options);
    EXPECT_TRUE(process.waitForFinished()) << qPrintable(process.errorString());
    std::string output = process.readAllStandardOutput().toStdString();
    EXPECT_EQ(process.exitCode(), isSound ? 0 : 1) << output;
    EXPECT_EQ(process.readAllStandardError().isEmpty(), isSound) << output;
    return output;
  }
  std::string Repair(bool isSound = true) const {
    return Check(isSound, {QStringLiteral("--repair")});
  }

  void Execute(const char* statement) { connection_.Execute(QString::fromUtf8(statement)); }

  std::string Library() { return Categories(connection_) + Words(connection_); }
};

INSTANTIATE_ON_ENGINES(CheckTest);

struct Broken {
  const char* categories;
  const char* words;
  std::vector<const char*> told;
  const char* repaired;
};

TEST_P(CheckTest, NamesWhatIsWrongAndRepairsItWithoutLosingAWord) {
  const Broken all[] = {
      {"(3,'甲',1)",
       "(3,1,0,'一'),(7,1,2,'环一'),(7,2,1,'环二'),(8,1,0,'一'),(8,4,1,'二'),(8,5,9,'三'),(9,1,0,'"
       "一')",
       {"（SortID=8，ID=1）：分类条目不存在，其下还有 1 个词", "（SortID=8，ID=5）：", "GUIDLists"},
       "3|甲|1\n10|找回的词|2\n3|1|0|一\n10|1|0|环一\n10|2|1|环二\n10|3|0|一\n10|4|0|三\n10|5|3|"
       "二\n"
       "10|6|0|一2\n"},
      {"(3,'甲',1),(4,'找回的词',2)",
       "(3,1,9,'一'),(3,2,1,'二'),(4,6,9,'一'),(4,7,6,'三')",
       {"（SortID=3，ID=1）：上级 FatherID=9 不存在，其下还有 1 个词", "（SortID=4，ID=6）"},
       "3|甲|1\n4|找回的词|2\n4|6|0|一\n4|7|6|三\n4|8|0|一2\n4|9|8|二\n"},
      {"(3,'甲',1)",
       "(3,1,1,'自'),(3,2,3,'环一'),(3,3,2,'环二'),(3,4,3,'其下'),(3,5,6,'子'),(3,6,0,'父')",
       {"ID=1）：是自己的上级", "ID=2）：与上级成环，共 2 个词",
        "ID=5）：上级 FatherID=6 的编号比它大"},
       "3|甲|1\n3|1|0|自\n3|2|0|环一\n3|3|2|环二\n3|4|3|其下\n3|6|0|父\n3|7|6|子\n"},
      {"(3,'甲',1),(4,'甲',2),(5,'甲2',3),(6,'',4)",
       "(3,1,0,'一'),(3,2,1,'一'),(3,3,0,'一2'),(3,4,0,''),(4,1,0,'一')",
       {"（GID=4）：与前面的一个重名；已改名为“甲3”", "（GID=6）：没有名称",
        "ID=2）：与前面的一个重名", "ID=4）：没有名称"},
       "3|甲|1\n4|甲3|2\n5|甲2|3\n6|新建条目|4\n"
       "3|1|0|一\n3|2|1|一3\n3|3|0|一2\n3|4|0|新加词\n4|1|0|一\n"},
      {"(3,'甲',2147483647),(2147483647,'乙',5)",
       "(3,0,0,'零'),(3,2147483647,0,'末'),(2147483647,1,0,'一')",
       {"（GID=2147483647）：编号用尽", "Position", "ID=0）：编号不能是 0",
        "ID=2147483647）：编号用尽"},
       "4|乙|1\n3|甲|2\n3|1|0|零\n3|2|0|末\n4|1|0|一\n"},
  };
  for (const Broken& broken : all) {
    MakeEmptyLibrary(GetParam(), connection_);
    DropGuards();
    Execute(
        (std::string("insert into Dictionary (GID,SortName,Position) values ") + broken.categories)
            .c_str());
    Execute((std::string("insert into Items (SortID,ID,FatherID,NodeName) values ") + broken.words)
                .c_str());
    const std::string before = Library();
    const std::string faults = Check(false);
    EXPECT_EQ(Library(), before);
    EXPECT_THAT(faults, testing::Not(HasSubstr("（SortID=7，ID=1）：与上级成环")));  // told as lost
    const std::string mended = Repair();
    for (const char* told : broken.told) {
      EXPECT_THAT(faults, HasSubstr(std::string(told).substr(0, std::string(told).find("；"))));
      EXPECT_THAT(mended, HasSubstr(told));
    }
    EXPECT_EQ(Library(), broken.repaired) << mended;
    EXPECT_THAT(Check(true), HasSubstr("没有问题"));
  }
}

TEST_P(CheckTest, MissingAndChangedGuardsAndIndexesAreMadeAgain) {
  const bool isPostgreSql = std::string_view(GetParam().name) == "postgresql";
  const bool isMariaDb = std::string_view(GetParam().name) == "mariadb";
  EXPECT_THAT(Check(true), HasSubstr("没有问题"));
  DropGuards();
  Execute(isMariaDb ? "drop index ItemsByName on Items" : "drop index ItemsByName");
  for (const QString& statement : SchemaOf(GetParam())) {
    if (!statement.contains(isPostgreSql ? u"function DictionaryDeleted"
                                         : u"trigger DictionaryD")) {
      continue;
    }
    if (!isPostgreSql) Execute("drop trigger DictionaryDeleted");
    connection_.Execute(
        QString(statement).replace(QStringLiteral("old.GID"), QStringLiteral("old.GID and 1=1")));
  }
  const std::string faults = Check(false);
  EXPECT_THAT(faults, HasSubstr("触发器 DictionaryDeleted 与本版本的不同。"));
  EXPECT_THAT(faults, HasSubstr("触发器 ItemsInserted 不存在。"));
  EXPECT_THAT(faults, HasSubstr("索引 ItemsByName 不存在。"));
  EXPECT_THAT(Repair(), HasSubstr("已修复 3 个问题"));
  EXPECT_THAT(Check(true), HasSubstr("没有问题"));
  EXPECT_ANY_THROW(Execute("insert into Items (SortID,ID,FatherID,NodeName) values (8,1,0,'甲')"));
}

// Each has the right name and body. The last one is SQLite's alone, and cannot be mended.
TEST_P(CheckTest, WhatOnlyLooksLikeTheSchemaIsReplaced) {
  const std::map<std::string_view, std::vector<const char*>> broken{
      {"sqlite",
       {"drop table Items", "create table Items (SortID int, ID int, FatherID int, NodeName text)",
        "create index ItemsByName on Dictionary(Position)", "drop trigger DictionaryDeleted",
        ("create trigger DictionaryDeleted after update on Dictionary begin delete from Items "
         "where "
         "SortID = old.GID; end")}},
      {"postgresql",
       {"alter table Items drop constraint Items_pkey", "drop index ItemsByName",
        "create index ItemsByName on Dictionary using hash (Position)",
        "drop trigger DictionaryDeleted on Dictionary",
        "create trigger DictionaryDeleted after delete on Dictionary for each row when (false) "
        "execute procedure DictionaryDeleted()",
        "create trigger ItemsInserted after insert on Dictionary referencing new table as Added "
        "for "
        "each statement execute procedure ItemsInserted()",
        "alter table Items enable replica trigger ItemsInserted"}},
      {"mariadb",
       {"alter table Items drop primary key",
        "create or replace index ItemsByName on Items (SortID, NodeName(25))",
        "create or replace trigger DictionaryDeleted after update on Dictionary for each row "
        "delete from Items where SortID = old.GID",
        "alter table Dictionary convert to character set utf8mb4 collate utf8mb4_general_ci"}}};
  for (const char* statement : broken.at(GetParam().name)) Execute(statement);
  const std::string faults = Check(false);
  for (const char* told :
       {"表 Items 没有主键", "索引 ItemsByName 与", "触发器 DictionaryDeleted 与"}) {
    EXPECT_THAT(faults, HasSubstr(told));
  }
  Repair();
  EXPECT_THAT(Check(true), HasSubstr("没有问题"));
  if (broken.find(GetParam().name) != broken.find("sqlite")) return;
  Execute("drop table GUIDLists");
  Execute(
      "create table GUIDLists (GUIDField1,GUIDField2,GUIDField3,GUIDField4,ID integer primary "
      "key)");
  DropGuards();
  Execute("insert into Items (ID) values (1)");
  const std::string left = Repair(false);
  EXPECT_THAT(left, HasSubstr("不是自动编号"));
  EXPECT_THAT(left, HasSubstr("1 个分类词没有 SortID"));
}

TEST_P(CheckTest, WhatCannotBeMendedIsLeftAndARefusalLeavesEverything) {
  DropGuards();
  Execute("insert into Dictionary (GID,SortName,Position) values (3,'甲',1)");
  Execute(
      "insert into Items (SortID,ID,FatherID,NodeName) values (3,1,0,'\xEF\xBF\xBD'),(8,2,0,'乙')");
  Execute("create unique index OneOfANumber on Items (ID)");
  const std::string before = Library();
  Repair(false);  // the first number of the new home is in use
  EXPECT_EQ(Library(), before);
  Execute("update Items set ID=7 where ID=1");
  const std::string mended = Repair(false);
  EXPECT_THAT(mended, HasSubstr("（SortID=3，ID=7）：名称中有损坏的字符，请在程序中改名。"));
  EXPECT_THAT(Words(connection_), testing::EndsWith("|1|0|乙\n"));
}

}  // namespace
