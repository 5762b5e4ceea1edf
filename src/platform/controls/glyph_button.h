// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QToolButton>

// A small flat button for the mouse, on the background of a view: a glyph of thin lines in the
// colour of the text. It never takes the focus.
class GlyphButton : public QToolButton {
  Q_OBJECT

 public:
  enum class Glyph { kUp, kDown, kCross, kLens, kReload, kCopy, kPaste, kTakeBack };

  // `name` is for assistive tools, and the tool tip, with the keys behind it.
  GlyphButton(Glyph glyph, const QString& name, const QString& keys, QWidget* parent);

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Glyph glyph_;
};
