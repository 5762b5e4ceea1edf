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

  // Reads the value `subKeyRef` of the key `keyName` as text. Without the value it returns false
  // and `keyVal` is empty. A number becomes "&h", what `keyVal` held and the hexadecimal digits of
  // its bytes; values of other types but text leave `keyVal` as it is.
  static bool GetKeyValue(quint32 keyRoot, const QString& keyName, const QString& subKeyRef,
                          QString& keyVal);

 private:
  void cmdOK_Click();
  void cmdSysInfo_Click();
};
