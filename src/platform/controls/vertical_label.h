// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

// A caption in the typeface 隶书, or the nearest that is installed, whose characters stand one
// under the other and fill the label's height.
class VerticalLabel : public QWidget {
  Q_OBJECT

 public:
  VerticalLabel(const QString& caption, qreal pointSize, QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString caption_;
};
