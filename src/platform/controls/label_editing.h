// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "label_editor.h"

#include <QPersistentModelIndex>
#include <QPointer>
#include <QTimer>

class Node;
class TreeItemDelegate;
class TreeView;

// The editing of a tree's labels. Its life:
//   closed  no editor;
//   armed   the label of the selected node was clicked; the editor opens when it is clear that no
//           double click follows;
//   open    the editor stands on the selected node, and the selection stays there;
//   ending  the editor is gone and its text is being judged: by AfterLabelEdit, which may open the
//           editor again.
// Enter and Escape end it, and so does whatever takes the user's attention elsewhere in the window:
// a press outside the editor, the focus going to another control, a command. Then an untouched
// text is dropped, and a press that left a refused text has done its work. A menu, a pop-up or
// another window leave the editor open, whichever way the focus comes back.
class LabelEditing : public QObject {
  Q_OBJECT

 public:
  explicit LabelEditing(TreeView& tree);

  // A press on the label of the selected node, the release that makes a click of it, and
  // everything that is no click on a label.
  void Arm();
  void Clicked();
  void Disarm();

  // Opens the editor on the selected node, unless there is none or BeforeLabelEdit refuses.
  void Open();
  bool IsOpen() const { return state_ == State::kOpen; }
  // Ends an open editing. False when its text was refused.
  bool End(LabelEditor::Ending ending);
  // Closes an open editor; the label keeps its text and nobody is asked.
  void Cancel();
  // Puts the editor where the label is.
  void Place();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  enum class State { kClosed, kArmed, kOpen, kEnding };

  TreeItemDelegate& Delegate() const;
  void CloseEditor();
  // Whether a press on this part of the window, or the focus going there, ends the editing.
  bool IsElsewhere(const QWidget* widget) const;
  void FocusChanged(QWidget* now);

  TreeView& tree_;
  State state_ = State::kClosed;
  QTimer secondClick_;
  QPointer<LabelEditor> editor_;
  QPersistentModelIndex edited_;
  // The button whose press left a refused text, until it comes up.
  Qt::MouseButton swallowed_ = Qt::NoButton;
};
