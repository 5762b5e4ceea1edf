// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "registry.h"

#include "error.h"
#include "programs.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <optional>

namespace {

const QString kProgramKey = QStringLiteral("SOFTWARE\\Microsoft\\Shared Tools\\MSINFO");
const QString kFolderKey = QStringLiteral("SOFTWARE\\Microsoft\\Shared Tools Location");

void WriteFile(const QString& path, const QByteArray& content) {
  ASSERT_TRUE(QDir().mkpath(QFileInfo(path).path()));
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  ASSERT_EQ(file.write(content), content.size());
}

// Two system configuration folders, and an empty PATH in which programs can be installed.
class RegistryTest : public testing::Test {
 protected:
  RegistryTest() {
    qputenv("XDG_CONFIG_DIRS", QFile::encodeName(folder_.filePath(QStringLiteral("a")) + ':' +
                                                 folder_.filePath(QStringLiteral("b"))));
    qputenv("PATH", QFile::encodeName(folder_.filePath(QStringLiteral("bin"))));
    qunsetenv("XDG_CURRENT_DESKTOP");
  }

  void WriteTree(const QString& configFolder, const QByteArray& content) const {
    WriteFile(folder_.filePath(configFolder + QStringLiteral("/hcwordlib/registry.conf")), content);
  }

  QString Install(const QString& program) const {
    QString path = folder_.filePath(QStringLiteral("bin/") + program);
    WriteFile(path, "#!/bin/sh\n");
    QFile::setPermissions(path, QFile::ReadOwner | QFile::ExeOwner);
    return path;
  }

  using Value = std::optional<std::pair<quint32, QByteArray>>;

  // The value's type and all bytes of it that a buffer of 1024 receives.
  static Value Query(const RegistryKey& key, const QString& name) {
    constexpr char kUntouched = '~';
    QByteArray buffer(1024, kUntouched);
    quint32 type = 0;
    if (!key.Query(name, type, buffer.data(), buffer.size())) return std::nullopt;
    while (buffer.endsWith(kUntouched)) buffer.chop(1);
    return std::pair(type, buffer);
  }
  static Value Query(const QString& path, const QString& name) {
    const auto key = RegistryKey::Open(kHKeyLocalMachine, path, kKeyAllAccess);
    return key ? Query(*key, name) : std::nullopt;
  }

  const QTemporaryDir folder_;
};

TEST_F(RegistryTest, ReadsEachTypeAndPassesOverWhatItCannotRead) {
  WriteTree(QStringLiteral("a"),
            "\xef\xbb\xbf# 注释\r\n"
            "orphan = text:x\r\n"
            "[ Software\\Key ]\r\n"
            "PATH = text: /opt/系统 信息=a:b \r\n"
            "Empty=text:\n"
            "Number = dword:000A0bff\n"
            "Bytes = binary:00 FF 7f80\n"
            "bad \xff\xfe = text:x\n"
            "no value\n= text:nameless\nNumber2 = dword:123456789\nNumber3 = dword:-1\n"
            "Number4 = dword:\nBytes2 = binary:0\nBytes3 = binary:0g\nOther = qword:1\nNone =\n"
            "Last = text:last");
  const QString path = QStringLiteral("SOFTWARE\\key");
  const auto key = RegistryKey::Open(kHKeyLocalMachine, path, kKeyAllAccess);
  ASSERT_TRUE(key);
  EXPECT_EQ(Query(*key, "path"), std::pair(kRegSz, "/opt/系统 信息=a:b" + QByteArray(1, '\0')));
  EXPECT_EQ(Query(*key, "EMPTY"), std::pair(kRegSz, QByteArray(1, '\0')));
  EXPECT_EQ(Query(*key, "Number"), std::pair(kRegDword, QByteArray("\xff\x0b\x0a\0", 4)));
  EXPECT_EQ(Query(*key, "Bytes"), std::pair(kRegBinary, QByteArray("\0\xff\x7f\x80", 4)));
  EXPECT_EQ(Query(*key, "Last"), std::pair(kRegSz, QByteArray("last\0", 5)));
  for (const char* name : {"orphan", "no value", "", "Number2", "Number3", "Number4", "Bytes2",
                           "Bytes3", "Other", "None"}) {
    EXPECT_EQ(Query(*key, name), std::nullopt) << name;
  }
  EXPECT_FALSE(RegistryKey::Open(kHKeyLocalMachine, path + 'x', kKeyAllAccess));
  EXPECT_FALSE(RegistryKey::Open(kHKeyLocalMachine, path, 0));
  EXPECT_FALSE(RegistryKey::Open(0x80000001, path, kKeyAllAccess)) << "another root";
}

TEST_F(RegistryTest, ATextMustFitTheBufferWithItsZero) {
  WriteTree(QStringLiteral("a"), "[K]\nfits = text:" + QByteArray(1023, 'x') +
                                     "\nlong = text:" + QByteArray(1024, 'x') + '\n');
  EXPECT_EQ(Query("K", "fits"), std::pair(kRegSz, QByteArray(1023, 'x') + '\0'));
  EXPECT_EQ(Query("K", "long"), std::nullopt);
}

TEST_F(RegistryTest, EarlierConfigurationFoldersGoFirst) {
  WriteTree(QStringLiteral("a"), "[K]\nboth = text:a\n");
  WriteTree(QStringLiteral("b"), "[k]\nBOTH = text:b\nother = text:b\n");
  EXPECT_EQ(Query("K", "both")->second, QByteArray("a\0", 2));
  EXPECT_EQ(Query("K", "other")->second, QByteArray("b\0", 2));
}

TEST_F(RegistryTest, WithoutEntriesOffersAnInstalledSystemInformationProgram) {
  EXPECT_EQ(Query(kProgramKey, "PATH"), std::nullopt);
  const QString settings = Install(QStringLiteral("gnome-control-center"));
  EXPECT_EQ(Query(kProgramKey, "PATH"), std::nullopt) << "it runs on its own desktop only";
  const QString hardInfo = Install(QStringLiteral("hardinfo"));
  EXPECT_EQ(Query(kProgramKey, "PATH")->second, hardInfo.toUtf8() + '\0');
  qputenv("XDG_CURRENT_DESKTOP", "ubuntu:GNOME");
  EXPECT_EQ(Query(kProgramKey, "PATH")->second, settings.toUtf8() + '\0');

  WriteTree(QStringLiteral("a"), '[' + kFolderKey.toUtf8() + "]\n");
  EXPECT_EQ(Query(kProgramKey, "PATH"), std::nullopt) << "the administrator decided";
}

TEST_F(RegistryTest, OnlyAFullPathIsEverStarted) {
  const QString program = Install(QStringLiteral("hardinfo"));
  EXPECT_TRUE(FileExists(QString(program).replace('/', '\\')));
  EXPECT_FALSE(FileExists(folder_.filePath(QStringLiteral("bin"))));
  for (const QString& path : {QString(), QStringLiteral("hardinfo"), program + QStringLiteral(" x"),
                              program + QStringLiteral(";true"), folder_.path()}) {
    EXPECT_THROW(StartProgram(path), Error) << qPrintable(path);
  }
}

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
