// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>
#include <QString>

// The about box: the program's title and version, and a button that starts the platform's
// system-information program. Fixed in size; its owner shows it modally with exec.
class frmAbout : public QDialog {
  Q_OBJECT

 public:
  explicit frmAbout(QWidget* owner = nullptr);

  // Starts the system-information program that the machine-wide registry names; a message tells
  // when there is none.
  void StartSysInfo();

  // Reads the value `SubKeyRef` of the key `KeyName` as text. Without the value it returns false
  // and `KeyVal` is empty. A number becomes "&h", what `KeyVal` held and the hexadecimal digits of
  // its bytes; values of other types but text leave `KeyVal` as it is.
  static bool GetKeyValue(quint32 KeyRoot, const QString& KeyName, const QString& SubKeyRef,
                          QString& KeyVal);

 private:
  void cmdOK_Click();
  void cmdSysInfo_Click();
};
