// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

// What the user does with the clipboard, and naming one entry after another.

#include "failing_step.h"
#include "frm_main.h"
#include "list_view.h"
#include "session.h"
#include "shared_objects.h"
#include "tree_corner.h"
#include "tree_view.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QTest>

namespace {

// Branches that are pasted into themselves would make sessions slow.
constexpr size_t kMostEntries = 300;

}  // namespace

// The keyboard comes to the control, if nothing keeps it away.
bool Session::FocusOn(QWidget& control) {
  if (QApplication::activePopupWidget() != nullptr) return false;
  if (!window_->isActiveWindow()) window_->activateWindow();
  control.setFocus();
  Settle();
  editing_ = OpenEditing();
  return control.hasFocus() && !editing_;
}

// A paste tells what stops it, and leaves nothing half.
void Session::PasteList() {
  static const QStringList kBreaks = {QStringLiteral("\n"), QStringLiteral("\r\n"),
                                      QStringLiteral("\t列\n"), QStringLiteral("\n\n")};
  if (!FocusOn(*tree_)) return;
  const QMimeData* const copied = QApplication::clipboard()->mimeData();
  const bool isCopy = OneIn(3) && copied != nullptr && copied->formats().size() > 1;
  if (!isCopy) {
    QString text;
    for (int lines = 1 + Below(6); lines > 0; --lines) {
      text += QString(Below(4), u'\t') + NastyText() + OneOf(kBreaks);
    }
    QApplication::clipboard()->setText(text);
  }
  if (StoredLibrary(*colleague_).size() > kMostEntries) return;
  const int failing = OneIn(3) ? 1 + Below(15) : 0;
  Tell(QStringLiteral("pastes %1%2")
           .arg(isCopy ? QStringLiteral("a branch") : QStringLiteral("a list"),
                failing > 0 ? QStringLiteral(", statement %1 fails").arg(failing) : QString()));
  if (failing > 0) FailStep(TheConn(), failing);
  Key(Qt::Key_V, Qt::ControlModifier);
  Settle();
  TheConn().SetStepHook({});
}

void Session::CopyBranch() {
  QWidget& control = OneIn(2) ? static_cast<QWidget&>(*list_) : *tree_;
  if (!FocusOn(control)) return;
  Tell(QStringLiteral("copies"));
  Key(Qt::Key_C, OneIn(3) ? Qt::ControlModifier : Qt::ControlModifier | Qt::ShiftModifier);
}

// By mouse what else has keys; an open editor keeps the corner away.
void Session::Corner() {
  if (QApplication::activePopupWidget() != nullptr) return;
  if (StoredLibrary(*colleague_).size() > kMostEntries) return;
  if (!window_->isActiveWindow()) window_->activateWindow();
  const auto inWindow = [this](const QWidget& widget) {
    return widget.mapTo(window_.get(), widget.rect().center());
  };
  const auto* corner = tree_->findChild<TreeCorner*>();
  for (const QPoint& point : {QPoint(9, 9), inWindow(*tree_), inWindow(*corner)}) {
    QTest::mouseMove(window_->windowHandle(), point);
    Settle();
  }
  if (!corner->isVisible()) return;
  const auto* button = OneOf(corner->findChildren<QToolButton*>());
  Tell(QStringLiteral("corner: ") + button->accessibleName());
  QTest::mouseClick(window_->windowHandle(), Qt::LeftButton, {}, inWindow(*button));
  Settle();
  // What has no parent may have left the tree, or have come back unseen.
  touched_.entries.merge(Orphans(StoredLibrary(*colleague_)));
}

void Session::NameAnother() {
  if (!OpenEditing() || QApplication::activePopupWidget() != nullptr) return;
  if (!window_->isActiveWindow()) window_->activateWindow();
  Settle();
  TypeText();
  Tell(QStringLiteral("Ctrl+Enter"));
  Key(Qt::Key_Return, Qt::ControlModifier);
}
