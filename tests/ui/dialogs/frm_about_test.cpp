// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "frm_about.h"

#include "message_box.h"
#include "registry.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>

namespace {

const QTemporaryDir kFolder;
const QByteArray kPath = "[SOFTWARE\\Microsoft\\Shared Tools\\MSINFO]\nPATH = ";
const QByteArray kLocation = "[SOFTWARE\\Microsoft\\Shared Tools Location]\nMSINFO = ";

QByteArray Write(const QString& name, const QByteArray& content) {
  QFile file(kFolder.filePath(name));
  EXPECT_TRUE(QDir().mkpath(QFileInfo(file).path()) && file.open(QIODevice::WriteOnly));
  file.write(content);
  file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  return "text:" + QFile::encodeName(file.fileName());
}

TEST(FrmAbout, StartsTheProgramOfTheFirstLocationThatIsThereOrSaysThatThereIsNone) {
  const QString mark = kFolder.filePath("mark");
  const QByteArray script = "#!/bin/sh\necho > '" + QFile::encodeName(mark) + "'\n";
  const QByteArray tools = kLocation + Write("tools/MSINFO32.EXE", script).chopped(13) + '\n';
  // What the folder holds that goes before the tree's, whether the program starts.
  const std::tuple<QByteArray, const char*, bool> cases[] = {
      {kPath + Write("系统 信息 $(touch x)", script), "nothing", true},
      {tools, "nothing", true},
      {tools, "pipe", false},  // nothing stands in for what cannot be read
      {{}, "pipe", false},
      {kLocation + "text:/nowhere", "nothing", false},
      {tools + kPath + "text:/nowhere/program", "nothing", false},  // the first one is not checked
      {tools + kPath + "text:hardinfo", "nothing", false},          // not a full path
      {{}, "nothing", true}};  // a known program that is installed
  Write("hardinfo", script);
  Write("relative/hcwordlib/registry.conf", kPath + "text:/nowhere");
  QDir::setCurrent(kFolder.path());
  ASSERT_TRUE(QDir().mkpath("pipe/hcwordlib") && mkfifo("pipe/hcwordlib/registry.conf", 0600) == 0);
  for (const auto& [tree, before, starts] : cases) {
    const QByteArray folder = QFile::encodeName(kFolder.path());
    qputenv("XDG_CONFIG_DIRS", "relative:" + folder + '/' + before + ':' + folder);
    Write("hcwordlib/registry.conf", tree);
    frmAbout about;
    about.show();
    QString message;
    SetMsgBoxTwin([&message](const QString& text, auto, auto, const QString& title) {
      message = title + QLatin1Char('|') + text;
      return MsgBoxResult::kOk;
    });
    about.findChild<QPushButton*>("cmdSysInfo")->click();
    EXPECT_EQ(message, starts ? "" : "HCWordLib|此时系统信息不可用") << tree.data();
    EXPECT_TRUE(!starts || QTest::qWaitFor([&] { return QFile::remove(mark); })) << tree.data();
  }
  EXPECT_FALSE(QFile::exists(mark));
}

TEST(FrmAbout, ValuesBecomeTextByTheirType) {
  qputenv("XDG_CONFIG_DIRS", QFile::encodeName(kFolder.path()));
  Write(
      "hcwordlib/registry.conf",
      "\xef\xbb\xbf# 注释\r\norphan = text:x\r\n[ Software\\Key ]\r\nbad \xff = text:x\nno value\n"
      "TEXT = text: /opt/系统 信息=a:b \r\nNumber = dword:0f0A0b01\nZero = dword:ff000102\n"
      "Bytes = binary:41 FF\nLong = dword:123456789\nBig = text:" +
          QByteArray(1024, 'x') + "\nFits = text:" + QByteArray(1023, 'x'));
  const std::tuple<const char*, bool, QByteArray> cases[] = {
      {"text", true, "/opt/系统 信息=a:b"},
      {"Number", true, "&holdFAB1"},  // no leading zeros
      {"Zero", true, "&hold12"},      // cut at the first zero byte
      {"BYTES", true, "old"},
      {"Fits", true, QByteArray(1023, 'x')},
      {"Big", false, ""},
      {"Long", false, ""},
      {"orphan", false, ""}};
  for (const auto& [name, found, text] : cases) {
    QString value = QStringLiteral("old");
    EXPECT_EQ(frmAbout::GetKeyValue(kHKeyLocalMachine, "SOFTWARE\\key", name, value), found)
        << name;
    EXPECT_EQ(value, QString::fromUtf8(text)) << name;
  }
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("PATH", QFile::encodeName(kFolder.path()));
  const QApplication app(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
