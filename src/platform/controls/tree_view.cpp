// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "tree_view.h"

#include "error.h"
#include "mouse.h"
#include "tree_item_delegate.h"
#include "tree_lines.h"
#include "twips.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>

#include <utility>

namespace {

constexpr int kLeastIndentation = 20;
constexpr int kLeastEditorWidth = 60;

}  // namespace

TreeView::TreeView(QWidget* parent) : QTreeView(parent), delegate_(new TreeItemDelegate(this)) {
  setModel(&nodes_);
  setHeaderHidden(true);
  setUniformRowHeights(true);
  setItemDelegate(delegate_);
  setEditTriggers(NoEditTriggers);
  setSelectionMode(SingleSelection);
  setExpandsOnDoubleClick(false);
  setHorizontalScrollMode(ScrollPerPixel);
  header()->setStretchLastSection(false);
  header()->setMinimumSectionSize(0);
  header()->setResizeContentsPrecision(0);  // measures what is in the viewport only
  setIndentation(kLeastIndentation);

  editTimer_.setSingleShot(true);
  connect(&editTimer_, &QTimer::timeout, this, [this] {
    Node* node = std::exchange(clickedLabel_, nullptr);
    if (node != nullptr && node == SelectedItem() && hasFocus()) StartLabelEdit();
  });
  connect(this, &QTreeView::expanded, this, [this] { FitColumn(true); });
  connect(this, &QTreeView::collapsed, this, [this](const QModelIndex& index) {
    FitColumn(true);
    SelectCollapsed(index);
  });
  connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this] {
    FitColumn(false);
    PlaceEditor();
  });
  connect(horizontalScrollBar(), &QScrollBar::valueChanged, this, &TreeView::PlaceEditor);
}

TreeView::~TreeView() {
  setModel(nullptr);
}

void TreeView::SetHideSelection(bool hide) {
  delegate_->SetHideSelection(hide);
}

void TreeView::SetHotTracking(bool on) {
  viewport()->setAttribute(Qt::WA_Hover, on);
}

void TreeView::SetLineStyle(LineStyle style) {
  setRootIsDecorated(style == LineStyle::kRootLines);
}

void TreeView::SetIndentation(float twips) {
  setIndentation(qMax(kLeastIndentation, TwipsToPixels(twips)));
}

void TreeView::SetImageList(const ImageList* images) {
  nodes_.SetImageList(images);
}

Node* TreeView::SelectedItem() const {
  return nodes_.NodeAt(currentIndex());
}

void TreeView::SetSelectedItem(Node& node) {
  setCurrentIndex(nodes_.IndexOf(&node));
}

bool TreeView::Expanded(const Node& node) const {
  return isExpanded(nodes_.IndexOf(&node));
}

void TreeView::SetExpanded(Node& node, bool expanded) {
  QTreeView::setExpanded(nodes_.IndexOf(&node), expanded);
}

void TreeView::EnsureVisible(Node& node) {
  scrollTo(nodes_.IndexOf(&node));
}

void TreeView::RemoveNode(EntryKey key) {
  Node& node = nodes_.Item(key);
  const Node* above = SelectedItem();
  while (above != nullptr && above != &node) above = above->Parent();
  if (above != nullptr) {
    Node* next = node.Next() != nullptr ? node.Next() : node.Previous();
    if (next == nullptr) next = node.Parent();
    if (next != nullptr) SetSelectedItem(*next);
  }
  nodes_.Remove(key);
}

void TreeView::rowsAboutToBeRemoved(const QModelIndex& parent, int start, int end) {
  editTimer_.stop();
  clickedLabel_ = nullptr;
  dropHighlight_ = nullptr;
  CancelLabelEdit();
  QTreeView::rowsAboutToBeRemoved(parent, start, end);
}

// ---- label editing

void TreeView::StartLabelEdit() {
  CancelLabelEdit();
  Node* node = SelectedItem();
  if (node == nullptr) return;
  qint16 cancel = 0;
  Q_EMIT BeforeLabelEdit(cancel);
  if (cancel != 0) return;

  EnsureVisible(*node);
  editedKey_ = node->Key();
  editor_ = new LabelEditor(node->Text(), viewport());
  editor_->setObjectName(QStringLiteral("txtLabel"));
  connect(editor_, &LabelEditor::Ended, this, &TreeView::EndLabelEdit);
  connect(editor_, &QLineEdit::textChanged, this, &TreeView::PlaceEditor);
  PlaceEditor();
  editor_->show();
  editor_->setFocus(Qt::OtherFocusReason);
  editor_->selectAll();
}

void TreeView::CancelLabelEdit() {
  if (IsEditing()) CloseEditor();
}

// Takes the editor away before anything else happens, so that no loss of focus that follows can
// end the editing a second time.
void TreeView::CloseEditor() {
  LabelEditor* editor = editor_;
  editor_ = nullptr;
  editor->disconnect(this);
  editor->blockSignals(true);
  if (editor->hasFocus()) setFocus(Qt::OtherFocusReason);
  editor->hide();
  editor->deleteLater();
}

void TreeView::EndLabelEdit(LabelEditor::Ending ending) {
  const QString text = editor_->text();
  const EntryKey key = editedKey_;
  const bool changed = editor_->IsChanged();
  CloseEditor();
  if (ending == LabelEditor::Ending::kEscape) return;
  if (ending == LabelEditor::Ending::kLeft && !changed) return;

  qint16 cancel = 0;
  Q_EMIT AfterLabelEdit(cancel, text);
  // A press that took the focus away from a text that is refused has done its work, also when the
  // editor opens again only after the window has come back to the front.
  if (cancel != 0 && ending == LabelEditor::Ending::kLeft) {
    ignorePress_ = true;
    QTimer::singleShot(0, this, [this] { ignorePress_ = false; });
  }
  Node* node = nodes_.Find(key);
  if (cancel == 0 && node != nullptr) {
    nodes_.SetText(*node, text);
    FitColumn(true);
  }
}

void TreeView::PlaceEditor() {
  Node* node = IsEditing() ? nodes_.Find(editedKey_) : nullptr;
  if (node == nullptr) return;
  const QRect label = LabelRect(*node);
  const int height = qMax(label.height(), editor_->sizeHint().height() - 2);
  const int room = viewport()->width() - label.left() - 1;
  const int width =
      qMin(qMax(editor_->WantedWidth(), kLeastEditorWidth), qMax(room, kLeastEditorWidth));
  editor_->setGeometry(label.left() - 2, label.center().y() - height / 2, width, height);
}

// ---- geometry

QRect TreeView::ItemRect(const Node& node) const {
  return delegate_->ItemRect(visualRect(nodes_.IndexOf(&node)), fontMetrics(), node.Text());
}

QRect TreeView::LabelRect(const Node& node) const {
  return delegate_->LabelRect(visualRect(nodes_.IndexOf(&node)), fontMetrics(), node.Text());
}

Node* TreeView::NodeUnder(const QPoint& position) const {
  Node* node = nodes_.NodeAt(indexAt(position));
  return node != nullptr && ItemRect(*node).contains(position) ? node : nullptr;
}

// The one column is as wide as the widest node that was in sight since the rows last changed, so
// that long labels can be scrolled to.
void TreeView::FitColumn(bool rowsChanged) {
  if (!isVisible()) return;
  const int inSight = sizeHintForColumn(0);
  widest_ = rowsChanged ? inSight : qMax(widest_, inSight);
  const int width = qMax(viewport()->width(), widest_);
  if (width != columnWidth(0)) setColumnWidth(0, width);
}

// The view itself would go back to the column's left edge. This goes sideways only as far as the
// node needs: to its picture, and to as much of its label as a small editor covers.
void TreeView::scrollTo(const QModelIndex& index, ScrollHint hint) {
  QScrollBar* const bar = horizontalScrollBar();
  const int before = bar->value();
  QTreeView::scrollTo(index, hint);
  const Node* const node = nodes_.NodeAt(index);
  if (node == nullptr) return;
  FitColumn(false);
  QTreeView::updateGeometries();
  bar->setValue(before);
  const int right = LabelRect(*node).left() + kLeastEditorWidth;
  if (right > viewport()->width()) bar->setValue(bar->value() + right - viewport()->width());
  const int left = ItemRect(*node).left();
  if (left < 0) bar->setValue(bar->value() + left);
}

void TreeView::updateGeometries() {
  QTreeView::updateGeometries();
  FitColumn(false);
  PlaceEditor();
}

// ---- mouse

void TreeView::mousePressEvent(QMouseEvent* event) {
  const bool hadFocus = !std::exchange(focusCameWithPress_, false);
  editTimer_.stop();
  clickedLabel_ = nullptr;
  if (std::exchange(ignorePress_, false)) return;

  const QPoint position = event->position().toPoint();
  Q_EMIT MouseDown(MouseButton(event->button()), ShiftState(event->modifiers()),
                   PixelsToTwips(position.x()), PixelsToTwips(position.y()));
  Node* node = NodeUnder(position);
  pressedAt_ = position;
  if (event->button() == Qt::RightButton) {
    dropHighlight_ = node;
    delegate_->SetDropHighlight(nodes_.IndexOf(node));
    viewport()->update();
  } else if (event->button() == Qt::LeftButton && node != nullptr) {
    if (node == SelectedItem() && hadFocus && labelEdit_ == LabelEdit::kAutomatic &&
        LabelRect(*node).contains(position)) {
      clickedLabel_ = node;
    }
    SetSelectedItem(*node);
    Q_EMIT NodeClick(node);
  } else if (event->button() == Qt::LeftButton) {
    const QModelIndex index = indexAt(position);
    const int right = visualRect(index).left();
    if (index.isValid() && position.x() < right && position.x() >= right - indentation()) {
      setExpanded(index, !isExpanded(index));  // on a plus/minus box
    }
  }
}

void TreeView::mouseMoveEvent(QMouseEvent* event) {
  if ((event->position().toPoint() - pressedAt_).manhattanLength() >=
      QApplication::startDragDistance()) {
    clickedLabel_ = nullptr;
  }
  if (event->buttons() == Qt::NoButton) QTreeView::mouseMoveEvent(event);
}

void TreeView::mouseReleaseEvent(QMouseEvent* event) {
  const QPoint position = event->position().toPoint();
  if (event->button() == Qt::LeftButton && clickedLabel_ != nullptr) {
    editTimer_.start(QApplication::doubleClickInterval());
  }
  Q_EMIT MouseUp(MouseButton(event->button()), ShiftState(event->modifiers()),
                 PixelsToTwips(position.x()), PixelsToTwips(position.y()));
  if (event->button() != Qt::RightButton) return;
  Node* clicked = std::exchange(dropHighlight_, nullptr);
  delegate_->SetDropHighlight(QModelIndex());
  viewport()->update();
  if (clicked != nullptr) Q_EMIT NodeClick(clicked);
}

void TreeView::mouseDoubleClickEvent(QMouseEvent* event) {
  editTimer_.stop();
  clickedLabel_ = nullptr;
  const QPoint position = event->position().toPoint();
  Node* node = NodeUnder(position);
  if (event->button() != Qt::LeftButton || node == nullptr || node != SelectedItem()) {
    mousePressEvent(event);  // quick clicks on boxes, on other nodes or with other buttons
    return;
  }
  Q_EMIT MouseDown(MouseButton(event->button()), ShiftState(event->modifiers()),
                   PixelsToTwips(position.x()), PixelsToTwips(position.y()));
  SetExpanded(*node, !Expanded(*node));
}

void TreeView::contextMenuEvent(QContextMenuEvent* event) {
  // The mouse's way to the pop-up menu is the right button's release.
  if (event->reason() != QContextMenuEvent::Keyboard) return;
  QPoint position;
  if (Node* node = SelectedItem(); node != nullptr) {
    EnsureVisible(*node);
    position = LabelRect(*node).bottomLeft();
  }
  Q_EMIT ContextMenuKey(viewport()->mapToGlobal(position));
}

// ---- keyboard and focus

template <class Action>
void TreeView::SelectByKeyboard(Action action) {
  const Node* before = SelectedItem();
  action();
  Node* after = SelectedItem();
  if (after != nullptr && after != before) Q_EMIT NodeClick(after);
}

void TreeView::SelectCollapsed(const QModelIndex& collapsed) {
  Node* const node = nodes_.NodeAt(collapsed);
  const Node* above = SelectedItem();
  while (above != nullptr && above != node) above = above->Parent();
  if (above == nullptr || node == SelectedItem()) return;
  SetSelectedItem(*node);
  Q_EMIT NodeClick(node);
}

void TreeView::keyPressEvent(QKeyEvent* event) {
  editTimer_.stop();
  clickedLabel_ = nullptr;
  if (event->key() == Qt::Key_F2 && event->modifiers() == Qt::NoModifier) {
    StartLabelEdit();
    return;
  }
  // The view would expand everything below, which takes long in a large library.
  if (event->key() == Qt::Key_Asterisk) return;
  SelectByKeyboard([this, event] { QTreeView::keyPressEvent(event); });
}

// Type-ahead in Chinese: what the input method hands over is searched for.
void TreeView::inputMethodEvent(QInputMethodEvent* event) {
  if (!event->commitString().isEmpty()) {
    SelectByKeyboard([this, event] { keyboardSearch(event->commitString()); });
  }
  event->accept();
}

// No key takes the selection away from the current node.
QItemSelectionModel::SelectionFlags TreeView::selectionCommand(const QModelIndex& index,
                                                               const QEvent*) const {
  return index.isValid() ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
}

void TreeView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTreeView::currentChanged(current, previous);
  AllowInputMethod();
}

// The view itself allows it for editing only, and takes it back with every focus.
void TreeView::AllowInputMethod() {
  setAttribute(Qt::WA_InputMethodEnabled, currentIndex().isValid());
}

void TreeView::focusInEvent(QFocusEvent* event) {
  QTreeView::focusInEvent(event);
  AllowInputMethod();
  focusCameWithPress_ = event->reason() == Qt::MouseFocusReason;
  if (event->reason() != Qt::PopupFocusReason) Q_EMIT GotFocus();
}

void TreeView::focusOutEvent(QFocusEvent* event) {
  editTimer_.stop();
  clickedLabel_ = nullptr;
  QTreeView::focusOutEvent(event);
}

// ---- painting

void TreeView::drawBranches(QPainter* painter, const QRect& rect, const QModelIndex& index) const {
  const Node* const node = nodes_.NodeAt(index);
  if (node == nullptr) return;
  painter->fillRect(rect, palette().color(QPalette::Base));  // the style has highlighted the row
  DrawTreeLines(*painter, rect, *node,
                {palette(), indentation(), rootIsDecorated(), Expanded(*node)});
}
