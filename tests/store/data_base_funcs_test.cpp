// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "data_base_funcs.h"

#include "database_error.h"
#include "engines.h"
#include "failing_step.h"
#include "rows.h"
#include "statements.h"
#include "transaction.h"

#include <gmock/gmock.h>
#include <algorithm>
#include <thread>

namespace {

constexpr qint32 kCategory = 1;
constexpr qint32 kWord = 2;

class DataBaseFuncsTest : public EngineTest {
 protected:
  qint32 AddCategory(const QString& name) {
    qint32 position = 0, gid = 0;
    EXPECT_TRUE(funcs_.AddDict(name, position, gid));
    return gid;
  }

  qint32 AddWord(const QString& name, qint32 category, qint32 parent) {
    qint32 id = 0;
    EXPECT_TRUE(funcs_.AddItem(name, category, id, parent));
    return id;
  }

  DataBaseFuncs funcs_{connection_};
};

INSTANTIATE_ON_ENGINES(DataBaseFuncsTest);

TEST_P(DataBaseFuncsTest, CategoriesGetFreshIdentifiersAndTheNextPosition) {
  const qint32 first = AddCategory(QStringLiteral("车削"));
  const qint32 second = AddCategory(QStringLiteral("铣削"));
  const qint32 third = AddCategory(QStringLiteral("磨削"));
  EXPECT_TRUE(funcs_.DeleteItem(kCategory, second));
  connection_.Execute(QStringLiteral("delete * from GUIDLists"));
  const qint32 fourth = AddCategory(QStringLiteral("热处理"));
  EXPECT_EQ(Categories(connection_), std::to_string(first) + "|车削|1\n" + std::to_string(third) +
                                         "|磨削|3\n" + std::to_string(fourth) + "|热处理|4\n");
  EXPECT_THAT((std::vector{first, second, third}), testing::Each(testing::Lt(fourth)));
}

TEST_P(DataBaseFuncsTest, WritersAtTheSameTimeDrawDifferentIdentifiers) {
  const auto write = [] {
    Connection connection;
    connection.SetConnectionString(ConnectionStringOf(GetParam()));
    connection.Open();
    DataBaseFuncs funcs(connection);
    for (qint32 i = 0, position = 0, gid = 0; i < 40; ++i) {
      EXPECT_TRUE(funcs.AddDict(QString::number(i), position, gid));
    }
  };
  std::thread other(write);
  write();
  other.join();
  const std::string given =
      Rows(QStringLiteral("select * from Dictionary order by GID"), {"GID"}, connection_);
  EXPECT_EQ(std::count(given.begin(), given.end(), '\n'), 80);
  EXPECT_EQ(given,
            Rows(QStringLiteral("select * from GUIDLists order by ID"), {"ID"}, connection_));
}

TEST_P(DataBaseFuncsTest, NumbersAndChangesStayWithinTheirCategory) {
  connection_.Execute(QStringLiteral(
      "insert into Dictionary (GID,SortName,Position) values (-5,'甲',1),(5,'乙',2)"));
  for (const qint32 category : {-5, 5}) {
    for (qint32 id = 1; id <= 3; ++id)
      EXPECT_EQ(AddWord(QStringLiteral("词"), category, id - 1), id);
  }
  const QString name = QStringLiteral("\\'; delete from Items; --''");
  // The second time, nothing is left to change, which is no error.
  for (int round = 0; round < 2; ++round) {
    EXPECT_TRUE(funcs_.UpdateItem(name, kCategory, -5));
    EXPECT_TRUE(funcs_.UpdateItem(name, kWord, 5, 2));
    EXPECT_TRUE(funcs_.DeleteItem(kWord, -5, 2));
    EXPECT_TRUE(funcs_.DeleteItem(kCategory, 9));
    EXPECT_EQ(Rows(Statement::SelectCategoryNamed(name), {"GID"}, connection_), "-5\n");
    EXPECT_EQ(Rows(Statement::SelectWordNamed(name, 5), {"ID"}, connection_), "2\n");
    EXPECT_EQ(Categories(connection_), "-5|" + name.toStdString() + "|1\n5|乙|2\n");
  }
  EXPECT_EQ(AddWord(QStringLiteral("四"), -5, 0), 4);
  const std::string rest = "5|1|0|词\n5|2|1|" + name.toStdString() + "\n5|3|2|词\n";
  EXPECT_EQ(Words(connection_), "-5|1|0|词\n-5|3|2|词\n-5|4|0|四\n" + rest);
  EXPECT_TRUE(funcs_.DeleteItem(kCategory, -5));
  EXPECT_EQ(Categories(connection_), "5|乙|2\n");
  EXPECT_EQ(Words(connection_), rest);
}

TEST_P(DataBaseFuncsTest, NoWordIsStoredWithoutItsCategoryAndItsParent) {
  const qint32 category = AddCategory(QStringLiteral("车削"));
  for (qint32 parent = 0; parent < 3; ++parent) AddWord(QStringLiteral("词"), category, parent);
  Connection other;
  other.SetConnectionString(ConnectionStringOf(GetParam()) + QStringLiteral(";Timeout=1"));
  other.Open();
  const std::string engine = GetParam().name;
  if (engine == "postgresql") other.Execute(QStringLiteral("set lock_timeout to 1"));
  if (engine == "mariadb") other.Execute(QStringLiteral("set innodb_lock_wait_timeout = 0"));
  DataBaseFuncs others(other);
  const auto refused = [](const auto& work) {
    try {
      work();
    } catch (const DatabaseError& error) {
      return error.Description();
    }
    return QString();
  };
  const auto addByOther = [&](qint32 parent) {
    qint32 id = 0;
    return refused([&] { others.AddItem(QStringLiteral("新加词"), category, id, parent); });
  };
  const QString why = QStringLiteral(
      "分类条目或上级词刚刚被另一个用户删除，没有保存；按 F5 "
      "重新读入（或重新打开程序）后可以看到现在的词句库。");
  // What is being deleted is waited for, and then it is gone.
  const auto deleteAtOnce = [&](qint32 what, qint32 id, qint32 parent) {
    Transaction transaction(connection_, Transaction::Use::kWrite);
    funcs_.DeleteItem(what, category, id);
    EXPECT_THAT(addByOther(parent), testing::AllOf(testing::Ne(QString()), testing::Ne(why)));
    transaction.Commit();
    EXPECT_EQ(addByOther(parent), why);
  };
  const std::string gid = std::to_string(category);
  deleteAtOnce(kWord, 2, 2);
  EXPECT_EQ(Words(connection_), gid + "|1|0|词\n" + gid + "|3|2|词\n");
  {
    Transaction transaction(connection_, Transaction::Use::kWrite);
    AddWord(QStringLiteral("四"), category, 3);
    EXPECT_NE(refused([&] { other.Execute(Statement::DeleteCategory(category)); }), QString());
    EXPECT_NE(refused([&] { others.DeleteItem(kWord, category, 3); }), QString());
    transaction.Commit();
  }
  // The number of the last word, once deleted, is given to the next.
  deleteAtOnce(kWord, 4, 4);
  deleteAtOnce(kCategory, 0, 0);
  EXPECT_EQ(Words(connection_), "");
  const qint32 next = AddCategory(QStringLiteral("铣削"));
  AddWord(QStringLiteral("词"), next, 0);
  other.Execute(Statement::DeleteCategory(next));  // takes its words along
  EXPECT_EQ(Words(connection_), "");
}

}  // namespace
