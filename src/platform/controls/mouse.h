// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <Qt>

// A mouse button as the controls' events number it: 1 left, 2 right, 4 middle, 0 none or another.
inline int MouseButton(Qt::MouseButton button) {
  switch (button) {
    case Qt::LeftButton:
      return 1;
    case Qt::RightButton:
      return 2;
    case Qt::MiddleButton:
      return 4;
    default:
      return 0;
  }
}

// The buttons held down, as the sum of their numbers.
inline int MouseButtonsDown(Qt::MouseButtons buttons) {
  return ((buttons & Qt::LeftButton) != 0 ? 1 : 0) + ((buttons & Qt::RightButton) != 0 ? 2 : 0) +
         ((buttons & Qt::MiddleButton) != 0 ? 4 : 0);
}

// The keyboard's state in the controls' events: 1 Shift, 2 Ctrl, 4 Alt, added up.
inline int ShiftState(Qt::KeyboardModifiers modifiers) {
  return ((modifiers & Qt::ShiftModifier) != 0 ? 1 : 0) +
         ((modifiers & Qt::ControlModifier) != 0 ? 2 : 0) +
         ((modifiers & Qt::AltModifier) != 0 ? 4 : 0);
}
