// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QLineEdit>

// The in-place editor of a label. It tells when Enter, Ctrl+Enter or Escape end it; all else that
// ends it is its owner's affair. Text being composed with an input method is never lost: Enter and
// a loss of focus take it over. It opens on the whole of any text. What comes in is one line:
// breaks and tabs are trimmed from its ends, a run of them inside becomes a blank, halves of
// surrogate pairs and null characters go; what is more than kMostCharacters in all is refused with
// a sound and a tool tip.
class LabelEditor : public QLineEdit {
  Q_OBJECT

 public:
  enum class Ending { kEnter, kNext, kEscape, kLeft };

  LabelEditor(const QString& text, QWidget* parent);

  // Whether the text is another than that with which the editor opened.
  bool IsChanged() const { return text() != initialText_; }

  // `height` in pixels, or more where it is too low for the text and the style's frame.
  int WantedHeight(int height) const;
  // Where the text begins when the editor is `height` pixels high, from its top-left corner.
  QPoint TextBegin(int height) const;

  // The width that shows the whole text, in pixels.
  int WantedWidth() const;

  // Makes what an input method is composing part of the text.
  void TakeOverPreedit();

 Q_SIGNALS:
  void Ended(LabelEditor::Ending ending);

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  QRect Contents(int height) const;
  void Paste(const QString& pasted);
  void Edited();
  void TellTooLong();

  QString initialText_;
  QString textBefore_;  // the last change
  QString preedit_;
};
