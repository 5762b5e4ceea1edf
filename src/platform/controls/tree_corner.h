// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "glyph_button.h"

#include <QWidget>

#include <vector>

class QAbstractScrollArea;

// Buttons for the mouse in the lower right corner of a view, there while the pointer is over it.
// All but the first would cover too much of the view and unfold only where the pointer comes.
class TreeCorner : public QWidget {
  Q_OBJECT

 public:
  explicit TreeCorner(QAbstractScrollArea& view);

  // The first one stands at the right, those that follow to its left, in their order. The strings
  // are as for GlyphButton.
  GlyphButton& Add(GlyphButton::Glyph glyph, const QString& name, const QString& keys);

  // Away while something in the view must not be covered.
  void SetAway(bool away);

 Q_SIGNALS:
  // The pointer has left the corner, in which it had clicked.
  void LeftAfterClick();

 protected:
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void ShowOrHide();
  void Fold(bool folded);
  void Place();

  QAbstractScrollArea& view_;
  std::vector<GlyphButton*> buttons_;  // from the left
  bool isFolded_ = true;
  bool isAway_ = false;
  bool wasClicked_ = false;
};
