// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QLabel>
#include <QTimer>
#include <QWidget>

// Three panels: a text that takes the width that the others leave, the date and the time in the
// platform's short formats. The clock wakes the program once a minute, and not while it is hidden.
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

  QLabel* panels_[3];
  QTimer clock_;
};
