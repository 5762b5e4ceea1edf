// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <Qt>

// Mouse buttons as the controls' events number them; those that are held down are added up.
inline constexpr int kNoButton = 0;  // or another one
inline constexpr int kLeftButton = 1;
inline constexpr int kRightButton = 2;
inline constexpr int kMiddleButton = 4;

inline int MouseButton(Qt::MouseButton button) {
  switch (button) {
    case Qt::LeftButton:
      return kLeftButton;
    case Qt::RightButton:
      return kRightButton;
    case Qt::MiddleButton:
      return kMiddleButton;
    default:
      return kNoButton;
  }
}

inline int MouseButtonsDown(Qt::MouseButtons buttons) {
  return ((buttons & Qt::LeftButton) != 0 ? kLeftButton : 0) +
         ((buttons & Qt::RightButton) != 0 ? kRightButton : 0) +
         ((buttons & Qt::MiddleButton) != 0 ? kMiddleButton : 0);
}
