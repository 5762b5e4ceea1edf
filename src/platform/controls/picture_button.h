// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "picture_box.h"

// A picture that is clicked: by the mouse, which shows the pointing hand over it, and with Space or
// Enter, for which Tab leads to it.
class PictureButton : public PictureBox {
  Q_OBJECT

 public:
  explicit PictureButton(QWidget* parent = nullptr);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
};
