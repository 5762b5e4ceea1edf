// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "label_editor.h"

#include "characters.h"

#include <QApplication>
#include <QClipboard>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QToolTip>

#include <algorithm>
#include <limits>
#include <utility>

namespace {

// What a line edit keeps free on either side of its text, in pixels.
constexpr int kTextMargin = 2;

// The first `count` characters, or all when there are fewer.
QString FirstCharacters(const QString& text, qsizetype count) {
  qsizetype end = 0;
  for (; end < text.size() && (count > 0 || text[end].isLowSurrogate()); ++end) {
    if (!text[end].isLowSurrogate()) --count;
  }
  return text.first(end);
}

}  // namespace

LabelEditor::LabelEditor(const QString& text, QWidget* parent)
    : QLineEdit(parent), initialText_(text), textBefore_(text) {
  setMaxLength(std::numeric_limits<int>::max());
  setText(text);
  // Where the label has it, whichever way the text runs.
  setAlignment(Qt::AlignLeft | Qt::AlignAbsolute);
  setAccessibleName(QStringLiteral("名称"));
  connect(this, &QLineEdit::textEdited, this, &LabelEditor::Edited);
}

QRect LabelEditor::Contents(int height) const {
  QStyleOptionFrame option;
  initStyleOption(&option);
  option.rect = QRect(0, 0, width(), height);
  return style()->subElementRect(QStyle::SE_LineEditContents, &option, this);
}

int LabelEditor::WantedHeight(int height) const {
  return height + qMax(0, fontMetrics().height() - Contents(height).height());
}

QPoint LabelEditor::TextBegin(int height) const {
  const QRect contents = Contents(height);
  return contents.topLeft() +
         QPoint(kTextMargin, (contents.height() - fontMetrics().height() + 1) / 2);
}

int LabelEditor::WantedWidth() const {
  QStyleOptionFrame option;
  initStyleOption(&option);
  const int text = fontMetrics().horizontalAdvance(QLineEdit::text() + preedit_);
  constexpr int kCursorRoom = 4;
  const QSize contents(text + 2 * kTextMargin + kCursorRoom, fontMetrics().height());
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
      if (!preedit_.isEmpty()) {
        TakeOverPreedit();
      } else if (!event->modifiers().testFlag(Qt::ControlModifier)) {
        Q_EMIT Ended(Ending::kEnter);
      } else if (!event->isAutoRepeat()) {
        Q_EMIT Ended(Ending::kNext);
      }
      return;
    case Qt::Key_Escape:
      if (preedit_.isEmpty()) {
        Q_EMIT Ended(Ending::kEscape);
      } else {
        QGuiApplication::inputMethod()->reset();
      }
      return;
    default:
      if (event->matches(QKeySequence::Paste)) {
        Paste(QGuiApplication::clipboard()->text());
      } else {
        QLineEdit::keyPressEvent(event);
      }
      event->accept();  // no key is the tree's while the editor is open
  }
}

void LabelEditor::inputMethodEvent(QInputMethodEvent* event) {
  preedit_ = event->preeditString();
  QLineEdit::inputMethodEvent(event);
  Q_EMIT textChanged(text());  // the width follows what is being composed
}

void LabelEditor::focusOutEvent(QFocusEvent* event) {
  TakeOverPreedit();
  QLineEdit::focusOutEvent(event);
}

// As one change, which can be undone.
void LabelEditor::Paste(const QString& pasted) {
  const QString line = OnOneLine(pasted);
  const qsizetype room =
      std::max<qsizetype>(kMostCharacters - Characters(text()) + Characters(selectedText()), 0);
  const QString fitting = FirstCharacters(line, room);
  if (!fitting.isEmpty()) insert(fitting);
  if (fitting.size() < line.size()) TellTooLong();
}

// What came in by typing, by dropping or from the context menu ends at the cursor.
void LabelEditor::Edited() {
  const QString now = text();
  const QString before = std::exchange(textBefore_, now);
  const qsizetype end = cursorPosition();
  const auto differ =
      std::mismatch(now.cbegin(), now.cbegin() + end, before.cbegin(), before.cend());
  qsizetype begin = differ.first - now.cbegin();
  if (begin > 0 && begin < end && now[begin].isLowSurrogate()) --begin;
  const QString came = now.sliced(begin, end - begin);
  const QString rest = now.first(begin) + now.sliced(end);
  QString kept = OnOneLine(came);
  const bool isTooLong = now.size() > before.size() && Characters(now) > kMostCharacters;
  if (isTooLong) {
    kept = FirstCharacters(kept, std::max<qsizetype>(kMostCharacters - Characters(rest), 0));
  }
  if (kept == came || now == initialText_) return;
  textBefore_ = now.first(begin) + kept + now.sliced(end);
  setText(textBefore_);
  setModified(true);
  setCursorPosition(static_cast<int>(begin + kept.size()));
  if (isTooLong) TellTooLong();
}

void LabelEditor::TellTooLong() {
  QApplication::beep();
  QToolTip::showText(
      mapToGlobal(rect().bottomLeft()),
      QStringLiteral("名称最多 %1 个字符，多出的部分没有放入。").arg(kMostCharacters), this);
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
