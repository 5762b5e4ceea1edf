// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

// Runs hcwordlib-admin copy from each engine, and compares what both sides hold.

#include "engines.h"
#include "rows.h"

#include <QProcess>

#include <gmock/gmock.h>

namespace {

// What the engine's second data source is called behind "DSN=".
QString SecondOf(const Engine& engine) {
  return ConnectionStringOf(engine).mid(4) + u'2';
}

class CopyTest : public EngineTest {
 protected:
  // Returns what the program says when it fails.
  static std::string Run(const QString& dsn, const QStringList& arguments,
                         const QByteArray& input = {}) {
    QProcess process;
    process.start(QStringLiteral(ADMIN_PROGRAM),
                  QStringList{QStringLiteral("--dsn"), dsn} + arguments);
    process.write(input);
    process.closeWriteChannel();
    EXPECT_TRUE(process.waitForFinished()) << qPrintable(process.errorString());
    std::string messages = process.readAllStandardError().toStdString();
    EXPECT_EQ(process.exitCode(), messages.empty() ? 0 : 1) << messages;
    return messages;
  }

  std::string CopyTo(const Engine& engine) const {
    return Run(first_, {QStringLiteral("copy"), QStringLiteral("--to"), SecondOf(engine)});
  }

  static std::string Library(Connection& connection) {
    return Categories(connection) + '\n' + Words(connection) + '\n' + RegisterRows(connection);
  }

  void Execute(const char* statement) { connection_.Execute(QString::fromUtf8(statement)); }

  const QString first_ = ConnectionStringOf(GetParam()).mid(4);
  const QStringList import_{QStringLiteral("import"), QStringLiteral("-")};
};

INSTANTIATE_ON_ENGINES(CopyTest);

TEST_P(CopyTest, EveryRowComesThroughAndNoIdentifierIsGivenAgain) {
  Run(first_, {QStringLiteral("import"), QStringLiteral(SAMPLE_LIBRARY)});
  Run(first_, import_,
      "难写\n\t\\e\n\t'单''双\"%_;--\\\\\n\t制表\\t换行\\n\\u001b\n\t\\ufeff头\n\t 空格 "
      "\n\te\xCC\x81\n"
      "\t👩‍🔧\n\tשלום\n\t" +
          QStringLiteral("𠮷").repeated(4000).toUtf8() + "\n已删\n");
  Execute("insert into Dictionary (GID,SortName,Position) values (-5,'父在后',7)");
  Execute("insert into Items (SortID,ID,FatherID,NodeName) values (-5,9,0,'父')");
  Execute("insert into Items (SortID,ID,FatherID,NodeName) values (-5,4,9,'子')");
  Execute("insert into Items (SortID,ID,FatherID,NodeName) values (-5,-2,4,'孙')");
  // The register alone knows the last identifier.
  Execute("delete from GUIDLists where ID = (select GID from Dictionary where SortName='已删')");
  Recordset deleted;
  deleted.Open(QStringLiteral("select GID from Dictionary where SortName='已删'"), connection_);
  const qint32 last = deleted.FieldInteger("GID");
  Execute("delete from Dictionary where SortName='已删'");

  for (const Engine& engine : kEngines) {
    SCOPED_TRACE(engine.name);
    Connection target;
    target.SetConnectionString(QStringLiteral("DSN=") + SecondOf(engine));
    target.Open();
    MakeEmptyLibrary(engine, target);
    target.Execute(QStringLiteral("drop table Items"));
    EXPECT_THAT(CopyTo(engine), testing::HasSubstr("已经存在"));
    target.Execute(QStringLiteral("drop table Dictionary"));
    target.Execute(QStringLiteral("drop table GUIDLists"));
    EXPECT_EQ(CopyTo(engine), "");
    EXPECT_EQ(Library(target), Library(connection_));
    EXPECT_THAT(CopyTo(engine), testing::HasSubstr("不是空的"));
    Run(SecondOf(engine), import_, "新条目\n");
    Recordset categories;
    categories.Open(QStringLiteral("select max(GID) as GID from Dictionary"), target);
    EXPECT_EQ(categories.FieldInteger("GID"), last + 1);
  }
}

TEST_P(CopyTest, WhatCannotBeCopiedIsToldAndNothingIs) {
  Connection target;
  target.SetConnectionString(QStringLiteral("DSN=") + SecondOf(GetParam()));
  target.Open();
  MakeEmptyLibrary(GetParam(), target);
  target.Execute(QStringLiteral("create unique index OneOfANumber on Items (ID)"));
  DropGuards();
  Execute("insert into Dictionary (GID,SortName,Position) values (1,'车削',1),(2,'铣削',2)");
  Execute("insert into Items (SortID,ID,FatherID,NodeName) values (1,1,0,'粗车')");
  struct Case {
    const char *sortId, *words, *message;
  };
  const std::string_view engine = GetParam().name;
  const char* const strays = "check --repair";
  for (const Case& c :
       {Case{"2", "(2,1,0,'立铣')", "分类词“立铣”（ID=1，SortID=2，FatherID=0）不能复制"},
        Case{"2", "(2,2,7,'无父')", strays}, Case{"8", "(8,2,0,'无条目')", strays},
        Case{"2", "(2,2,3,'环一'),(2,3,2,'环二')", "成环"},
        Case{"2", "(2,3000000000,0,'大')", "32 位整数的范围，什么也没有复制"},
        Case{"2", "(2,2,0,concat('空',char(0)))", "空字符"}}) {
    QString words = QString::fromUtf8(c.words);
    if (words.contains(u"3000000000") && engine != "sqlite") continue;  // has no such number
    if (words.contains(u"char(0)")) {
      if (engine == "postgresql") continue;  // has no such character
      if (engine == "sqlite") words = QStringLiteral("(2,2,0,'空'||char(0))");
    }
    connection_.Execute(QStringLiteral("insert into Items (SortID,ID,FatherID,NodeName) values ") +
                        words);
    EXPECT_THAT(CopyTo(GetParam()), testing::HasSubstr(c.message));
    EXPECT_EQ(Library(target), "\n\n");
    connection_.Execute(QStringLiteral("delete from Items where SortID=") +
                        QLatin1String(c.sortId));
  }
  EXPECT_EQ(CopyTo(GetParam()), "");
}

}  // namespace
