// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "frm_main.h"

#include "band_container.h"
#include "event_guard.h"
#include "frm_about.h"
#include "tool_bar.h"
#include "tree_view.h"

#include <QAction>

void frmMain::mnuClose_Click() {
  close();
}

// The click itself has changed the check mark.
void frmMain::mnuViewToolbar_Click() {
  cbToolBar->setVisible(mnuViewToolbar->isChecked());
  SizeControls(layout_.picTreeContain.width);
}

void frmMain::mnuViewStatusBar_Click() {
  cbStatusBar->setVisible(mnuViewStatusBar->isChecked());
  SizeControls(layout_.picTreeContain.width);
}

void frmMain::mnuHelpAbout_Click() {
  frmAbout(this).exec();
}

// An error ends the command that it met, nothing more.
void frmMain::tbToolBar_ButtonClick(ToolBarButton& Button) {
  const QString& key = Button.Key();
  if (key == QStringLiteral("新条目")) {
    IgnoringErrors([this] { mnuEditNewItem_Click(); });
  } else if (key == QStringLiteral("新词")) {
    IgnoringErrors([this] { mnuEditNewWord_Click(); });
  } else if (key == QStringLiteral("删除")) {
    // A disabled button loses the keyboard's focus, which comes back with it.
    const bool hadFocus = Button.hasFocus();
    IgnoringErrors([this, &key] { tbToolBar->Button(key).setEnabled(false); });
    IgnoringErrors([this] { mnuEditDelete_Click(); });
    IgnoringErrors([this, &key] { tbToolBar->Button(key).setEnabled(true); });
    if (hadFocus) Button.setFocus();
  } else if (key == QStringLiteral("重命名")) {
    IgnoringErrors([this] { mnuEditRename_Click(); });
  }
}
