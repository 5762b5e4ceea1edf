// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "single_instance.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <array>
#include <cstdio>

namespace {

// What this test program does as an instance. It says "first" or "second". The first then waits for
// a line on its input, as if it were loading, starts a child that outlives it, and serves.
int RunInstance(int argc, char** argv) {
  std::setbuf(stdout, nullptr);
  SingleInstance instance("hcwordlib-test");
  if (instance.PrevInstance()) instance.HandOver();
  std::puts(instance.PrevInstance() ? "second" : "first");
  if (instance.PrevInstance()) return 0;
  QCoreApplication app(argc, argv);
  std::getchar();
  QProcess::startDetached(QStringLiteral("sleep"), {QStringLiteral("9")});
  instance.Serve([](const ActivationToken& token) {
    std::printf("request %s %s\n", token.wayland.constData(), token.x11.constData());
  });
  return app.exec();
}

void Start(QProcess& instance) {
  instance.start(QCoreApplication::applicationFilePath(), {QStringLiteral("instance")});
}

QByteArray Line(QProcess& instance) {
  while (!instance.canReadLine() && instance.waitForReadyRead()) continue;
  return instance.readLine().trimmed();
}

TEST(SingleInstance, TheSecondHandsOverWhileTheFirstLoadsAndAKilledOneLeavesNoLock) {
  const QTemporaryDir folder;
  qputenv("XDG_RUNTIME_DIR", QFile::encodeName(folder.path()));
  qputenv("XDG_ACTIVATION_TOKEN", "token");
  qputenv("DESKTOP_STARTUP_ID", "id_TIME5");
  QProcess first;
  QProcess second;
  Start(first);
  ASSERT_EQ(Line(first), "first");
  Start(second);
  EXPECT_EQ(Line(second), "second");
  EXPECT_TRUE(second.waitForFinished() && second.exitCode() == 0);
  first.write("\n");
  EXPECT_EQ(Line(first), "request token id_TIME5");
  first.kill();
  EXPECT_TRUE(first.waitForFinished());
  Start(second);
  EXPECT_EQ(Line(second), "first");
}

TEST(SingleInstance, OfManyAtOnceExactlyOneRuns) {
  const QTemporaryDir folder;
  qputenv("XDG_RUNTIME_DIR", QFile::encodeName(folder.path()));
  std::array<QProcess, 12> instances;
  for (QProcess& instance : instances) Start(instance);
  QByteArrayList answers;
  for (QProcess& instance : instances) answers.append(Line(instance));
  EXPECT_TRUE(answers.count("first") == 1 && answers.count("second") == 11);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 2 && argv[1] == QByteArray("instance")) return RunInstance(argc, argv);
  const QApplication app(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
