// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "tree_view.h"

#include "error.h"
#include "label_editing.h"
#include "mouse.h"
#include "name_pattern.h"
#include "tree_corner.h"
#include "tree_find.h"
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
// How much of a label is in sight when its node is scrolled to, in pixels.
constexpr int kLeastLabelInSight = 60;

}  // namespace

TreeView::TreeView(QWidget* parent)
    : QTreeView(parent),
      delegate_(new TreeItemDelegate(this)),
      labelEditing_(std::make_unique<LabelEditing>(*this)),
      corner_(new TreeCorner(*this)) {
  setModel(&nodes_);
  find_ = std::make_unique<TreeFind>(*this);
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

  connect(&nodes_, &QAbstractItemModel::modelAboutToBeReset, this, &TreeView::LetGo);
  connect(this, &QTreeView::expanded, this, [this] { FitColumn(true); });
  connect(this, &QTreeView::collapsed, this, [this](const QModelIndex& index) {
    FitColumn(true);
    SelectCollapsed(index);
  });
  connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this] {
    FitColumn(false);
    labelEditing_->Place();
  });
  connect(horizontalScrollBar(), &QScrollBar::valueChanged, labelEditing_.get(),
          &LabelEditing::Place);
}

TreeView::~TreeView() {
  find_.reset();
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

void TreeView::SetImageList(const ImageList& images) {
  nodes_.SetImageList(images);
}

Node* TreeView::SelectedItem() const {
  return nodes_.NodeAt(currentIndex());
}

void TreeView::SetSelectedItem(Node& node) {
  if (&node != SelectedItem()) CancelLabelEdit();
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

void TreeView::LetGo() {
  labelEditing_->Disarm();
  dropHighlight_ = nullptr;
  CancelLabelEdit();
}

void TreeView::rowsAboutToBeRemoved(const QModelIndex& parent, int start, int end) {
  LetGo();
  QTreeView::rowsAboutToBeRemoved(parent, start, end);
}

// ---- label editing

void TreeView::StartLabelEdit() {
  labelEditing_->Open();
}

bool TreeView::EndLabelEdit() {
  return labelEditing_->End(LabelEditor::Ending::kLeft);
}

void TreeView::CancelLabelEdit() {
  labelEditing_->Cancel();
}

bool TreeView::IsEditing() const {
  return labelEditing_->IsOpen();
}

void TreeView::SetText(Node& node, const QString& text) {
  nodes_.SetText(node, text);
  FitColumn(true);
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
// node needs: to its plus/minus box, and to as much of its label as a small editor covers.
void TreeView::scrollTo(const QModelIndex& index, ScrollHint hint) {
  QScrollBar* const bar = horizontalScrollBar();
  const int before = bar->value();
  QTreeView::scrollTo(index, hint);
  const Node* const node = nodes_.NodeAt(index);
  if (node == nullptr) return;
  FitColumn(false);
  QTreeView::updateGeometries();
  bar->setValue(before);
  const int right = LabelRect(*node).left() + kLeastLabelInSight;
  if (right > viewport()->width()) bar->setValue(bar->value() + right - viewport()->width());
  const int left = ItemRect(*node).left() - indentation();
  if (left < 0) bar->setValue(bar->value() + left);
}

void TreeView::updateGeometries() {
  QTreeView::updateGeometries();
  FitColumn(false);
  labelEditing_->Place();
}

// ---- mouse

void TreeView::mousePressEvent(QMouseEvent* event) {
  const bool hadFocus = !focusCameWithPress_;
  labelEditing_->Disarm();
  const QPoint position = event->position().toPoint();
  Q_EMIT MouseDown(MouseButton(event->button()), PixelsToTwips(position.x()),
                   PixelsToTwips(position.y()));
  Node* node = NodeUnder(position);
  pressedAt_ = position;
  if (event->button() == Qt::RightButton) {
    dropHighlight_ = node;
    delegate_->SetDropHighlight(nodes_.IndexOf(node));
    viewport()->update();
  } else if (event->button() == Qt::LeftButton && node != nullptr) {
    if (node == SelectedItem() && hadFocus && labelEdit_ == LabelEdit::kAutomatic &&
        LabelRect(*node).contains(position)) {
      labelEditing_->Arm();
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
    labelEditing_->Disarm();
  }
  if (event->buttons() == Qt::NoButton) QTreeView::mouseMoveEvent(event);
}

void TreeView::mouseReleaseEvent(QMouseEvent* event) {
  const QPoint position = event->position().toPoint();
  if (event->button() == Qt::LeftButton) labelEditing_->Clicked();
  Q_EMIT MouseUp(MouseButton(event->button()), PixelsToTwips(position.x()),
                 PixelsToTwips(position.y()));
  if (event->button() != Qt::RightButton) return;
  Node* clicked = std::exchange(dropHighlight_, nullptr);
  delegate_->SetDropHighlight(QModelIndex());
  viewport()->update();
  if (clicked != nullptr) Q_EMIT NodeClick(clicked);
}

void TreeView::mouseDoubleClickEvent(QMouseEvent* event) {
  labelEditing_->Disarm();
  const QPoint position = event->position().toPoint();
  Node* node = NodeUnder(position);
  if (event->button() != Qt::LeftButton || node == nullptr || node != SelectedItem()) {
    mousePressEvent(event);  // quick clicks on boxes, on other nodes or with other buttons
    return;
  }
  Q_EMIT MouseDown(MouseButton(event->button()), PixelsToTwips(position.x()),
                   PixelsToTwips(position.y()));
  SetExpanded(*node, !Expanded(*node));
}

void TreeView::contextMenuEvent(QContextMenuEvent* event) {
  // The mouse's way to the pop-up menu is the right button's release.
  if (event->reason() == QContextMenuEvent::Keyboard) AskForContextMenu();
}

void TreeView::AskForContextMenu() {
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

void TreeView::SelectAsKeyboard(Node& node) {
  SelectByKeyboard([this, &node] {
    SetSelectedItem(node);
    EnsureVisible(node);
  });
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
  labelEditing_->Disarm();
  if (event->key() == Qt::Key_F2 && event->modifiers() == Qt::NoModifier) {
    StartLabelEdit();
    return;
  }
  if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier) {
    AskForContextMenu();
    return;
  }
  Node* const selected = SelectedItem();
  if (selected != nullptr && (event->key() == Qt::Key_Plus || event->key() == Qt::Key_Minus)) {
    SetExpanded(*selected, event->key() == Qt::Key_Plus);
    return;
  }
  // The view would expand everything below, which takes long in a large library.
  if (event->key() == Qt::Key_Asterisk) return;
  SelectByKeyboard([this, event] { QTreeView::keyPressEvent(event); });
}

// Type-ahead in Chinese: what the input method hands over is searched for. It hands over signs,
// too.
void TreeView::inputMethodEvent(QInputMethodEvent* event) {
  event->accept();
  const QString typed = Folded(event->commitString());
  Node* const selected = SelectedItem();
  if (selected != nullptr && (typed == QStringLiteral("+") || typed == QStringLiteral("-"))) {
    SetExpanded(*selected, typed == QStringLiteral("+"));
  } else if (!typed.isEmpty() && typed != QStringLiteral("*")) {
    SelectByKeyboard([this, &typed] { keyboardSearch(typed); });
  }
}

void TreeView::keyboardSearch(const QString& typed) {
  if (typed.isEmpty() || typed.front().category() == QChar::Other_Control) return;
  if (Node* const node = typeAhead_.Search(*this, typed)) {
    SetSelectedItem(*node);
    EnsureVisible(*node);
  }
}

// No key takes the selection away from the current node.
QItemSelectionModel::SelectionFlags TreeView::selectionCommand(const QModelIndex& index,
                                                               const QEvent*) const {
  return index.isValid() ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
}

void TreeView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTreeView::currentChanged(current, previous);
  CancelLabelEdit();  // the editor is the selected node's
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
  // The press itself follows at once, unless it is a scroll bar's.
  if (focusCameWithPress_) QTimer::singleShot(0, this, [this] { focusCameWithPress_ = false; });
  if (event->reason() != Qt::PopupFocusReason) Q_EMIT GotFocus();
}

void TreeView::focusOutEvent(QFocusEvent* event) {
  labelEditing_->Disarm();
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
