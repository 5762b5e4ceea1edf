// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "tree_nodes.h"
#include "type_ahead.h"

#include <QItemSelectionModel>
#include <QTreeView>

#include <memory>

class ImageList;
class LabelEditing;
class TreeCorner;
class TreeFind;
class TreeItemDelegate;

enum class LineStyle { kTreeLines = 0, kRootLines = 1 };
enum class LabelEdit { kAutomatic = 0, kManual = 1 };

// A tree of keyed nodes, drawn with lines, plus/minus boxes, pictures and labels, with one selected
// node, a drop highlight and in-place label editing.
// What the user does raises the signals; what the program does raises none of them but
// BeforeLabelEdit and GotFocus. The signals' receivers are called at once.
class TreeView : public QTreeView {
  Q_OBJECT

 public:
  explicit TreeView(QWidget* parent = nullptr);
  ~TreeView() override;

  TreeNodes& Nodes() { return nodes_; }
  const TreeNodes& Nodes() const { return nodes_; }
  // Where the mouse finds what else has keys only.
  TreeCorner& Corner() { return *corner_; }

  // When on, the selected node is not highlighted while the tree has not the focus.
  void SetHideSelection(bool hide);
  // When on, the node under the pointer is highlighted faintly.
  void SetHotTracking(bool on);
  void SetLineStyle(LineStyle style);
  // Automatic: a click on the label of the selected node opens the editor.
  void SetLabelEdit(LabelEdit labelEdit) { labelEdit_ = labelEdit; }
  // In twips; no less than what the lines and boxes need.
  void SetIndentation(float twips);
  void SetImageList(const ImageList& images);

  // Null when there is none.
  Node* SelectedItem() const;
  void SetSelectedItem(Node& node);
  // For the user: raises NodeClick when the selection moves.
  void SelectAsKeyboard(Node& node);
  // The node highlighted under the right button, null when there is none.
  Node* DropHighlight() const { return dropHighlight_; }

  bool Expanded(const Node& node) const;
  void SetExpanded(Node& node, bool expanded);
  // Expands the node's ancestors and scrolls it into view.
  void EnsureVisible(Node& node);
  // Removes the node with its subtree. When the selected node goes with it, the next sibling is
  // selected, else the previous one, else the parent.
  void RemoveNode(EntryKey key);

  // Opens the label editor on the selected node, unless there is none or BeforeLabelEdit refuses.
  void StartLabelEdit();
  // Ends an open editing as leaving the editor does: an untouched text is dropped, a changed one is
  // given to AfterLabelEdit. False when that refused it.
  bool EndLabelEdit();
  // Ends label editing without AfterLabelEdit; the label keeps its old text. Selecting another node
  // and removing nodes do so, too.
  void CancelLabelEdit();
  bool IsEditing() const;
  void SetText(Node& node, const QString& text);

  // Where picture and label of the node are drawn, in the viewport's coordinates.
  QRect ItemRect(const Node& node) const;
  QRect LabelRect(const Node& node) const;

  void scrollTo(const QModelIndex& index,
                ScrollHint hint = QAbstractItemView::EnsureVisible) override;
  void keyboardSearch(const QString& typed) override;

 Q_SIGNALS:
  // The user selected `node` by mouse or keyboard, by finding it, or clicked it with the right
  // button.
  void NodeClick(Node* node);
  // Positions in twips; buttons as in mouse.h.
  void MouseDown(int button, float x, float y);
  void MouseUp(int button, float x, float y);
  // The editor is about to open on the selected node; a non-zero `cancel` refuses it.
  void BeforeLabelEdit(qint16& cancel);
  // The user has ended the editing of the selected node's label, the editor is closed; a non-zero
  // `cancel` keeps the old text.
  void AfterLabelEdit(qint16& cancel, const QString& newString);
  // After that, where Ctrl+Enter has ended it and the text was taken: another name is to follow.
  void NextLabelWanted();
  void GotFocus();
  // The context-menu key was pressed; `position` on the screen belongs to the selected node.
  void ContextMenuKey(const QPoint& position);

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void updateGeometries() override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void rowsAboutToBeRemoved(const QModelIndex& parent, int start, int end) override;
  QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                       const QEvent* event) const override;
  void drawBranches(QPainter* painter, const QRect& rect, const QModelIndex& index) const override;

 private:
  Node* NodeUnder(const QPoint& position) const;
  // Before nodes go.
  void LetGo();
  void AskForContextMenu();
  void FitColumn(bool rowsChanged);
  void AllowInputMethod();
  // The selection does not stay on a node that a collapse by the user has hidden.
  void SelectCollapsed(const QModelIndex& collapsed);
  // Runs `action`; when it moved the selection, raises NodeClick.
  template <class Action>
  void SelectByKeyboard(Action action);

  TreeNodes nodes_;
  TreeItemDelegate* delegate_;
  std::unique_ptr<LabelEditing> labelEditing_;
  LabelEdit labelEdit_ = LabelEdit::kAutomatic;
  Node* dropHighlight_ = nullptr;
  int widest_ = 0;
  QPoint pressedAt_;
  // The press being delivered has brought the focus.
  bool focusCameWithPress_ = false;
  TypeAhead typeAhead_;
  TreeCorner* corner_;
  std::unique_ptr<TreeFind> find_;
};
