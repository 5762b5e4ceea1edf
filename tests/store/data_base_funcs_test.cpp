// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "data_base_funcs.h"

#include "com_func.h"
#include "database_error.h"
#include "engines.h"
#include "fault_injection.h"
#include "recordset.h"
#include "rows.h"
#include "statements.h"

#include <gmock/gmock.h>

namespace {

constexpr qint32 kCategory = 1;
constexpr qint32 kWord = 2;

class DataBaseFuncsTest : public EngineTest {
 protected:
  qint32 AddCategory(const QString& name) {
    qint32 position = 0;
    qint32 gid = 0;
    QString reason;
    EXPECT_TRUE(funcs_.AddDict(name, position, gid, &reason)) << qPrintable(reason);
    EXPECT_EQ(reason, QString());
    return gid;
  }

  qint32 AddWord(const QString& name, qint32 category, qint32 parent) {
    qint32 id = 0;
    EXPECT_TRUE(funcs_.AddItem(name, category, id, parent));
    return id;
  }

  void Execute(const char* statement) { connection_.Execute(QString::fromUtf8(statement)); }

  DataBaseFuncs funcs_{connection_};
};

INSTANTIATE_ON_ENGINES(DataBaseFuncsTest);

TEST_P(DataBaseFuncsTest, CategoriesGetFreshIdentifiersAndTheNextPosition) {
  const qint32 first = AddCategory(QStringLiteral("车削"));
  const qint32 second = AddCategory(QStringLiteral("铣削"));
  const qint32 third = AddCategory(QStringLiteral("磨削"));
  EXPECT_TRUE(funcs_.DeleteItem(kCategory, second));
  const qint32 fourth = AddCategory(QStringLiteral("热处理"));
  EXPECT_EQ(Categories(connection_), QStringLiteral("%1|车削|1\n%2|磨削|3\n%3|热处理|4\n")
                                         .arg(first)
                                         .arg(third)
                                         .arg(fourth)
                                         .toStdString());

  for (const qint32 gid : {first, third, fourth}) {
    funcs_.DeleteItem(kCategory, gid);
  }
  Execute("delete * from GUIDLists");
  const qint32 fifth = AddCategory(QStringLiteral("装配"));
  EXPECT_EQ(Categories(connection_), QStringLiteral("%1|装配|1\n").arg(fifth).toStdString());
  EXPECT_THAT((std::vector{first, second, third, fourth}), testing::Each(testing::Lt(fifth)));
}

TEST_P(DataBaseFuncsTest, WordsAreNumberedWithinTheirCategory) {
  EXPECT_EQ(AddWord(QStringLiteral("粗车"), 7, 0), 1);
  EXPECT_EQ(AddWord(QStringLiteral("粗车外圆"), 7, 1), 2);
  EXPECT_EQ(AddWord(QStringLiteral("立铣"), -5, 0), 1);
  EXPECT_EQ(AddWord(QStringLiteral("粗车外圆至尺寸"), 7, 2), 3);
  EXPECT_TRUE(funcs_.DeleteItem(kWord, 7, 2));
  EXPECT_EQ(AddWord(QStringLiteral("精车"), 7, 0), 4);
  EXPECT_EQ(Words(connection_), "-5|1|0|立铣\n7|1|0|粗车\n7|3|2|粗车外圆至尺寸\n7|4|0|精车\n");
}

TEST_P(DataBaseFuncsTest, ChangesReachExactlyTheirRows) {
  Execute("insert into Dictionary (GID,SortName,Position) values (-5,'甲',1)");
  Execute("insert into Dictionary (GID,SortName,Position) values (5,'乙',2)");
  for (const qint32 category : {-5, 5}) {
    const qint32 parent = AddWord(QStringLiteral("一"), category, 0);
    AddWord(QStringLiteral("二"), category, parent);
  }
  EXPECT_TRUE(funcs_.UpdateItem(QStringLiteral("丙"), kCategory, -5));
  EXPECT_TRUE(funcs_.UpdateItem(QStringLiteral("三"), kWord, 5, 2));
  EXPECT_TRUE(funcs_.DeleteItem(kWord, -5, 1));
  const std::string categories = "-5|丙|1\n5|乙|2\n";
  const std::string words = "-5|2|1|二\n5|1|0|一\n5|2|1|三\n";
  EXPECT_EQ(Categories(connection_), categories);
  EXPECT_EQ(Words(connection_), words);

  EXPECT_TRUE(funcs_.UpdateItem(QStringLiteral("无"), kCategory, 9));
  EXPECT_TRUE(funcs_.UpdateItem(QStringLiteral("无"), kWord, 5, 9));
  EXPECT_TRUE(funcs_.UpdateItem(QStringLiteral("丙"), kCategory, -5));
  EXPECT_TRUE(funcs_.DeleteItem(kWord, -5, 1));
  EXPECT_TRUE(funcs_.DeleteItem(kCategory, 9));
  EXPECT_EQ(Categories(connection_), categories);
  EXPECT_EQ(Words(connection_), words);

  EXPECT_TRUE(funcs_.DeleteItem(kCategory, -5));
  EXPECT_EQ(Categories(connection_), "5|乙|2\n");
  EXPECT_EQ(Words(connection_), "5|1|0|一\n5|2|1|三\n");
}

// Neighbours that a sloppy comparison or an unescaped statement would confuse.
TEST_P(DataBaseFuncsTest, NamesOfEveryKindAreStoredFoundAndRenamedExactly) {
  const QStringList names = {
      QStringLiteral("M6"),
      QStringLiteral("m6"),
      QStringLiteral("M6 "),
      QStringLiteral(" M6"),
      QStringLiteral("Ｍ６"),
      QStringLiteral("é"),
      QStringLiteral("e\u0301"),
      QStringLiteral("e"),
      QStringLiteral("𠮷野家"),
      QStringLiteral("𠀀野家"),
      QStringLiteral("🔧"),
      QStringLiteral("'"),
      QStringLiteral("''"),
      QStringLiteral("车'外'圆"),
      QStringLiteral("\\"),
      QStringLiteral("\\'; delete from Items; --"),
      QStringLiteral("\"%_?{d '2026-01-01'}/* */#$$"),
      QStringLiteral("שלום"),
      QString(255, QChar(u'长')),
      QStringLiteral(" "),
      QString(),
  };
  for (const QString& name : names) {
    AddWord(name, 1, 0);
  }
  const qint32 category = AddCategory(QStringLiteral("条目"));
  const auto idOf = [&](const QString& name) {
    return Rows(Statement::SelectWordNamed(name, 1), {"ID"}, connection_);
  };
  const qsizetype count = names.size();
  for (qsizetype i = 0; i < count; ++i) {
    EXPECT_EQ(idOf(names[i]), std::to_string(i + 1) + '\n') << qPrintable(names[i]);
    Recordset rows;
    rows.Open(Statement::SearchWords(1), connection_, CursorType::kKeyset, LockType::kUnspecified);
    rows.Find(Statement::WordCriterion(names[i]));
    EXPECT_EQ(rows.FieldInteger("ID"), i + 1) << qPrintable(names[i]);

    funcs_.UpdateItem(names[i], kCategory, category);
    EXPECT_EQ(Rows(Statement::SelectCategoryNamed(names[i]), {"SortName"}, connection_),
              names[i].toStdString() + '\n');
  }
  // Each word takes the next one's name; the first word's name is never there twice.
  funcs_.UpdateItem(QStringLiteral("空位"), kWord, 1, 1);
  for (qsizetype i = count; i > 1; --i) {
    funcs_.UpdateItem(names[i % count], kWord, 1, static_cast<qint32>(i));
    EXPECT_EQ(idOf(names[i % count]), std::to_string(i) + '\n') << qPrintable(names[i % count]);
  }
}

TEST_P(DataBaseFuncsTest, UsedUpNumbersAreRefused) {
  Execute("insert into Dictionary (GID,SortName,Position) values (-1,'甲',2147483647)");
  Execute("insert into Items (SortID,ID,FatherID,NodeName) values (-1,2147483647,0,'一')");
  qint32 position = -7;
  qint32 id = -7;
  EXPECT_THROW(funcs_.AddDict(QStringLiteral("乙"), position, id), Error);
  EXPECT_EQ(position, -7);
  EXPECT_THROW(funcs_.AddItem(QStringLiteral("二"), -1, id, 0), Error);
  EXPECT_EQ(id, -7);
  EXPECT_EQ(Categories(connection_), "-1|甲|2147483647\n");
  EXPECT_EQ(Words(connection_), "-1|2147483647|0|一\n");
}

TEST_P(DataBaseFuncsTest, AFaultInAnyStepOfANewCategoryLeavesNoCategory) {
  // The first three steps draw the identifier.
  for (int step = 1; step <= 5; ++step) {
    qint32 position = -7;
    qint32 gid = -7;
    QString reason;
    FailDatabaseStep(step);
    if (step <= 3) {
      EXPECT_FALSE(funcs_.AddDict(QStringLiteral("甲"), position, gid, &reason));
      EXPECT_EQ(reason, QStringLiteral("injected fault"));
    } else {
      EXPECT_THROW(funcs_.AddDict(QStringLiteral("甲"), position, gid, &reason), DatabaseError);
      EXPECT_EQ(reason, QString());
    }
    EXPECT_FALSE(IsDatabaseFaultPending()) << step;
    EXPECT_EQ(position, -7);
    EXPECT_EQ(gid, -7);
    EXPECT_EQ(Categories(connection_), "");
  }
}

TEST_P(DataBaseFuncsTest, AFaultBetweenTheTwoDeletionsOfACategoryLeavesItsWords) {
  const qint32 gid = AddCategory(QStringLiteral("甲"));
  AddWord(QStringLiteral("一"), gid, 0);
  FailDatabaseStep(2);
  EXPECT_THROW(funcs_.DeleteItem(kCategory, gid), DatabaseError);
  EXPECT_EQ(Categories(connection_), "");
  EXPECT_EQ(Words(connection_), std::to_string(gid) + "|1|0|一\n");
}

TEST_P(DataBaseFuncsTest, CloseRecordsetTakesOnlyAnOpenOne) {
  std::unique_ptr<Recordset> rows;
  EXPECT_THROW(CloseRecordset(rows), DatabaseError);
  rows = std::make_unique<Recordset>();
  EXPECT_THROW(CloseRecordset(rows), DatabaseError);
  EXPECT_NE(rows, nullptr);
  rows->Open(Statement::SelectCategories(), connection_);
  CloseRecordset(rows);
  EXPECT_EQ(rows, nullptr);
}

}  // namespace
