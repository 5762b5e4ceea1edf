// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "message_box.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

TEST(MessageBox, AnswersWithTheButtonThatClosedIt) {
  const struct {
    MsgBoxButtons buttons;
    MsgBoxIcon icon;
    Qt::Key key;
    MsgBoxResult answer;
    const char* shown;
  } cases[] = {
      {MsgBoxButtons::kYesNo, MsgBoxIcon::kNone, Qt::Key_Return, MsgBoxResult::kYes,
       "0 是(&Y) 否(&N)"},
      {MsgBoxButtons::kYesNo, MsgBoxIcon::kNone, Qt::Key_N, MsgBoxResult::kNo, "0 是(&Y) 否(&N)"},
      {MsgBoxButtons::kYesNo, MsgBoxIcon::kCritical, Qt::Key_Escape, MsgBoxResult::kNo,
       "3 是(&Y) 否(&N)"},
      {MsgBoxButtons::kOkOnly, MsgBoxIcon::kInformation, Qt::Key_Escape, MsgBoxResult::kOk,
       "1 确定"},
  };
  for (const auto& [buttons, icon, key, answer, shown] : cases) {
    QString seen;
    QObject context;
    QObject::connect(
        qApp, &QGuiApplication::focusWindowChanged, &context,
        [&, key = key] {
          auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
          if (box == nullptr) return;
          seen = box->windowTitle() + box->text() + QString::number(box->icon());
          for (const auto* button : box->buttons()) seen += u' ' + button->text();
          QTest::keyClick(box, key, key == Qt::Key_N ? Qt::AltModifier : Qt::NoModifier);
        },
        Qt::QueuedConnection);
    EXPECT_EQ(MsgBox(nullptr, QStringLiteral("<b>问"), buttons, icon), answer);
    EXPECT_EQ(seen.toStdString(), std::string("HCWordLib<b>问") + shown);
  }
}
