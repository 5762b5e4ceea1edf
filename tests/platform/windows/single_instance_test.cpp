// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "single_instance.h"

#include "instance_process.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <cstdio>
#include <cstring>
#include <memory>
#include <vector>

#include <unistd.h>

int RunInstance(int argc, char** argv) {
  SingleInstance instance("hcwordlib-test");
  if (instance.PrevInstance()) instance.HandOver();
  std::puts(instance.PrevInstance() ? "second" : "first");
  std::fflush(stdout);
  if (instance.PrevInstance()) return 0;

  QCoreApplication app(argc, argv);
  if (!std::strcmp(argv[1], "parent")) {
    QProcess::startDetached(QStringLiteral("cat"), {});
    std::puts("child");
    std::fflush(stdout);
    return pause();
  }
  std::getchar();
  instance.Serve([](const ActivationToken& token) {
    std::printf("request %s %s\n", token.wayland.constData(), token.x11.constData());
    std::fflush(stdout);
  });
  return app.exec();
}

namespace {

class SingleInstanceTest : public testing::Test {
 protected:
  SingleInstanceTest() : environment_(QProcessEnvironment::systemEnvironment()) {
    environment_.insert(QStringLiteral("XDG_RUNTIME_DIR"), folder_.path());
    environment_.insert(QStringLiteral("XDG_CACHE_HOME"),
                        folder_.filePath(QStringLiteral("cache")));
  }

  std::unique_ptr<QProcess> Start(const QString& mode = QStringLiteral("instance")) const {
    auto process = std::make_unique<QProcess>();
    process->setProcessEnvironment(environment_);
    process->start(QCoreApplication::applicationFilePath(), {mode});
    return process;
  }

  static QByteArray ReadLine(QProcess& process) {
    while (!process.canReadLine() && process.waitForReadyRead()) {
    }
    return process.readLine().trimmed();
  }

  static void Kill(QProcess& process) {
    process.kill();
    EXPECT_TRUE(process.waitForFinished());
  }

  QTemporaryDir folder_;
  QProcessEnvironment environment_;
};

TEST_F(SingleInstanceTest, TheSecondHandsOverAndEndsWhileTheFirstStillLoads) {
  const auto first = Start();
  ASSERT_EQ(ReadLine(*first), "first");
  environment_.insert(QStringLiteral("XDG_ACTIVATION_TOKEN"), QStringLiteral("token"));
  environment_.insert(QStringLiteral("DESKTOP_STARTUP_ID"), QStringLiteral("id_TIME5"));
  const auto second = Start();
  EXPECT_EQ(ReadLine(*second), "second");
  EXPECT_TRUE(second->waitForFinished());
  EXPECT_EQ(second->exitCode(), 0);

  first->write("\n");
  EXPECT_EQ(ReadLine(*first), "request token id_TIME5");
  environment_.remove(QStringLiteral("XDG_ACTIVATION_TOKEN"));
  const auto third = Start();
  EXPECT_EQ(ReadLine(*first), "request  id_TIME5");
  EXPECT_TRUE(third->waitForFinished());
  Kill(*first);
}

TEST_F(SingleInstanceTest, OfManyAtOnceExactlyOneRuns) {
  constexpr int kCount = 12;
  std::vector<std::unique_ptr<QProcess>> instances;
  instances.reserve(kCount);
  for (int i = 0; i < kCount; ++i) instances.push_back(Start());
  int firsts = 0;
  for (const auto& instance : instances) {
    const QByteArray answer = ReadLine(*instance);
    if (answer == "first") ++firsts;
    EXPECT_TRUE(answer == "first" || answer == "second") << answer.data();
  }
  EXPECT_EQ(firsts, 1);
  for (const auto& instance : instances) Kill(*instance);
}

TEST_F(SingleInstanceTest, AKilledInstanceLeavesNothingThatStopsTheNext) {
  for (const char* mode : {"parent", "instance", "instance"}) {
    const auto instance = Start(QLatin1String(mode));
    EXPECT_EQ(ReadLine(*instance), "first");
    // The lock must not live on in a child process.
    if (!std::strcmp(mode, "parent")) {
      EXPECT_EQ(ReadLine(*instance), "child");
    }
    Kill(*instance);
  }
}

TEST_F(SingleInstanceTest, AFolderOpenToOthersIsNotTrusted) {
  const QString open = folder_.filePath(QStringLiteral("hcwordlib-test"));
  ASSERT_TRUE(QDir().mkdir(open));
  ASSERT_TRUE(QFile::setPermissions(open, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner |
                                              QFile::ReadOther | QFile::ExeOther));
  const auto first = Start();
  ASSERT_EQ(ReadLine(*first), "first");
  const auto second = Start();
  EXPECT_EQ(ReadLine(*second), "second") << "both take the same other folder";
  EXPECT_TRUE(second->waitForFinished());
  EXPECT_TRUE(QDir(open).isEmpty());
  Kill(*first);
}

}  // namespace
