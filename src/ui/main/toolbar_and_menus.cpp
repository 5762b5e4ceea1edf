// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "frm_main.h"

#include "band_container.h"
#include "frm_about.h"
#include "log.h"
#include "tool_bar.h"
#include "tree_view.h"

#include <QAction>
#include <QStyle>
#include <QTimer>
#include <QToolTip>

namespace {

// How long the reason of a failure stays beside its button, in milliseconds.
constexpr int kReasonTime = 15'000;

}  // namespace

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

// An error ends the command that it met, nothing more; its reason is told beside the button.
void frmMain::tbToolBar_ButtonClick(ToolBarButton& Button) {
  if (!tvTreeView->EndLabelEdit()) return;
  const auto run = [&Button](const auto& step) {
    try {
      step();
    } catch (const std::exception& error) {
      qCWarning(lcHCWordLib, "%s", error.what());
      const QString reason = QString::fromUtf8(error.what()).toHtmlEscaped();
      const QString text = QStringLiteral("<p>%1</p>").arg(reason.split(u'\n').join(u"<br>"));
      const auto tell = [&Button, text] {
        QToolTip::showText(Button.mapToGlobal(Button.rect().bottomLeft()), text, &Button, {},
                           kReasonTime);
      };
      tell();
      // The focus comes back late from the question before a delete and takes the tip away.
      QTimer::singleShot(Button.style()->styleHint(QStyle::SH_ToolTip_WakeUpDelay), &Button, tell);
    }
  };
  const QString& key = Button.Key();
  if (key == QStringLiteral("新条目")) {
    run([this] { mnuEditNewItem_Click(); });
  } else if (key == QStringLiteral("新词")) {
    run([this] { mnuEditNewWord_Click(); });
  } else if (key == QStringLiteral("删除")) {
    // A disabled button loses the keyboard's focus, which comes back with it.
    const bool hadFocus = Button.hasFocus();
    run([this, &key] { tbToolBar->Button(key).setEnabled(false); });
    run([this] { mnuEditDelete_Click(); });
    run([this, &key] { tbToolBar->Button(key).setEnabled(true); });
    if (hadFocus) Button.setFocus();
  } else if (key == QStringLiteral("重命名")) {
    run([this] { mnuEditRename_Click(); });
  }
}
