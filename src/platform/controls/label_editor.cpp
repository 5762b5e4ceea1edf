// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "label_editor.h"

#include <QGuiApplication>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QStyle>
#include <QStyleOptionFrame>

LabelEditor::LabelEditor(const QString& text, QWidget* parent)
    : QLineEdit(parent), initialText_(text.left(kMaxLength)) {
  if (text.size() > kMaxLength && initialText_.back().isHighSurrogate()) initialText_.chop(1);
  setMaxLength(kMaxLength);
  setText(initialText_);
  setAccessibleName(QStringLiteral("名称"));
  connect(this, &QLineEdit::textEdited, this, &LabelEditor::Sanitize);
}

int LabelEditor::WantedWidth() const {
  QStyleOptionFrame option;
  initStyleOption(&option);
  const int text = fontMetrics().horizontalAdvance(QLineEdit::text() + preedit_);
  // The line edit keeps two pixels on either side of its text, and the cursor wants its place.
  const QSize contents(text + 8, fontMetrics().height());
  return style()->sizeFromContents(QStyle::CT_LineEdit, &option, contents, this).width();
}

bool LabelEditor::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride) {
    // What is typed belongs to the editor, also where a menu has the key.
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Escape ||
        key == Qt::Key_F2) {
      event->accept();
      return true;
    }
  }
  return QLineEdit::event(event);
}

void LabelEditor::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      // While a candidate is being composed the key only confirms it.
      if (preedit_.isEmpty()) {
        End(Ending::kEnter);
      } else {
        TakeOverPreedit();
      }
      return;
    case Qt::Key_Escape:
      if (preedit_.isEmpty()) {
        End(Ending::kEscape);
      } else {
        QGuiApplication::inputMethod()->reset();
      }
      return;
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_F2:
      return;  // not the tree's while the editor is open
    default:
      QLineEdit::keyPressEvent(event);
  }
}

void LabelEditor::inputMethodEvent(QInputMethodEvent* event) {
  preedit_ = event->preeditString();
  QLineEdit::inputMethodEvent(event);
  Q_EMIT textChanged(text());  // the width follows what is being composed
}

void LabelEditor::focusOutEvent(QFocusEvent* event) {
  const bool left = event->reason() != Qt::ActiveWindowFocusReason &&
                    event->reason() != Qt::PopupFocusReason &&
                    event->reason() != Qt::MenuBarFocusReason;
  TakeOverPreedit();
  QLineEdit::focusOutEvent(event);
  if (left) End(Ending::kLeft);
}

void LabelEditor::End(Ending ending) {
  if (ended_) return;
  ended_ = true;
  Q_EMIT Ended(ending);
}

void LabelEditor::Sanitize() {
  int cursor = cursorPosition();
  const QString before = text();
  const QString clean = SanitizedLabel(before, cursor);
  if (clean == before) return;
  setText(clean);
  setModified(true);
  setCursorPosition(cursor);
}

// Input methods usually take their text over by themselves when asked; one that does not loses it.
void LabelEditor::TakeOverPreedit() {
  if (preedit_.isEmpty()) return;
  QGuiApplication::inputMethod()->commit();
  if (preedit_.isEmpty()) return;
  QInputMethodEvent commit;
  commit.setCommitString(preedit_);
  inputMethodEvent(&commit);
}

QString SanitizedLabel(const QString& text, int& cursor) {
  QString clean;
  clean.reserve(text.size());
  int newCursor = cursor;
  for (qsizetype i = 0; i < text.size(); ++i) {
    const QChar c = text.at(i);
    const bool pair = c.isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
    const bool breakOfTwo = c == u'\r' && i + 1 < text.size() && text.at(i + 1) == u'\n';
    if (pair) {
      clean += c;
      clean += text.at(++i);
    } else if (c.isSurrogate() || c.isNull() || breakOfTwo) {
      if (i < cursor) --newCursor;
    } else {
      const bool lineBreak = c == u'\n' || c == u'\r' || c == u'\v' || c == u'\f' ||
                             c == QChar(0x85) || c == QChar::LineSeparator ||
                             c == QChar::ParagraphSeparator;
      clean += lineBreak ? QChar(u' ') : c;
    }
  }
  cursor = newCursor;
  return clean;
}
