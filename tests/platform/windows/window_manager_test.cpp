// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "window_manager.h"

#include <gtest/gtest.h>

#include <QDialog>
#include <QTest>
#include <QWidget>

namespace {

const QString kCaption = QStringLiteral("衡川词句库");

TEST(WindowManager, FindsTheShownWindowOfExactlyThatCaption) {
  QWidget hidden;
  hidden.setWindowTitle(kCaption);
  QWidget longer;
  longer.setWindowTitle(kCaption + QLatin1Char(' '));
  longer.show();
  EXPECT_EQ(FindWindowByCaption(kCaption), nullptr);
  QWidget window;
  window.setWindowTitle(kCaption);
  window.showMinimized();
  EXPECT_EQ(FindWindowByCaption(kCaption), &window);
}

TEST(WindowManager, RestoringIsOneStepBack) {
  const std::pair<Qt::WindowStates, Qt::WindowStates> cases[] = {
      {Qt::WindowMinimized, Qt::WindowNoState},
      {Qt::WindowMinimized | Qt::WindowMaximized, Qt::WindowMaximized},
      {Qt::WindowMaximized, Qt::WindowNoState},
      {Qt::WindowNoState, Qt::WindowNoState}};
  for (const auto& [before, after] : cases) {
    QWidget window;
    window.setWindowState(before);
    RestoreWindow(window);
    EXPECT_FALSE(window.isVisible());
    window.show();
    RestoreWindow(window);
    EXPECT_EQ(window.windowState() & ~Qt::WindowStates(Qt::WindowActive), after);
    EXPECT_TRUE(window.isVisible());
  }
}

TEST(WindowManager, AnOpenDialogKeepsTheForeground) {
  QWidget window;
  window.show();
  QWidget other;
  const auto takeForeground = [&](const QWidget& expected) {
    other.show();
    other.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&other));
    SetForegroundWindow(window, {});
    BringWindowToTop(window);
    EXPECT_TRUE(QTest::qWaitFor([&] { return expected.isActiveWindow(); }));
  };
  takeForeground(window);
  QDialog dialog(&window);
  dialog.open();
  takeForeground(dialog);
}

}  // namespace
