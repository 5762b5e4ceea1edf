// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "picture_button.h"

#include "focus_frame.h"

#include <QKeyEvent>
#include <QPainter>

PictureButton::PictureButton(QWidget* parent) : PictureBox(parent) {
  setFocusPolicy(Qt::TabFocus);
  setCursor(Qt::PointingHandCursor);
}

void PictureButton::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  if (key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter) {
    if (!event->isAutoRepeat()) Q_EMIT Click();
  } else {
    PictureBox::keyPressEvent(event);
  }
}

void PictureButton::paintEvent(QPaintEvent* event) {
  PictureBox::paintEvent(event);
  QPainter painter(this);
  if (hasFocus()) DrawFocusFrame(painter, rect(), palette().color(QPalette::WindowText));
}
