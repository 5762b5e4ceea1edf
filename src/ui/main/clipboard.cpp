// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "frm_main.h"

#include "branch.h"
#include "busy_pointer.h"
#include "edit_words_funcs.h"
#include "entry_scheme.h"
#include "error.h"
#include "list_view.h"
#include "log.h"
#include "message_box.h"
#include "outline.h"
#include "shared_objects.h"
#include "tree_corner.h"
#include "tree_view.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QToolTip>

#include <memory>
#include <optional>

namespace {

// What was copied here is an outline, whatever its names hold; other text is a list.
const QString kOutlineType = QStringLiteral("application/x-hcwordlib-outline");

// How long it is told what a paste has done, in milliseconds.
constexpr int kTellTime = 15'000;

// Raises Error. Copied files are no names.
Outline OutlineIn(const QMimeData& data) {
  if (data.hasFormat(kOutlineType)) return ParseOutline(data.data(kOutlineType));
  return data.hasUrls() ? Outline() : ParseList(data.text());
}

QString Came(const EditWordsFuncs::Pasted& pasted, bool asCategories) {
  QString text = QStringLiteral("%1 个分类词，跳过 %2 个").arg(pasted.words).arg(pasted.skipped);
  if (asCategories) text = QStringLiteral("%1 个分类条目、").arg(pasted.categories) + text;
  if (pasted.skipped > 0) text += QStringLiteral("（名称已有）");
  return QStringLiteral("已加入 ") + text + u'。';
}

}  // namespace

void frmMain::CopyBranch(const Node* node) {
  if (node == nullptr) return;
  const BusyPointer busy;
  const QByteArray outline = OutlineOf(*node);
  auto data = std::make_unique<QMimeData>();
  data->setText(QString::fromUtf8(outline));
  data->setData(kOutlineType, outline);
  QGuiApplication::clipboard()->setMimeData(data.release());
}

// An item's node may be gone: the list is not told of deletions.
void frmMain::CopyListedBranch() {
  const int row = lvListView->currentIndex().row();
  if (row >= 0) CopyBranch(tvTreeView->Nodes().Find(lvListView->Items().Item(row + 1).Key()));
}

void frmMain::PasteList() {
  if (!tvTreeView->EndLabelEdit()) return;
  auto busy = std::make_optional<BusyPointer>();
  const QMimeData* const data = QGuiApplication::clipboard()->mimeData();
  Outline outline;
  try {
    if (data != nullptr) outline = OutlineIn(*data);
  } catch (const Error& error) {  // of another program
    qCWarning(lcHCWordLib, "%s", error.what());
  }
  Node& target = *tvTreeView->SelectedItem();
  if (outline.categories.empty()) {
    TellAt(target, QStringLiteral("剪贴板中没有可以粘贴的文字。"));
    return;
  }
  const EditWordsFuncs::Pasted pasted =
      TheEditFuncs().Paste(*tvTreeView, target.Key(), outline, TheDBFuncs());
  if (pasted.categories + pasted.words > 0) {
    tvTreeView->SetExpanded(target, true);
    FillList();
  }
  busy.reset();
  const QString came = Came(pasted, target.Tag() == kRootTag);
  if (!pasted.failure) {
    TellAt(target, came);
    return;
  }
  // The program goes on: what is shown is what is stored.
  qCWarning(lcHCWordLib, "%s", qUtf8Printable(pasted.failure->text));
  const LineRemark& failure = *pasted.failure;
  const QString message =
      failure.line == 0 ? QStringLiteral("没有能粘贴，词句库没有改动。\n") + failure.text
                        : QStringLiteral("第 %1 行没有能加入，粘贴到此为止。\n%2\n前面的各行：%3")
                              .arg(QString::number(failure.line), failure.text, came);
  MsgBox(this, message, MsgBoxButtons::kOkOnly, MsgBoxIcon::kInformation);
}

// Beside the label, so that what has come in below it is in sight.
void frmMain::TellAt(Node& node, const QString& text) {
  tvTreeView->EnsureVisible(node);
  const QRect label = tvTreeView->LabelRect(node);
  QWidget* const viewport = tvTreeView->viewport();
  const QPoint beside(qMin(label.right(), viewport->width()) + 8, label.top() - 16);
  const QPoint place = viewport->mapToGlobal(beside);
  QToolTip::showText(place, text, viewport, {}, kTellTime);
  // It would go with the button that the pointer leaves.
  if (!tvTreeView->Corner().underMouse()) return;
  connect(
      &tvTreeView->Corner(), &TreeCorner::LeftAfterClick, this,
      [this, place, text] { QToolTip::showText(place, text, tvTreeView, {}, kTellTime); },
      Qt::SingleShotConnection);
}
