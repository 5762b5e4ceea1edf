// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "frm_main.h"

#include "band_container.h"
#include "list_view.h"
#include "picture_box.h"
#include "tree_view.h"
#include "vertical_label.h"

#include <QEvent>

void frmMain::SizeControls(float TreeWidth) {
  LayoutInput input;
  input.width = placement_.Get().width;
  input.scaleHeight = PixelsToTwips(client->height());
  input.toolBarVisible = !cbToolBar->isHidden();
  input.toolBarHeight = cbToolBar->Height();
  input.statusBarVisible = !cbStatusBar->isHidden();
  input.statusBarHeight = cbStatusBar->Height();
  Arrange(layout_, input, TreeWidth);
  ApplyLayout();
  DrawSortBar(*picTreeContain);
  DrawGrip();
  picShowSplitter->raise();
}

void frmMain::ApplyLayout() {
  picTreeContain->setGeometry(layout_.picTreeContain.ToPixels());
  tvTreeView->setGeometry(layout_.tvTreeView.ToPixels());
  picListContain->setGeometry(layout_.picListContain.ToPixels());
  lvListView->setGeometry(layout_.lvListView.ToPixels());
  for (ListView::ColumnHeader& column : lvListView->ColumnHeaders()) {
    column.width = layout_.columnWidth;
  }
  cbToolBar->setGeometry(layout_.cbToolBar.ToPixels());
  cbStatusBar->setGeometry(layout_.cbStatusBar.ToPixels());
  Image1->setGeometry(layout_.Image1.ToPixels());
  Label1->setGeometry(layout_.Label1.ToPixels());
  picShowSplitter->setGeometry(layout_.picShowSplitter.ToPixels());
}

void frmMain::Form_Resize() {
  if (isMinimized()) return;
  const TwipsRect place = placement_.Get();
  const float width = EnoughFor(place.width);
  const float height = EnoughFor(place.height);
  const float treeWidth = treeWidthToKeep_.value_or(layout_.picTreeContain.width);
  treeWidthToKeep_.reset();
  if (width != place.width || height != place.height) {
    treeWidthToKeep_ = treeWidth;
    placement_.AskForSize(width, height);
  }
  SizeControls(treeWidth);
}

bool frmMain::eventFilter(QObject* watched, QEvent* event) {
  const bool resized = event->type() == QEvent::Resize || event->type() == QEvent::Show;
  if (watched == client && resized) Form_Resize();
  return QMainWindow::eventFilter(watched, event);
}

void frmMain::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::WindowStateChange && isVisible()) Form_Resize();
}

void frmMain::picShowSplitter_MouseDown() {
  picShowSplitter->hide();
  splitterLeft_ = layout_.picShowSplitter.left;
  picSplitter->setGeometry(
      TwipsRect{splitterLeft_, layout_.picShowSplitter.top, 72, layout_.picShowSplitter.height}
          .ToPixels());
  DrawSplitterBar(*picSplitter);
  picSplitter->show();
  picSplitter->raise();
  SplitterMoving = true;
}

void frmMain::picShowSplitter_MouseMove(float X) {
  if (!SplitterMoving) return;
  const float width = placement_.Get().width;
  splitterLeft_ = layout_.picShowSplitter.left + X;
  if (splitterLeft_ < 500) {
    splitterLeft_ = 500;
  } else if (splitterLeft_ > width - 500) {
    splitterLeft_ = width - 500;
  }
  picSplitter->move(TwipsToPixels(splitterLeft_), picSplitter->y());
}

void frmMain::picShowSplitter_MouseUp() {
  treeWidthToKeep_.reset();
  SizeControls(splitterLeft_);
  picSplitter->hide();
  picShowSplitter->show();
  SplitterMoving = false;
}
