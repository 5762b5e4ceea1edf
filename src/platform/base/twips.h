// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QRect>
#include <QtMath>

// The unit of every position and size of the windows: 1440 twips to the inch, so 15 to a
// device-independent pixel (96 to the inch), in single precision.
inline constexpr float kTwipsPerPixel = 15.0F;

inline int TwipsToPixels(float twips) {
  return qRound(twips / kTwipsPerPixel);
}
inline float PixelsToTwips(int pixels) {
  return static_cast<float>(pixels) * kTwipsPerPixel;
}

// A rectangle in twips.
struct TwipsRect {
  float left = 0;
  float top = 0;
  float width = 0;
  float height = 0;

  // The pixels whose edges are nearest; rectangles that share an edge share it on screen too.
  QRect ToPixels() const {
    const int x = TwipsToPixels(left);
    const int y = TwipsToPixels(top);
    return QRect(x, y, TwipsToPixels(left + width) - x, TwipsToPixels(top + height) - y);
  }

  friend bool operator==(const TwipsRect&, const TwipsRect&) = default;
};
