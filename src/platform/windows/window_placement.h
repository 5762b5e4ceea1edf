// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "twips.h"

#include <QMargins>
#include <QObject>

class QWidget;

// Places a top-level window by its outer edges, also before it is first shown. The window manager
// tells the frame's size only once it has framed the window; the size is then corrected, once.
class WindowPlacement : public QObject {
 public:
  explicit WindowPlacement(QWidget& window);

  // What was set, as long as neither the user nor the window manager changed it (the pixels of a
  // fractional scale do not hold every value), else what the window has.
  TwipsRect Get() const;

  // A place outside of every screen, of a monitor that is gone, becomes one on the primary screen.
  void Set(const TwipsRect& geometry);
  void SetWidth(float width);
  void SetHeight(float height);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QMargins Frame() const;
  void ApplySize();

  QWidget& window_;
  TwipsRect wanted_;
  bool framed_ = false;  // the window's size allows for its frame
};
