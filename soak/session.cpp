// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "session.h"

#include "connection.h"
#include "engines.h"
#include "entry_scheme.h"
#include "frm_main.h"
#include "list_view.h"
#include "shared_objects.h"
#include "tree_view.h"
#include "word_tree.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

const QString kInjected = QStringLiteral("injected fault");

void Fill(Connection& connection) {
  const QString register_ = QStringLiteral(",(1,2,3,4)").repeated(12).mid(1);
  connection.Execute(
      QStringLiteral(
          "insert into GUIDLists (GUIDField1,GUIDField2,GUIDField3,GUIDField4) values ") +
      register_);
  connection.Execute(
      QStringLiteral("insert into Dictionary (GID,SortName,Position) values (7,'车削',1),"
                     "(9,'热处理 O''Brien',2),(12,'100%% \\ 😀',4)"));
  connection.Execute(
      QStringLiteral("insert into Items (SortID,ID,FatherID,NodeName) values (7,1,0,'粗车'),"
                     "(7,2,1,'粗车外圆'),(7,3,1,'粗车端面'),(7,4,2,'粗车外圆至φ50'),"
                     "(7,5,0,'+精车'),(7,6,4,'Ａ１ ﷽ שלום'),(9,1,0,'淬火'),(9,2,0,'粗车'),"
                     "(9,3,0,'%1')")
          .arg(QString(300, u'长')));
}

}  // namespace

Session::Session(const Engine& engine, quint32 seed)
    : seed_(seed),
      colleague_(std::make_unique<Connection>()),
      otherWindow_(std::make_unique<QWidget>()) {
  colleague_->SetConnectionString(QStringLiteral("DSN=HCWordLib"));
  colleague_->Open();
  MakeEmptyLibrary(engine, *colleague_);
  Fill(*colleague_);
  qApp->installEventFilter(this);
  QApplication::setDoubleClickInterval(20);
  otherWindow_->resize(60, 60);
  otherWindow_->show();
  OpenWindow();
}

Session::~Session() {
  window_.reset();
  ReleaseSharedObjects();
}

void Session::OpenWindow() {
  window_ = std::make_unique<frmMain>();
  window_->Form_Load();
  window_->show();
  window_->activateWindow();
  tree_ = window_->findChild<TreeView*>(QStringLiteral("tvTreeView"));
  list_ = window_->findChild<ListView*>(QStringLiteral("lvListView"));
  tree_->setFocus();
  Settle();
  // What cannot be shown stays in the database and out of the tree until it is repaired.
  const Library stored = StoredLibrary(*colleague_);
  touched_ = {Orphans(stored), {}};
  CompareLibraries(ShownLibrary(*tree_, touched_), stored, touched_);
}

void Session::Settle() {
  for (int i = 0; i < 4; ++i) QApplication::processEvents();
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void Session::Tell(const QString& what) {
  std::fputs(qUtf8Printable(QStringLiteral(" · ") + what), stdout);
}

// ---- what an act must leave

EntryId Session::IdOf(const Node& node) const {
  if (node.Tag() == kCategoryTag) {
    return {TheWordTree().colDictPrptys().Item(node.Key()).DicID(), 0};
  }
  const TreePrpty& word = TheWordTree().colTreePrptys().Item(node.Key());
  return {word.DicID(), word.ID()};
}

std::optional<Session::Editing> Session::OpenEditing() {
  const auto* editor = tree_->findChild<QLineEdit*>(QStringLiteral("txtLabel"));
  const Node* selected = tree_->SelectedItem();
  if (editor == nullptr || editor->isHidden() || selected == nullptr) return std::nullopt;
  if (selected->Parent() == nullptr) throw Fault(QStringLiteral("the root is being edited"));
  QString text = editor->text();
  const bool isComposed = editor == composing_;
  // What became of it afterwards, only the editor knows.
  const bool isCertain = !isComposed || (text == composedInto_ && !editor->hasSelectedText());
  if (isComposed && isCertain) text.insert(editor->cursorPosition(), Composed());
  edited_.insert(IdOf(*selected));
  return Editing{IdOf(*selected), text, isCertain && text != selected->Text()};
}

void Session::Act(int index) {
  random_.seed(seed_ * 1'000'003U + static_cast<quint32>(index));
  dropsText_ = refused_ = unread_ = notTakenBack_ = deleted_ = faultArmed_ = false;
  touchedNow_ = {};
  edited_.clear();
  const Library before = StoredLibrary(*colleague_);
  editing_ = OpenEditing();
  std::printf("%d", index);

  using Doer = void (Session::*)();
  static const QList<std::pair<int, Doer>> kActs = {
      {4, &Session::Mouse},
      {3, &Session::Keys},
      {1, &Session::TypeText},
      {1, &Session::Paste},
      {1, &Session::Compose},
      {2, &Session::EditNode},
      {1, &Session::Find},
      {2, &Session::Menu},
      {1, &Session::PopUp},
      {1, &Session::ToolBarButtonClicks},
      {2, &Session::Command},
      {2, &Session::OtherWindow},
      {1, &Session::Colleague},
      {1, &Session::Reload},
      {2, &Session::TakeBack},
      {1, &Session::Window},
      {1, &Session::FailingStatement},
      {1, &Session::PasteList},
      {1, &Session::CopyBranch},
      {2, &Session::Corner},
      {2, &Session::NameAnother},
      {1, &Session::CloseAndReopen},
  };
  static const QList<Doer> kByWeight = [] {
    QList<Doer> acts;
    for (const auto& [weight, act] : kActs) acts += QList<Doer>(weight, act);
    return acts;
  }();
  (this->*OneOf(kByWeight))();
  Settle();
  // A click waits for a second one before it opens the editor.
  if (OneIn(4)) QTest::qWait(QApplication::doubleClickInterval() + 3);
  std::puts("");
  std::fflush(stdout);
  Audit(before);
}

void Session::Audit(const Library& before) {
  const Library stored = StoredLibrary(*colleague_);
  if (faultArmed_) touched_.entries.merge(Orphans(stored));
  if (window_->isHidden()) {
    window_.reset();
    OpenWindow();
  }
  const Library shown = ShownLibrary(*tree_, touched_);
  CompareLibraries(shown, stored, touched_);
  AuditList(*list_);
  AuditEditor(*tree_);

  for (const auto& [id, entry] : before) {
    const auto now = stored.find(id);
    if (touchedNow_.Holds(id)) continue;
    if (now == stored.end()) {
      if (!deleted_) throw Fault(QStringLiteral("deleted unasked: ") + Describe(id));
    } else if (now->second.name != entry.name && !edited_.contains(id)) {
      throw Fault(QStringLiteral("another entry was renamed: %1 from “%2” to “%3”")
                      .arg(Describe(id), entry.name, now->second.name));
    }
  }
  std::set<std::pair<qint32, QString>> names;
  for (const auto& [id, entry] : stored) {
    if (entry.name.isEmpty()) throw Fault(QStringLiteral("an empty name: ") + Describe(id));
    if (touched_.Holds(id)) continue;
    if (!names.emplace(id.second == 0 ? 0 : id.first, entry.name).second) {
      throw Fault(QStringLiteral("two of the same name: ") + Describe(id));
    }
  }
  // What was typed is still in the editor, or stored, or was refused with a message, or dropped
  // by the user.
  if (!editing_ || !editing_->changed || dropsText_ || refused_ || faultArmed_) return;
  const std::optional<Editing> now = OpenEditing();
  if (now && now->id == editing_->id) return;
  const auto found = shown.find(editing_->id);
  if (found != shown.end() && found->second.name != editing_->text) {
    throw Fault(QStringLiteral("what was typed is lost: “%1” for %2 “%3”")
                    .arg(editing_->text, Describe(editing_->id), found->second.name));
  }
}

// ---- boxes

bool Session::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Show) {
    if (auto* box = qobject_cast<QDialog*>(watched)) {
      QTimer::singleShot(0, box, [this, box] { AnswerBox(*box); });
    }
    // A menu of Qt's own, a scroll bar's or the editor's, waits in a loop of its own.
    auto* menu = qobject_cast<QMenu*>(watched);
    if (menu != nullptr && !menu->objectName().startsWith(QStringLiteral("mnu"))) {
      QTimer::singleShot(0, menu, &QWidget::close);
    }
  }
  return QObject::eventFilter(watched, event);
}

// The program ends behind a box that tells an error. That is as it must be where a statement was
// made to fail, and where the tables refused a word below what a colleague has deleted.
void Session::EndBehind(const QString& message) {
  const bool isRefused = message.startsWith(QStringLiteral("分类条目或上级词刚刚被另一个用户删除"));
  const bool isWanted =
      (faultArmed_ && message.contains(kInjected)) ||
      (isRefused && !(touched_.entries.empty() && touched_.goneCategories.empty()));
  try {
    if (!isWanted) throw Fault(QStringLiteral("the program ends: ") + message);
    touched_.entries.merge(Orphans(StoredLibrary(*colleague_)));
    CompareLibraries(ShownLibrary(*tree_, touched_), StoredLibrary(*colleague_), touched_);
    std::puts("\nended by a failing statement");
  } catch (const Fault& fault) {
    std::printf("\nFAULT %s\n", fault.what());
    std::fflush(stdout);
    std::_Exit(EXIT_FAILURE);
  }
  std::fflush(stdout);
  std::_Exit(EXIT_SUCCESS);
}

void Session::AnswerBox(QDialog& dialog) {
  auto* box = qobject_cast<QMessageBox*>(&dialog);
  const QString text = box == nullptr ? QString() : box->text();
  Tell(box == nullptr ? QStringLiteral("about box") : QStringLiteral("“%1”").arg(text));
  if (box != nullptr && box->icon() == QMessageBox::Critical) {
    EndBehind(text);
  }
  if (text.startsWith(QStringLiteral("有相同名称")) || text.contains(QStringLiteral("不能为空"))) {
    refused_ = true;
  }
  if (text.startsWith(QStringLiteral("没有能重新读入"))) {
    if (!faultArmed_) EndBehind(text);
    unread_ = true;
  }
  if (text.contains(QStringLiteral("没有能恢复")) || text.contains(QStringLiteral("没有恢复"))) {
    if (text.contains(QStringLiteral("没有能恢复")) && !faultArmed_) EndBehind(text);
    notTakenBack_ = true;
  }
  if (OneIn(6)) {
    otherWindow_->activateWindow();
    QApplication::processEvents();
    dialog.activateWindow();
  }
  if (OneIn(3)) {
    QTest::keyClick(&dialog, Qt::Key_Escape);
  } else if (box != nullptr) {
    QAbstractButton* button = OneOf(box->buttons());
    deleted_ = deleted_ || button->text().startsWith(u'是');
    button->click();
  } else {
    dialog.findChild<QPushButton*>(QStringLiteral("cmdOK"))->click();
  }
  if (OneIn(2)) QTimer::singleShot(0, window_.get(), &QWidget::activateWindow);
}
