// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "twips.h"

#include <QMargins>
#include <QObject>
#include <QSize>
#include <QTimer>

class QWidget;

// Places a top-level window by its outer edges, also before it is first shown. The window manager
// tells the frame's size only once it has framed the window; the size is then corrected, once.
class WindowPlacement : public QObject {
 public:
  explicit WindowPlacement(QWidget& window);

  // What was set, as long as neither the user nor the window manager changed it (the pixels of a
  // fractional scale do not hold every value), else what the window has.
  TwipsRect Get() const;

  // A size that no screen can show is cut to that of all screens together. A place where no screen
  // shows enough of the caption to take hold of it becomes the nearest where one does.
  void Set(const TwipsRect& geometry);

  // Asks for another size of the window that shows. The window has it from the resize event on that
  // tells of it. A window manager that refuses, as during a drag, is asked some more times.
  void AskForSize(float width, float height);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QMargins Frame() const;
  QSize WantedSize() const;  // without the frame
  void Ask();

  QWidget& window_;
  TwipsRect wanted_;
  QSize refused_;  // the window's size when another one was asked for
  QTimer askAgain_;
  int patience_ = 0;
  bool framed_ = false;  // the window's size allows for its frame
};
