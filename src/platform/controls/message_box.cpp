// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "message_box.h"

#include <QMessageBox>
#include <QPushButton>

#include <utility>

namespace {

MsgBoxTwin& Twin() {
  static MsgBoxTwin twin;
  return twin;
}

}  // namespace

void SetMsgBoxTwin(MsgBoxTwin twin) {
  Twin() = std::move(twin);
}

MsgBoxResult MsgBox(QWidget* owner, const QString& text, MsgBoxButtons buttons, MsgBoxIcon icon,
                    const QString& title) {
  if (Twin()) return Twin()(text, buttons, icon, title);
  QMessageBox box(owner);
  box.setWindowTitle(title);
  box.setText(text);
  // A name or a driver's description is shown as it stands, markup or not.
  box.setTextFormat(Qt::PlainText);
  box.setIcon(icon == MsgBoxIcon::kInformation ? QMessageBox::Information
              : icon == MsgBoxIcon::kCritical  ? QMessageBox::Critical
                                               : QMessageBox::NoIcon);
  if (buttons == MsgBoxButtons::kOkOnly) {
    box.addButton(QStringLiteral("确定"), QMessageBox::AcceptRole);
    box.exec();
    return MsgBoxResult::kOk;
  }
  QPushButton* yes = box.addButton(QStringLiteral("是(&Y)"), QMessageBox::YesRole);
  QPushButton* no = box.addButton(QStringLiteral("否(&N)"), QMessageBox::NoRole);
  box.setDefaultButton(yes);
  box.setEscapeButton(no);
  box.exec();
  return box.clickedButton() == yes ? MsgBoxResult::kYes : MsgBoxResult::kNo;
}
