// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "entry_key.h"
#include "image_list.h"
#include "layout_arithmetic.h"
#include "window_placement.h"

#include <QMainWindow>

#include <memory>
#include <optional>
#include <vector>

class BandContainer;
class DeletedBranches;
class ListView;
class Node;
class PictureBox;
class StatusBar;
class ToolBar;
class ToolBarButton;
class TreeView;
class VerticalLabel;
class QAction;
class QMenu;

// The main window: the library as a tree, the children of the selected node as a list, and the
// commands that maintain it. Its controls carry their names as object names. Each handler is named
// after the control and the event that it answers; an error that a handler lets out is reported
// and ends the program. Positions and sizes are in twips.
class frmMain : public QMainWindow {
  Q_OBJECT

 public:
  frmMain();
  ~frmMain() override;

  // Life cycle. Form_Load prepares the hidden window and loads the library.
  void Form_Load();

  // The program has been told to end and closes the window next: nothing waits for the user.
  void PrepareToTerminate() { isTerminating_ = true; }

  // Lays out the window's panes, bars and the splitter's grip for the wanted width of the tree
  // pane. A failing step is skipped.
  void SizeControls(float TreeWidth);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  // Life cycle.
  void CheckGUIDGen();
  void InitForm();
  void LoadWordLib();
  void ReportSkippedWords();
  void Form_QueryUnload();
  void Form_Unload();

  // Definition of the window: its controls, menus and bars, and what answers their events.
  void CreatePanes();
  void CreateBars();
  void CreateMenus();
  QAction* AddItem(QMenu* menu, const char* name, const QString& caption, void (frmMain::*click)());
  void ConnectEvents();

  // Events of the tree and the list.
  void tvTreeView_NodeClick();
  void tvTreeView_MouseDown(int Button);
  void tvTreeView_MouseUp(int Button);
  void tvTreeView_BeforeLabelEdit(qint16& Cancel);
  void tvTreeView_AfterLabelEdit(qint16& Cancel, const QString& NewString);
  void tvTreeView_GotFocus();
  void lvListView_MouseMove(float X, float Y);
  void Refuse(const QString& name, const QString& why);
  bool IsTaken(const QString& name, EntryKey key) const;
  void FillList();
  void ListChildrenOf(const Node& parent);
  void ShowPopMnu(const QPoint& position);

  // Reads the library again, unless the name in an open editor is refused. What the window shows
  // stays as far as it is still stored; all of it stays when the library cannot be read.
  void ReloadWordLib();
  void RelistChildren();

  // Editing commands. Sel is 1 when the selected node is a category, 2 when it is a word.
  void mnuEditNewItem_Click();
  void mnuEditNewWord_Click();
  void mnuEditDelete_Click();
  void mnuEditRename_Click();
  void mnuPopNewItem_Click() { mnuEditNewItem_Click(); }
  void mnuPopNewWord_Click() { mnuEditNewWord_Click(); }
  void mnuPopDelete_Click() { mnuEditDelete_Click(); }
  void mnuPopRename_Click() { mnuEditRename_Click(); }
  void NewDict();
  void NewBeside();
  void TellOfNewBeside();
  void NewWord(qint32 Sel);
  void DeleteNode(qint32 Sel);
  void DeleteCategory(EntryKey NodeKey);
  void DeleteWords(EntryKey NodeKey);
  void ClearListOfChildren(EntryKey NodeKey);
  // Puts back what the last delete of this run has removed, or tells why it cannot.
  void TakeBackDelete();
  [[noreturn]] void EndWithoutIdentifier(const QString& reason);
  bool ListShowsBrothers(EntryKey NodeKey) const;
  void ClearList();
  EntryTag SelectedTag() const;

  // The clipboard. A list is pasted below the selected node; a failure is told and is not the end.
  void CopyBranch(const Node* node);
  void CopyListedBranch();
  void PasteList();
  void TellAt(Node& node, const QString& text);

  // Bars and menus.
  void mnuClose_Click();
  void mnuViewToolbar_Click();
  void mnuViewStatusBar_Click();
  void mnuHelpAbout_Click();
  void picForCBToolBar_Click() { mnuHelpAbout_Click(); }
  void tbToolBar_ButtonClick(ToolBarButton& Button);

  // Layout, splitter and the tree pane's caption bar.
  void Form_Resize();
  void cbToolBar_HeightChanged() { SizeControls(layout_.picTreeContain.width); }
  void cbStatusBar_HeightChanged() { SizeControls(layout_.picTreeContain.width); }
  void ApplyLayout();
  void DrawGrip();
  void DrawSortBar(PictureBox& ThePic);
  void DrawSplitterBar(PictureBox& ThePic);
  void picShowSplitter_MouseDown();
  void picShowSplitter_MouseMove(float X);
  void picShowSplitter_MouseUp();
  void picTreeContain_MouseMove(int Button, float X, float Y);
  void picTreeContain_MouseDown(int Button, float X, float Y);
  void picTreeContain_MouseUp(int Button, float X, float Y);

  ImageList imlTreeIcons{16};
  ImageList imlToolbarIcons{16};

  QWidget* client = nullptr;  // the area below the menu bar
  PictureBox* picTreeContain = nullptr;
  TreeView* tvTreeView = nullptr;
  PictureBox* picListContain = nullptr;
  ListView* lvListView = nullptr;
  PictureBox* Image1 = nullptr;
  VerticalLabel* Label1 = nullptr;
  PictureBox* picShowSplitter = nullptr;
  PictureBox* picSplitter = nullptr;
  BandContainer* cbToolBar = nullptr;
  ToolBar* tbToolBar = nullptr;
  PictureBox* picForCBToolBar = nullptr;
  BandContainer* cbStatusBar = nullptr;
  StatusBar* sbStatusBar = nullptr;

  QAction* mnuViewToolbar = nullptr;
  QAction* mnuViewStatusBar = nullptr;
  QMenu* mnuPopMnu = nullptr;
  QAction* mnuPopNewItem = nullptr;
  QAction* mnuPopNewWord = nullptr;
  QAction* mnuPopSep1 = nullptr;
  QAction* mnuPopRename = nullptr;
  QAction* mnuPopSep2 = nullptr;
  QAction* mnuPopDelete = nullptr;

  WindowPlacement placement_;
  Layout layout_;
  float splitterLeft_ = 0;  // of the dragged bar
  bool isTerminating_ = false;
  // The tree pane's width when the window was too small and asked to grow: what it has again in the
  // size that the window gets then.
  std::optional<float> treeWidthToKeep_;

  // The node whose children the list shows and those above it, from the node up; empty when the
  // list shows no node's.
  std::vector<EntryKey> listed_;

  std::unique_ptr<DeletedBranches> deleted_;

  // The right button was the last one pressed on the tree: node clicks do not refill the list.
  bool RightButtonDown = false;
  // An empty name was refused: the editor opens again when the tree gets the focus.
  bool EditAgain = false;
  bool SplitterMoving = false;
  bool hasToldOfNewBeside_ = false;
};
