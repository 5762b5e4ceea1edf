// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "system_colors.h"

#include <QIcon>
#include <QList>
#include <QWidget>

class QFrame;

// A pane that lines can be drawn on; what was drawn stays until Cls. Coordinates and sizes are in
// twips from its top-left corner. While a button is down, the pane keeps the pointer, also when it
// is hidden meanwhile. It can show a picture, whose size it then takes.
class PictureBox : public QWidget {
  Q_OBJECT

 public:
  explicit PictureBox(QWidget* parent = nullptr);

  void SetBackColor(OleColor color);
  // A single line around the pane, inside its outer size and above what the pane holds.
  void SetBorder();
  // `size` in device-independent pixels.
  void SetPicture(const QIcon& picture, const QSize& size);

  // Erases everything drawn.
  void Cls();
  // In pixels; used by the lines drawn from here on.
  void SetDrawWidth(int pixels) { drawWidth_ = pixels; }
  void Line(float x1, float y1, float x2, float y2, OleColor color);

 Q_SIGNALS:
  // Buttons as in mouse.h.
  void MouseDown(int button, float x, float y);
  void MouseMove(int buttons, float x, float y);
  void MouseUp(int button, float x, float y);
  // The pointer went elsewhere, be it to a control on the pane.
  void MouseLeave();
  void Click();

 public:
  QSize sizeHint() const override { return pictureSize_; }
  void setVisible(bool visible) override;

 protected:
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void childEvent(QChildEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void ColorBorder();

  struct DrawnLine {
    QPointF from;
    QPointF to;
    OleColor color;
    int width;
  };

  QList<DrawnLine> lines_;
  OleColor backColor_ = kInactiveBorder;
  int drawWidth_ = 1;
  bool buttonDown_ = false;
  bool concealed_ = false;
  QFrame* border_ = nullptr;
  QIcon picture_;
  QSize pictureSize_;
};
