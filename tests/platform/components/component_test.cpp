// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "component.h"

#include "error.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QLibraryInfo>
#include <QSet>

#include <array>

namespace {

using Quarters = std::array<qint32, 4>;

Quarters Read(const GUIDGen& generator) {
  return {generator.Part1(), generator.Part2(), generator.Part3(), generator.Part4()};
}

QString LibraryPath(const QString& progId) {
  return QDir(QCoreApplication::applicationDirPath())
      .filePath(QStringLiteral("lib%1.so").arg(progId));
}

// A library file that stands beside the program for one test.
class LibraryFile {
 public:
  explicit LibraryFile(const QString& progId) : path_(LibraryPath(progId)) { QFile::remove(path_); }
  ~LibraryFile() { QFile::remove(path_); }

  void Write(const QByteArray& content) const {
    QFile file(path_);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(content), content.size());
  }
  void Link(const QString& target) const { ASSERT_TRUE(QFile::link(target, path_)); }

 private:
  QString path_;
};

void ExpectCannotCreate(const QString& progId) {
  try {
    CreateComponent(progId);
    ADD_FAILURE() << qPrintable(progId) << " was created";
  } catch (const Error& error) {
    EXPECT_EQ(error.Description(), QStringLiteral("ActiveX 部件不能创建对象"));
  }
}

TEST(Component, GeneratorMakesFreshRandomGUIDs) {
  const auto generator = CreateComponent(QLatin1String(kGUIDGenProgId));
  const auto other = CreateComponent(QLatin1String(kGUIDGenProgId));
  QSet<QByteArray> seen;
  constexpr int kCount = 1000;
  quint32 everSet = 0;
  for (int i = 0; i < kCount; ++i) {
    generator->Generate();
    const Quarters guid = Read(*generator);
    other->Generate();
    EXPECT_EQ(Read(*generator), guid) << "another instance changed it";
    EXPECT_NE(Read(*other), guid);
    EXPECT_EQ(static_cast<quint32>(guid[1]) >> 12 & 0xf, 4U);
    EXPECT_EQ(static_cast<quint32>(guid[2]) >> 30, 2U);
    everSet |= static_cast<quint32>(guid[0]);
    seen.insert(QByteArray(reinterpret_cast<const char*>(guid.data()), sizeof guid));
  }
  EXPECT_EQ(seen.size(), kCount);
  EXPECT_EQ(everSet, 0xffffffffU);
}

TEST(Component, WhateverIsWrongWithTheLibraryIsTheSameError) {
  ExpectCannotCreate(QStringLiteral("Missing.Component"));

  QFile real(LibraryPath(QLatin1String(kGUIDGenProgId)));
  ASSERT_TRUE(real.open(QIODevice::ReadOnly));
  const QByteArray whole = real.readAll();
  const QByteArray contents[] = {QByteArray(), "no library at all", whole.left(100),
                                 whole.left(8192), QByteArray(whole.size(), 'x')};
  for (const QByteArray& content : contents) {
    const QString broken = QStringLiteral("Broken.Component%1").arg(content.size());
    const LibraryFile file(broken);
    file.Write(content);
    ExpectCannotCreate(broken);
  }

  const QString foreign = QStringLiteral("Foreign.Component");
  const QString target =
      QLibraryInfo::path(QLibraryInfo::PluginsPath) + QStringLiteral("/imageformats/libqgif.so");
  ASSERT_TRUE(QFile::exists(target));
  const LibraryFile file(foreign);
  file.Link(target);
  ExpectCannotCreate(foreign);
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication app(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
