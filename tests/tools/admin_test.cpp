// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

// Runs hcwordlib-admin as an administrator does, and looks at the library afterwards.

#include "engines.h"
#include "rows.h"

#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gmock/gmock.h>

namespace {

// Characters outside the basic plane count as one.
const std::string kLongest = QStringLiteral("𠮷").repeated(4000).toStdString();

struct Outcome {
  std::string output, messages;
};

class AdminTest : public EngineTest {
 protected:
  Outcome Run(const char* command, const QStringList& files = {}) const {
    QProcess process;
    if (QFile::exists(file_)) process.setStandardInputFile(file_);
    // A bare system's names no locale.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("LC_ALL"));
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(ADMIN_PROGRAM),
                  QStringList{QStringLiteral("--dsn"), ConnectionStringOf(GetParam()).mid(4),
                              QLatin1String(command)} +
                      files);
    EXPECT_TRUE(process.waitForFinished()) << qPrintable(process.errorString());
    Outcome outcome = {process.readAllStandardOutput().toStdString(),
                       process.readAllStandardError().toStdString()};
    // Whatever fails says why.
    EXPECT_EQ(process.exitCode(), outcome.messages.empty() ? 0 : 1) << outcome.messages;
    return outcome;
  }

  Outcome Import(const QByteArray& outline, const char* duplicates = "refuse") const {
    QFile file(file_);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(outline) == outline.size());
    file.close();
    return Run("import",
               {QStringLiteral("-"), QStringLiteral("--duplicates"), QLatin1String(duplicates)});
  }

  std::string Library() {
    return Categories(connection_) + '\n' + Words(connection_) + '\n' + RegisterRows(connection_);
  }

  void Execute(const char* statement) { connection_.Execute(QString::fromUtf8(statement)); }

  QTemporaryDir folder_;
  const QString file_ = folder_.filePath(QStringLiteral("outline"));
};

INSTANTIATE_ON_ENGINES(AdminTest);

TEST_P(AdminTest, InitMakesTheTablesOnlyWhereThereIsNone) {
  Execute("drop table Dictionary");
  Execute("drop table GUIDLists");
  EXPECT_EQ(Run("init").messages, "hcwordlib-admin: 表 Items 已经存在，没有建立任何表。\n");
  EXPECT_THROW(Categories(connection_), std::exception);
  Execute("drop table Items");
  EXPECT_EQ(Run("init").messages, "");
  EXPECT_EQ(Import("车削\n\t粗车\n").messages, "");
  EXPECT_NE(Run("init").messages, "");
  EXPECT_EQ(Run("export").output, "车削\n\t粗车\n");
}

TEST_P(AdminTest, AnOutlineComesBackByteForByte) {
  const std::string outline =
      "车削\n\t粗车\n\t\t粗车外圆\n\t\t\t留 1 mm 余量\n\t\t粗车端面\n\t精车\n空条目\n\\e\n\t\\e\n"
      "\t\t 前后有空格 \n\t制表\\t换行\\n回车\\r反斜杠\\\\n\\u001b\n\t\\ufeff头\n\t头\n\tM6\n\tm6\n"
      "\tM6 "
      "\n\tＭ６\n\te\xCC\x81\n\t\xC3\xA9\n\t'单''双\"%_;--/"
      "*?{}\n\t𠮷野家\n\t👩‍🔧\n\tשלום\n\t" +
      kLongest + "\n";
  EXPECT_EQ(Import(QByteArray::fromStdString(outline)).messages, "");
  EXPECT_EQ(Run("export").output, outline);
  // As saved by other editors: byte order mark, carriage returns, no line feed at the end.
  EXPECT_EQ(Import("\xEF\xBB\xBF铣削\r\n\t立铣").messages, "");
  EXPECT_EQ(Import(QByteArray("\xFE\xFF\x94\xE3\0\r\0\n\0\t\x94\xE3", 12)).messages, "");
  EXPECT_EQ(Run("export", {file_}).messages, "");
  QFile file(file_);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly));
  EXPECT_EQ(file.readAll().toStdString(), outline + "铣削\n\t立铣\n铣\n\t铣\n");
  EXPECT_THAT(Words(connection_), testing::HasSubstr("|3|2|留 1 mm 余量\n"));
  // An export that fails leaves the file as it was.
  Execute("drop table Items");
  EXPECT_NE(Run("export", {file_}).messages, "");
  EXPECT_GT(QFileInfo(file_).size(), outline.size());
}

// Words of many lengths: a driver that tells one of them wrong is caught here.
TEST_P(AdminTest, TheSampleLibraryComesBackByteForByte) {
  const QString sample = QStringLiteral(SAMPLE_LIBRARY);
  ASSERT_EQ(Run("import", {sample}).messages, "");
  QFile file(sample);
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  // A device is written into, not replaced.
  EXPECT_EQ(Run("export", {QStringLiteral("/dev/stdout")}).output, file.readAll().toStdString());
}

TEST_P(AdminTest, ARefusedFileLeavesTheLibraryAsItWas) {
  ASSERT_EQ(Import("车削\n\t粗车\n").messages, "");
  const std::string before = Library();
  const std::string faulty =
      "\t立铣\n铣削\n\t\t\t立铣\n\t\t\t\t平铣\n\n\t立\xE9\x93\n\t立铣\\x\n\t\\ud842\n\t立\t铣\n\t" +
      kLongest + "x\n\t\t平铣\n车削\n铣削\n" + std::string(41, '\n') + "甲";
  const std::string messages = Import(QByteArray::fromStdString(faulty)).messages;
  QString lines;
  static const QRegularExpression kLine(QStringLiteral("第 ([0-9]+) 行："));
  for (const auto& line : kLine.globalMatch(QString::fromStdString(messages))) {
    lines += line.captured(1) + u' ';
  }
  EXPECT_THAT(lines.toStdString(), testing::StartsWith("1 3 5 6 7 8 9 10 11 12 13 14 "))
      << messages;
  EXPECT_THAT(messages, testing::EndsWith("第 52 行：没有名称；空名称写作 \\e。\n另有 2 处。\n"));
  EXPECT_EQ(Library(), before);
  // What only the database refuses is taken back with all that was stored before it.
  Execute("create unique index OneOfANumber on Items (ID)");
  EXPECT_THAT(Import("铣削\n\t立铣\n").messages, testing::StartsWith("hcwordlib-admin: 第 2 行："));
  EXPECT_EQ(Library(), before);
  EXPECT_THAT(Import(QByteArray::fromStdString("磨削\n\t" + kLongest + "\n\t" + kLongest), "number")
                  .messages,
              testing::HasSubstr("…”与第 2 行重名，加上数字后超过"));
  // What is wrong with the database is not told of a line.
  Execute("drop table Items");
  EXPECT_THAT(Import("铣削\n\t立铣\n").messages, testing::Not(testing::HasSubstr("行：")));
}

TEST_P(AdminTest, NamesGivenTwiceAreLeftOutOrNumbered) {
  const char outline[] =
      "车削\n\t甲\n铣削\n\t立铣\n\t\t立铣\n\t\t\t乙\n\t立铣2\n\t立铣\n铣削\n\t丙\n\t\t丁\n";
  ASSERT_EQ(Import("车削\n\t粗车\n").messages, "");
  EXPECT_EQ(Import(outline, "skip").messages, "");
  EXPECT_EQ(Run("export").output, "车削\n\t粗车\n铣削\n\t立铣\n\t立铣2\n");
  EXPECT_THAT(Import(outline, "number").output,
              testing::HasSubstr("第 3 行：词句库中已有分类条目“铣削”，改名为“铣削2”。\n"));
  EXPECT_THAT(Run("export").output,
              testing::EndsWith("车削2\n\t甲\n铣削2\n\t立铣\n\t\t立铣3\n\t\t\t乙\n\t立铣2\n\t立铣4"
                                "\n铣削3\n\t丙\n\t\t丁\n"));
}

TEST_P(AdminTest, WordsWithoutAPlaceAndEqualNamesAreReportedAndTheRestIsExported) {
  DropGuards();
  Execute("insert into Dictionary (GID,SortName,Position) values (-5,'甲',1),(-4,'甲',2)");
  Execute(
      "insert into Items (SortID,ID,FatherID,NodeName) values (-5,1,4,'父在后'),(-5,2,9,'无父'),"
      "(-5,3,4,'根'),(-5,4,0,'根'),(-5,5,6,'环一'),(-5,6,5,'环二'),(8,1,0,'无条目')");
  const Outcome exported = Run("export");
  EXPECT_EQ(exported.output, "甲\n\t根\n\t\t父在后\n\t\t根\n甲\n");
  for (const char* lost : {"-5，ID=2）", "-5，ID=5）", "-5，ID=6）", "SortID=8，ID=1）",
                           "-5，ID=3）与前面的一个重名", "GID=-4）与前面的一个重名"}) {
    EXPECT_THAT(exported.messages, testing::HasSubstr(lost));
  }
}

}  // namespace
