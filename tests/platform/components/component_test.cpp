// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "component.h"

#include "error.h"

#include <gmock/gmock.h>

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryFile>

#include <array>
#include <set>

namespace {

TEST(Component, EveryGeneratorIsFreshAndMakesRandomGUIDs) {
  const auto idle = CreateComponent(QLatin1String(kGUIDGenProgId));
  std::set<std::array<qint32, 4>> seen;
  for (int i = 0; i < 1000; ++i) {
    const auto guid = CreateComponent(QLatin1String(kGUIDGenProgId));
    guid->Generate();
    seen.insert({guid->Part1(), guid->Part2(), guid->Part3(), guid->Part4()});
  }
  EXPECT_EQ(seen.size(), 1000U);
  EXPECT_EQ(idle->Part1(), 0) << "another instance changed it";
}

TEST(Component, AMissingAndABrokenLibraryAreTheSameError) {
  const QDir folder(QCoreApplication::applicationDirPath());
  QTemporaryFile broken(folder.filePath(QStringLiteral("libBroken.XXXXXX.so")));
  ASSERT_TRUE(broken.open() && broken.resize(8192));
  for (const QString& progId : {QString("Missing"), QFileInfo(broken).completeBaseName().mid(3)}) {
    const QString text = QStringLiteral("ActiveX 部件不能创建对象");
    EXPECT_THAT([&] { CreateComponent(progId); },
                testing::Throws<Error>(testing::Property(&Error::Description, text)));
  }
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication app(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
