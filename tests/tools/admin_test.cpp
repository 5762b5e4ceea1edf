// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

// Runs hcwordlib-admin as an administrator does, and looks at the library afterwards.

#include "engines.h"
#include "rows.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gmock/gmock.h>

namespace {

struct Outcome {
  int exitCode;
  std::string output;
  std::string messages;
};

Outcome RunAdmin(const QStringList& arguments, const QString& standardOutput = QString()) {
  QProcess process;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C"));
  process.setProcessEnvironment(environment);
  if (!standardOutput.isEmpty()) {
    process.setStandardOutputFile(standardOutput);
  }
  process.start(QStringLiteral(ADMIN_PROGRAM), arguments);
  EXPECT_TRUE(process.waitForFinished()) << qPrintable(process.errorString());
  EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
  return {process.exitCode(), process.readAllStandardOutput().toStdString(),
          process.readAllStandardError().toStdString()};
}

class AdminTest : public EngineTest {
 protected:
  QString File(const QString& name) const { return folder_.filePath(name); }

  void WriteFile(const QString& name, const QByteArray& content) const {
    QFile file(File(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(content), content.size());
  }

  std::string ReadFile(const QString& name) const {
    QFile file(File(name));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll().toStdString();
  }

  static Outcome RunOnEngine(const QStringList& arguments,
                             const QString& standardOutput = QString()) {
    return RunAdmin(
        QStringList{QStringLiteral("--dsn"), ConnectionStringOf(GetParam()).mid(4)} + arguments,
        standardOutput);
  }

  Outcome Import(const QByteArray& outline) const {
    WriteFile(QStringLiteral("import"), outline);
    return RunOnEngine({QStringLiteral("import"), File(QStringLiteral("import"))});
  }

  static Outcome Export() { return RunOnEngine({QStringLiteral("export")}); }

  std::string Library() {
    return Categories(connection_) + '\n' + Words(connection_) + '\n' + RegisterRows(connection_);
  }

  void Execute(const char* statement) { connection_.Execute(QString::fromUtf8(statement)); }

  QTemporaryDir folder_;
};

INSTANTIATE_ON_ENGINES(AdminTest);

TEST_P(AdminTest, InitMakesTheTablesOnlyWhereThereIsNone) {
  Execute("drop table Dictionary");
  Execute("drop table GUIDLists");
  const Outcome refused = RunOnEngine({QStringLiteral("init")});
  EXPECT_EQ(refused.exitCode, 1);
  EXPECT_EQ(refused.messages, "hcwordlib-admin: 表 Items 已经存在，没有建立任何表。\n");
  EXPECT_THROW(Categories(connection_), std::exception);

  Execute("drop table Items");
  EXPECT_EQ(RunOnEngine({QStringLiteral("init")}).exitCode, 0);
  EXPECT_EQ(Library(), "\n\n");
  EXPECT_EQ(Import("车削\n\t粗车\n").exitCode, 0);
  EXPECT_EQ(RunOnEngine({QStringLiteral("init")}).exitCode, 1);
  EXPECT_EQ(Export().output, "车削\n\t粗车\n");
}

TEST_P(AdminTest, AnOutlineComesBackByteForByte) {
  const std::string outline =
      "车削\n"
      "\t粗车\n"
      "\t\t粗车外圆\n"
      "\t\t\t留 1 mm 余量\n"
      "\t\t粗车端面\n"
      "\t精车\n"
      "空条目\n"
      "\\e\n"
      "\t\\e\n"
      "\t\t 前后有空格 \n"
      "\t制表\\t换行\\n回车\\r反斜杠\\\\n\\u001b\n"
      "\t\\ufeff头\n"
      "\t头\n"
      "\tM6\n"
      "\tm6\n"
      "\tM6 \n"
      "\tＭ６\n"
      "\te\xCC\x81\n"
      "\t\xC3\xA9\n"
      "\t'单''双\"%_;--/*?{}\n"
      "\t𠮷野家\n"
      "\t𠀀野家\n"
      "\t👩‍🔧\n"
      "\tשלום\n";
  const Outcome imported = Import(QByteArray::fromStdString(outline));
  EXPECT_EQ(imported.exitCode, 0);
  EXPECT_EQ(imported.messages, "");
  EXPECT_EQ(Export().output, outline);
  EXPECT_EQ(RunOnEngine({QStringLiteral("export"), File(QStringLiteral("out"))}).exitCode, 0);
  EXPECT_EQ(ReadFile(QStringLiteral("out")), outline);

  // As saved by another editor: byte order mark, carriage returns, no line feed at the end.
  EXPECT_EQ(Import("\xEF\xBB\xBF铣削\r\n\t立铣").exitCode, 0);
  EXPECT_EQ(Export().output, outline + "铣削\n\t立铣\n");
  EXPECT_EQ(Rows(QStringLiteral("select * from Dictionary order by Position"),
                 {"Position", "SortName"}, connection_),
            "1|车削\n2|空条目\n3|\n4|铣削\n");
  EXPECT_EQ(Rows(QStringLiteral("select * from Items where SortID=(select GID from Dictionary "
                                "where Position=1) order by ID"),
                 {"ID", "FatherID", "NodeName"}, connection_),
            "1|0|粗车\n2|1|粗车外圆\n3|2|留 1 mm 余量\n4|1|粗车端面\n5|0|精车\n");
  EXPECT_EQ(
      Rows(QStringLiteral("select * from GUIDLists order by ID"), {"ID"}, connection_),
      Rows(QStringLiteral("select * from Dictionary order by Position"), {"GID"}, connection_));
}

TEST_P(AdminTest, ARefusedFileLeavesTheLibraryAsItWas) {
  ASSERT_EQ(Import("车削\n\t粗车\n").exitCode, 0);
  const std::string before = Library();
  struct Case {
    QByteArray outline;
    const char* line;
  };
  std::vector<Case> cases = {
      {"铣削\n\t立铣\n车削\n", "第 3 行："},  // in the library
      {"铣削\n\t立铣\n铣削\n", "第 3 行："},
      {"铣削\n\t立铣\n\t\t立铣\n", "第 3 行："},
      {"\t立铣\n", "第 1 行："},
      {"铣削\n\t\t立铣\n", "第 2 行："},
      {"铣削\n\t立铣\n\t\t\n", "第 3 行："},
      {"铣削\n\n", "第 2 行："},
      {"铣削\n\t立\xE9\x93\n", "第 2 行："},
      {"铣削\n\t\xED\xA0\x80\n", "第 2 行："},
      {"铣削\n\t立铣\\x\n", "第 2 行："},
      {"铣削\n\t立铣\\\n", "第 2 行："},
      {"铣削\n\t\\u12-4\n", "第 2 行："},
      {"铣削\n\t\\u0000\n", "第 2 行："},
      {"铣削\n\t立\t铣\n", "第 2 行："},
  };
  if (GetParam().name != std::string("sqlite")) {  // names in SQLite have no limit
    cases.push_back({"铣削\n\t立铣\n\t" + QByteArray(70'000, 'x') + '\n', "第 3 行："});
  }
  for (const auto& [outline, line] : cases) {
    const Outcome refused = Import(outline);
    EXPECT_EQ(refused.exitCode, 1) << outline.constData();
    EXPECT_THAT(refused.messages, testing::StartsWith(std::string("hcwordlib-admin: ") + line));
    EXPECT_EQ(Library(), before) << outline.constData();
  }
}

TEST_P(AdminTest, WordsWithoutAPlaceAreReportedAndTheRestIsExported) {
  Execute("insert into Dictionary (GID,SortName,Position) values (-5,'甲',1)");
  const char* rows[] = {"-5,1,4,'父在后'",  "-5,2,9,'无父'", "-5,3,2,'无祖'", "-5,4,0,'根'",
                        "-5,5,6,'环一'",    "-5,6,5,'环二'", "-5,7,7,'自环'", "-5,0,0,'零'",
                        "-5,-3,4,'负编号'", "8,1,0,'无条目'"};
  for (const char* row : rows) {
    Execute(("insert into Items (SortID,ID,FatherID,NodeName) values (" + std::string(row) + ")")
                .c_str());
  }
  const Outcome exported = Export();
  EXPECT_EQ(exported.exitCode, 1);
  EXPECT_EQ(exported.output, "甲\n\t零\n\t根\n\t\t负编号\n\t\t父在后\n");
  for (const char* lost : {"SortID=-5，ID=2）", "SortID=-5，ID=3）", "SortID=-5，ID=5）",
                           "SortID=-5，ID=6）", "SortID=-5，ID=7）", "SortID=8，ID=1）"}) {
    EXPECT_THAT(exported.messages, testing::HasSubstr(lost));
  }
  EXPECT_EQ(std::count(exported.messages.begin(), exported.messages.end(), '\n'), 6);
}

TEST_P(AdminTest, AFailedExportLeavesTheFileAlone) {
  ASSERT_EQ(Import("车削\n\t粗车\n").exitCode, 0);
  EXPECT_EQ(RunOnEngine({QStringLiteral("export")}, QStringLiteral("/dev/full")).exitCode, 1);
  WriteFile(QStringLiteral("kept"), "以前的内容");
  Execute("drop table Items");
  EXPECT_EQ(RunOnEngine({QStringLiteral("export"), File(QStringLiteral("kept"))}).exitCode, 1);
  EXPECT_EQ(ReadFile(QStringLiteral("kept")), "以前的内容");
}

TEST(AdminCommandLine, TellsWhatIsWrongByTheExitCode) {
  const auto exitCode = [](const char* arguments) {
    return RunAdmin(QString::fromUtf8(arguments).split(QLatin1Char(' '), Qt::SkipEmptyParts))
        .exitCode;
  };
  for (const char* wrong : {"", "dump", "init x", "import", "import a b", "export a b", "--dsn",
                            "--dsn a;b init", "--dsn= init", "--quiet init"}) {
    EXPECT_EQ(exitCode(wrong), 2) << wrong;
  }
  EXPECT_EQ(exitCode("--dsn HCWNoSuchSource export"), 1);
  EXPECT_EQ(exitCode("import /no/such/file"), 1);
  EXPECT_EQ(exitCode("--version"), 0);
  EXPECT_THAT(RunAdmin({QStringLiteral("--help")}).output, testing::HasSubstr("大纲文件"));
}

}  // namespace

int main(int argc, char** argv) {
  // Makes the process's encoding UTF-8.
  const QCoreApplication application(argc, argv);
  testing::InitGoogleMock(&argc, argv);
  return RUN_ALL_TESTS();
}
