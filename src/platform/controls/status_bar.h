// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "file_descriptor.h"

#include <QLabel>
#include <QSocketNotifier>
#include <QWidget>

// Three panels: a text that takes the width that the others leave, the date and the time in the
// platform's short formats. The clock wakes the program once a minute, when the computer comes back
// from a suspend and when the time is set, and not while it is hidden.
class StatusBar : public QWidget {
  Q_OBJECT

 public:
  explicit StatusBar(QWidget* parent = nullptr);

  QString PanelText() const { return panels_[0]->text(); }
  void SetPanelText(const QString& text) { panels_[0]->setText(text); }

 protected:
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void ShowNow();
  void WakeAt(qint64 second);  // since the epoch; 0 for never

  QLabel* panels_[3];
  FileDescriptor clock_;  // a timer of the system, which goes by the time of day
  QSocketNotifier minute_;
};
