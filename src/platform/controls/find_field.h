// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

class GlyphButton;
class LabelEditor;
class QLabel;

// A slim strip: a line to type in, how many were found, buttons to go on, back and to close. In a
// narrow one the buttons go, the line and what was found stay.
class FindField : public QWidget {
  Q_OBJECT

 public:
  explicit FindField(QWidget* parent);

  // Without what an input method is composing.
  QString Text() const;
  // Gives the line the focus and selects its text.
  void Activate();
  // Of how many the selected one is which, counted from 1; 0 when it is none of them.
  void ShowFound(qsizetype place, qsizetype count);

  QSize minimumSizeHint() const override;

 Q_SIGNALS:
  // May come without a change.
  void TextChanged();
  void Next();
  void Previous();
  void Closed();

 protected:
  void changeEvent(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void ColorParts();
  void FitFound();

  LabelEditor* line_;
  QLabel* found_;
  QString shown_;  // there, where there is room
  GlyphButton* previous_;
  GlyphButton* next_;
  GlyphButton* close_;
  Qt::KeyboardModifiers modifiers_;  // of the key that the line gets
};
