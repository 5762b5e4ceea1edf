// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QLineEdit>

// The in-place editor of a label. It ends once, by Enter, by Escape or because the user went
// elsewhere in the window; opening a menu or switching to another window does not end it. Text
// being composed with an input method is never lost: Enter and a loss of focus take it over.
class LabelEditor : public QLineEdit {
  Q_OBJECT

 public:
  enum class Ending { kEnter, kEscape, kLeft };

  // The longest text that it takes, in UTF-16 units, as in a native tree.
  static constexpr int kMaxLength = 255;

  // Of a longer text it takes the first characters.
  LabelEditor(const QString& text, QWidget* parent);

  // Whether the text is another than that with which the editor opened.
  bool IsChanged() const { return text() != initialText_; }

  // The width that shows the whole text, in pixels.
  int WantedWidth() const;

 Q_SIGNALS:
  void Ended(LabelEditor::Ending ending);

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void End(Ending ending);
  void Sanitize();
  void TakeOverPreedit();

  QString initialText_;
  QString preedit_;
  bool ended_ = false;
};

// `text` as a label can hold it: line breaks become blanks, halves of surrogate pairs and null
// characters go. `cursor`, a position in the text, follows.
QString SanitizedLabel(const QString& text, int& cursor);
