// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "frm_main.h"

#include "band_container.h"
#include "edit_words_funcs.h"
#include "entry_scheme.h"
#include "event_guard.h"
#include "for_tree.h"
#include "library.h"
#include "list_view.h"
#include "log.h"
#include "message_box.h"
#include "settings.h"
#include "shared_objects.h"
#include "tree_view.h"

#include <QCloseEvent>

namespace {

const QString kAppName = QStringLiteral("HCWordLib");
const QString kSection = QStringLiteral("Settings");

float GeometrySetting(const char* key, float fallback) {
  return TextToSingle(
      GetSetting(kAppName, kSection, QString::fromLatin1(key), SingleToText(fallback)), fallback);
}

void SaveGeometrySetting(const char* key, float value) {
  SaveSetting(kAppName, kSection, QString::fromLatin1(key), SingleToText(value));
}

}  // namespace

void frmMain::Form_Load() {
  CheckGUIDGen();
  InitForm();
  LoadWordLib();
}

void frmMain::CheckGUIDGen() {
  if (IsGeneratorThere()) return;
  MsgBox(nullptr, QStringLiteral("发生致命错误，结束程序。"), MsgBoxButtons::kOkOnly,
         MsgBoxIcon::kInformation);
  EndProgram();
}

void frmMain::InitForm() {
  setWindowTitle(kAppTitle);
  InitTreeView(*tvTreeView, imlTreeIcons);
  InitListView(*lvListView, imlTreeIcons);
  cbToolBar->SetBandWidth(2, 700);
  const float left = GeometrySetting("MainLeft", 1000);
  const float top = GeometrySetting("MainTop", 1000);
  const float width = GeometrySetting("MainWidth", 6500);
  const float height = GeometrySetting("MainHeight", 6500);
  placement_.Set({left, top, EnoughFor(width), EnoughFor(height)});
  layout_.picTreeContain.width = 5000;
}

void frmMain::LoadWordLib() {
  Node& root =
      tvTreeView->Nodes().Add(EntryKey(), Relationship::kChild, kRootKey, kAppTitle, kRootImage);
  root.SetTag(kRootTag);
  tvTreeView->SetSelectedItem(root);

  OpenLibrary(TheConn());
  TheEditFuncs().LoadCategories(*tvTreeView);
  ReportSkippedWords();
}

// For whoever looks after the database: which words could not be shown.
void frmMain::ReportSkippedWords() {
  const QList<EditWordsFuncs::SkippedWord>& words = TheEditFuncs().SkippedWords();
  if (words.isEmpty()) return;
  qCWarning(lcHCWordLib, "%lld 个词的上级不存在，未载入：", static_cast<long long>(words.size()));
  for (const EditWordsFuncs::SkippedWord& word : words) {
    qCWarning(lcHCWordLib, "  SortID=%d ID=%d FatherID=%d", word.DictID, word.ID, word.FatherID);
  }
}

// A name that is refused keeps the window open, with the editor on it.
void frmMain::closeEvent(QCloseEvent* event) {
  bool closes = false;
  Guarded([this, &closes] {
    closes = tvTreeView->EndLabelEdit() || isTerminating_;
    if (!closes || !isVisible()) return;  // or asked to close twice
    Form_QueryUnload();
    Form_Unload();
  })();
  event->setAccepted(closes);
}

void frmMain::Form_QueryUnload() {
  CloseLibrary(TheConn());
  ReleaseSharedObjects();
}

void frmMain::Form_Unload() {
  if (isMinimized()) return;
  const TwipsRect geometry = placement_.Get();
  SaveGeometrySetting("MainLeft", geometry.left);
  SaveGeometrySetting("MainTop", geometry.top);
  SaveGeometrySetting("MainWidth", geometry.width);
  SaveGeometrySetting("MainHeight", geometry.height);
}
