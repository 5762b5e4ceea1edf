// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

// Finding in the tree.

#include "frm_main.h"
#include "session.h"
#include "tree_view.h"

#include <QApplication>
#include <QLabel>
#include <QTest>

void Session::Find() {
  static const QList<Qt::Key> kKeys = {Qt::Key_C,      Qt::Key_C,  Qt::Key_W,
                                       Qt::Key_R,      Qt::Key_A,  Qt::Key_Backspace,
                                       Qt::Key_Return, Qt::Key_F3, Qt::Key_F3};
  if (!window_->isActiveWindow()) window_->activateWindow();
  Tell(QStringLiteral("finds"));
  Key(Qt::Key_F, Qt::ControlModifier);
  if (OneIn(3)) TypeText();
  for (int count = Below(6); count > 0; --count) {
    Key(OneOf(kKeys), OneIn(4) ? Qt::ShiftModifier : Qt::NoModifier);
    Settle();
    if (!editing_ || OpenEditing()) editing_ = OpenEditing();
  }
  const auto* field = window_->findChild<QWidget*>(QStringLiteral("picFind"));
  if (field->isVisible()) AuditFound(*field);
  if (OneIn(2)) Key(Qt::Key_Escape);
}

// What the field counts is what it says to be selected.
void Session::AuditFound(const QWidget& field) {
  const QString found = field.findChild<QLabel*>()->text();
  const QString typed = field.findChild<QLineEdit*>()->text();
  const bool isOne = found.contains(u'/') && found.front().isDigit();
  const bool isWritten = tree_->SelectedItem() != nullptr && !typed.isEmpty() &&
                         tree_->SelectedItem()->Text().contains(typed);
  if (isWritten && !isOne) {
    throw Fault(QStringLiteral("“%1” is not told as found: “%2”").arg(typed, found));
  }
}
