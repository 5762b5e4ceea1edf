// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "label_editing.h"

#include "tree_corner.h"
#include "tree_item_delegate.h"
#include "tree_view.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMenuBar>
#include <QMouseEvent>
#include <QWindow>

#include <utility>

namespace {

constexpr int kLeastEditorWidth = 60;

}  // namespace

LabelEditing::LabelEditing(TreeView& tree) : tree_(tree) {
  secondClick_.setSingleShot(true);
  connect(&secondClick_, &QTimer::timeout, this, [this] {
    if (tree_.hasFocus()) Open();
    Disarm();
  });
  connect(qApp, &QApplication::focusChanged, this,
          [this](QWidget*, QWidget* now) { FocusChanged(now); });
}

void LabelEditing::Arm() {
  if (state_ == State::kClosed) state_ = State::kArmed;
}

void LabelEditing::Clicked() {
  if (state_ == State::kArmed) secondClick_.start(QApplication::doubleClickInterval());
}

void LabelEditing::Disarm() {
  secondClick_.stop();
  if (state_ == State::kArmed) state_ = State::kClosed;
}

void LabelEditing::Open() {
  Disarm();
  Cancel();
  Node* const node = tree_.SelectedItem();
  if (node == nullptr) return;
  qint16 cancel = 0;
  Q_EMIT tree_.BeforeLabelEdit(cancel);
  if (cancel != 0) return;

  tree_.EnsureVisible(*node);
  edited_ = tree_.Nodes().IndexOf(node);
  editor_ = new LabelEditor(node->Text(), tree_.viewport());
  editor_->setObjectName(QStringLiteral("txtLabel"));
  connect(editor_, &LabelEditor::Ended, this, &LabelEditing::End);
  connect(editor_, &QLineEdit::textChanged, this, &LabelEditing::Place);
  Place();
  editor_->show();
  editor_->setFocus(Qt::OtherFocusReason);
  // From the end, so that the beginning of a long name stays in sight.
  const int end = static_cast<int>(editor_->text().size());
  editor_->setSelection(end, -end);
  state_ = State::kOpen;
  Delegate().SetEdited(edited_);
  tree_.Corner().SetAway(true);
  tree_.update(edited_);
  // The window hears of a press before the focus moves and before any control does.
  if (QWindow* const window = tree_.window()->windowHandle()) window->installEventFilter(this);
}

void LabelEditing::Cancel() {
  if (!IsOpen()) return;
  state_ = State::kClosed;
  CloseEditor();
}

bool LabelEditing::End(LabelEditor::Ending ending) {
  if (!IsOpen()) return true;
  state_ = State::kEnding;
  editor_->TakeOverPreedit();
  const QString text = editor_->text();
  const bool isChanged = editor_->IsChanged();
  CloseEditor();
  qint16 cancel = 0;
  using Ending = LabelEditor::Ending;
  const bool isGiven = ending != Ending::kEscape && (ending != Ending::kLeft || isChanged);
  if (isGiven) {
    const QPersistentModelIndex edited = edited_;
    Q_EMIT tree_.AfterLabelEdit(cancel, text);
    Node* const node = tree_.Nodes().NodeAt(edited);
    if (cancel == 0 && node != nullptr) tree_.SetText(*node, text);
  }
  if (state_ == State::kEnding) state_ = State::kClosed;
  if (ending == Ending::kNext && cancel == 0) Q_EMIT tree_.NextLabelWanted();
  return cancel == 0;
}

void LabelEditing::CloseEditor() {
  LabelEditor* const editor = std::exchange(editor_, nullptr);
  editor->disconnect(this);
  Delegate().SetEdited(QModelIndex());
  tree_.Corner().SetAway(false);
  tree_.update(edited_);
  if (editor->hasFocus()) tree_.setFocus(Qt::OtherFocusReason);
  editor->hide();
  editor->deleteLater();
}

TreeItemDelegate& LabelEditing::Delegate() const {
  return static_cast<TreeItemDelegate&>(*tree_.itemDelegate());
}

// The text stays where the label had it.
void LabelEditing::Place() {
  const Node* const node = tree_.Nodes().NodeAt(edited_);
  if (editor_ == nullptr || node == nullptr) return;
  const QRect label = tree_.LabelRect(*node);
  const int height = editor_->WantedHeight(label.height());
  const int room = tree_.viewport()->width() - label.left() - 1;
  const int width =
      qMin(qMax(editor_->WantedWidth(), kLeastEditorWidth), qMax(room, kLeastEditorWidth));
  const QPoint text = TreeItemDelegate::TextRect(label, tree_.fontMetrics()).topLeft();
  editor_->setGeometry(QRect(text - editor_->TextBegin(height), QSize(width, height)));
}

bool LabelEditing::IsElsewhere(const QWidget* widget) const {
  if (widget == nullptr || widget->window() != tree_.window()) return false;
  for (; widget != nullptr; widget = widget->parentWidget()) {
    if (widget == editor_ || qobject_cast<const QMenuBar*>(widget) != nullptr) return false;
  }
  return true;
}

void LabelEditing::FocusChanged(QWidget* now) {
  if (IsOpen() && IsElsewhere(now)) End(LabelEditor::Ending::kLeft);
}

bool LabelEditing::eventFilter(QObject* watched, QEvent* event) {
  const QEvent::Type type = event->type();
  const bool isPress = type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick;
  if (!isPress && type != QEvent::MouseButtonRelease) return QObject::eventFilter(watched, event);
  const auto& mouse = static_cast<const QMouseEvent&>(*event);
  if (!isPress) {
    if (swallowed_ != mouse.button()) return false;
    swallowed_ = Qt::NoButton;
    return true;
  }
  swallowed_ = Qt::NoButton;
  // The press that comes before a double click is told of says nothing that this does not.
  if (type == QEvent::MouseButtonPress && (mouse.flags() & Qt::MouseEventCreatedDoubleClick) != 0) {
    return false;
  }
  // An open menu has the mouse.
  if (!IsOpen() || QApplication::activePopupWidget() != nullptr) return false;
  const QWidget* const window = tree_.window();
  const QWidget* target = window->childAt(mouse.position().toPoint());
  if (target == nullptr) target = window;
  // The second half of a double click on the button that has opened the editor.
  const bool isSecond = type == QEvent::MouseButtonDblClick &&
                        qobject_cast<const QAbstractButton*>(target) != nullptr;
  if (isSecond || !IsElsewhere(target) || End(LabelEditor::Ending::kLeft)) return false;
  swallowed_ = mouse.button();
  return true;
}
