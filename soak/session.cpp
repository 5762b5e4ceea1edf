// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "session.h"

#include "connection.h"
#include "engines.h"
#include "entry_scheme.h"
#include "fault_injection.h"
#include "frm_main.h"
#include "list_view.h"
#include "picture_box.h"
#include "shared_objects.h"
#include "statements.h"
#include "tool_bar.h"
#include "tree_view.h"
#include "word_tree.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

const QString kPreedit = QStringLiteral("组");
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

template <class Row>
QList<Row> Visible(const TreeView& tree, Row (*of)(const QModelIndex&)) {
  QList<Row> rows;
  const QRect viewport = tree.viewport()->rect();
  for (QModelIndex index = tree.indexAt(QPoint(1, 1));
       index.isValid() && tree.visualRect(index).top() < viewport.bottom();
       index = tree.indexBelow(index)) {
    rows += of(index);
  }
  return rows;
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
  FailDatabaseStep(0);
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
  if (isComposed && isCertain) text.insert(editor->cursorPosition(), kPreedit);
  edited_.insert(IdOf(*selected));
  return Editing{IdOf(*selected), text, isCertain && text != selected->Text()};
}

void Session::Act(int index) {
  random_.seed(seed_ * 1'000'003U + static_cast<quint32>(index));
  dropsText_ = refused_ = deleted_ = faultArmed_ = false;
  touchedNow_ = {};
  edited_.clear();
  const Library before = StoredLibrary(*colleague_);
  editing_ = OpenEditing();
  std::printf("%d", index);

  using Doer = void (Session::*)();
  static const QList<Doer> kActs = {&Session::Mouse,
                                    &Session::Mouse,
                                    &Session::Mouse,
                                    &Session::Mouse,
                                    &Session::Keys,
                                    &Session::Keys,
                                    &Session::Keys,
                                    &Session::TypeText,
                                    &Session::Paste,
                                    &Session::Compose,
                                    &Session::EditNode,
                                    &Session::EditNode,
                                    &Session::Menu,
                                    &Session::Menu,
                                    &Session::PopUp,
                                    &Session::ToolBarButtonClicks,
                                    &Session::Command,
                                    &Session::Command,
                                    &Session::OtherWindow,
                                    &Session::OtherWindow,
                                    &Session::Colleague,
                                    &Session::Window,
                                    &Session::FailingStatement,
                                    &Session::CloseAndReopen};
  (this->*OneOf(kActs))();
  Settle();
  // A click waits for a second one before it opens the editor.
  if (OneIn(4)) QTest::qWait(QApplication::doubleClickInterval() + 3);
  FailDatabaseStep(0);
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
    if (menu != nullptr && menu->objectName().isEmpty()) {
      QTimer::singleShot(0, menu, &QWidget::close);
    }
  }
  return QObject::eventFilter(watched, event);
}

void Session::AnswerBox(QDialog& dialog) {
  auto* box = qobject_cast<QMessageBox*>(&dialog);
  const QString text = box == nullptr ? QString() : box->text();
  Tell(box == nullptr ? QStringLiteral("about box") : QStringLiteral("“%1”").arg(text));
  if (box != nullptr && box->icon() == QMessageBox::Critical) {
    // The program ends behind this box.
    const bool wanted = faultArmed_ && text.contains(kInjected);
    std::printf(wanted ? "\nended by the failing statement\n" : "\nFAULT the program ends: %s\n",
                qUtf8Printable(text));
    std::fflush(stdout);
    std::_Exit(wanted ? EXIT_SUCCESS : EXIT_FAILURE);
  }
  if (text.startsWith(QStringLiteral("有相同名称")) || text.contains(QStringLiteral("不能为空"))) {
    refused_ = true;
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

// ---- points of the window

QPoint Session::Middle(const QString& name, QPoint offset) {
  const auto* widget = window_->findChild<QWidget*>(name);
  return widget->mapTo(window_.get(), widget->rect().center() + offset);
}

std::pair<QPoint, QString> Session::Place() {
  const auto inTree = [this](QPoint point) {
    return tree_->viewport()->mapTo(window_.get(), point);
  };
  const QList<QModelIndex> rows =
      Visible<QModelIndex>(*tree_, [](const QModelIndex& index) { return index; });
  const Node* node = rows.isEmpty() ? nullptr : tree_->Nodes().NodeAt(OneOf(rows));
  const int kind = Below(20);
  if (node != nullptr && kind < 10) {
    const QString name = node->Text().left(12);
    const QRect label = tree_->LabelRect(*node);
    const int row = label.center().y();
    const int right = tree_->viewport()->width() - 4;
    if (kind < 6) {
      return {inTree({std::min(label.left() + 6, right), row}), QStringLiteral("label ") + name};
    }
    if (kind == 6) return {inTree({label.left() - 10, row}), QStringLiteral("picture ") + name};
    if (kind < 9) return {inTree({label.left() - 29, row}), QStringLiteral("box ") + name};
    return {inTree({right, row}), QStringLiteral("right of ") + name};
  }
  static const QStringList kPanes = {
      QStringLiteral("picTreeContain"), QStringLiteral("picListContain"),
      QStringLiteral("Image1"),         QStringLiteral("Label1"),
      QStringLiteral("cbStatusBar"),    QStringLiteral("sbStatusBar"),
      QStringLiteral("tbToolBar"),      QStringLiteral("picForCBToolBar")};
  switch (kind) {
    case 10:
      return {inTree({30, tree_->viewport()->height() - 4}), QStringLiteral("tree's lower edge")};
    case 11:
      if (const auto* editor = tree_->findChild<QLineEdit*>(QStringLiteral("txtLabel"))) {
        return {editor->mapTo(window_.get(), editor->rect().center()), QStringLiteral("editor")};
      }
      [[fallthrough]];
    case 12:
      return {list_->mapTo(window_.get(), QPoint(30, 10 + Below(60))), QStringLiteral("list")};
    case 13:
      return {Middle(QStringLiteral("lvListView")), QStringLiteral("list's middle")};
    case 14: {
      QScrollBar* bar = OneIn(2) ? tree_->verticalScrollBar() : tree_->horizontalScrollBar();
      if (bar->isVisible()) {
        return {bar->mapTo(window_.get(), bar->rect().center()), QStringLiteral("scroll bar")};
      }
      [[fallthrough]];
    }
    case 15:
      return {window_->findChild<QWidget*>(QStringLiteral("picTreeContain"))
                  ->mapTo(window_.get(), QPoint(40, 8)),
              QStringLiteral("caption bar")};
    case 16:
      return {Middle(QStringLiteral("picShowSplitter")), QStringLiteral("splitter")};
    default: {
      const QString& name = OneOf(kPanes);
      return {Middle(name), name};
    }
  }
}

// ---- acts

void Session::Mouse() {
  static const QList<Qt::MouseButton> kButtons = {Qt::LeftButton, Qt::LeftButton, Qt::LeftButton,
                                                  Qt::RightButton, Qt::MiddleButton};
  const auto [point, name] = Place();
  const Qt::MouseButton button = OneOf(kButtons);
  const bool activatesLate = OneIn(2);
  if (!window_->isActiveWindow() && !activatesLate) window_->activateWindow();
  QWindow* window = window_->windowHandle();
  const int kind = Below(8);
  Tell(QStringLiteral("%1 button, %2 on %3")
           .arg(button)
           .arg(kind == 0   ? QStringLiteral("double click")
                : kind == 1 ? QStringLiteral("drag")
                            : QStringLiteral("click"),
                name));
  if (kind == 0) {
    QTest::mouseDClick(window, button, {}, point);
  } else if (kind == 1) {
    QTest::mousePress(window, button, {}, point);
    QTest::mouseMove(window, point + QPoint(Below(40), Below(60)));
    QTest::mouseRelease(window, button, {}, Place().first);
  } else {
    QTest::mouseClick(window, button, {}, point);
  }
  if (activatesLate) window_->activateWindow();
}

void Session::Key(Qt::Key key, Qt::KeyboardModifiers modifiers) {
  QWindow* window = QGuiApplication::focusWindow();
  if (window == nullptr) return;
  if (key == Qt::Key_Escape) dropsText_ = true;
  QTest::keyPress(window, key, modifiers);
  window = QGuiApplication::focusWindow();
  if (window != nullptr) QTest::keyRelease(window, key, modifiers);
}

void Session::Keys() {
  static const QList<Qt::Key> kKeys = {
      Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape,   Qt::Key_F2,    Qt::Key_Up,
      Qt::Key_Down,   Qt::Key_Down,  Qt::Key_Left,     Qt::Key_Right, Qt::Key_Right,
      Qt::Key_Home,   Qt::Key_End,   Qt::Key_PageDown, Qt::Key_Tab,   Qt::Key_Backtab,
      Qt::Key_Plus,   Qt::Key_Minus, Qt::Key_Asterisk, Qt::Key_Space, Qt::Key_Delete,
      Qt::Key_Menu,   Qt::Key_F10,   Qt::Key_Alt,      Qt::Key_A,     Qt::Key_Backspace};
  static const QList<Qt::KeyboardModifiers> kModifiers = {Qt::NoModifier,      Qt::NoModifier,
                                                          Qt::NoModifier,      Qt::NoModifier,
                                                          Qt::ControlModifier, Qt::ShiftModifier};
  for (int count = 1 + Below(3); count > 0; --count) {
    const Qt::Key key = OneOf(kKeys);
    const Qt::KeyboardModifiers modifiers = OneOf(kModifiers);
    Tell(QStringLiteral("key %1+%2").arg(modifiers).arg(key, 0, 16));
    Key(key, modifiers);
    Settle();
    if (!editing_ || OpenEditing()) editing_ = OpenEditing();
  }
}

QString Session::NastyText() {
  static const QStringList kTexts = {
      QStringLiteral("平铣"),
      QStringLiteral("新加词"),
      QStringLiteral("粗车"),
      QStringLiteral("车削"),
      QStringLiteral("'"),
      QStringLiteral("''; delete from Items; --"),
      QStringLiteral("\\'\\n{fn now()} ? %s 100%"),
      QStringLiteral("👩‍🔧𠮷"),
      QStringLiteral("e\u0301\u0301 עברית ‏مرحبا"),
      QStringLiteral("   "),
      QString(),
      QStringLiteral("&文件"),
      QStringLiteral("<b>粗</b>"),
      QStringLiteral("\uFEFF\u200B"),
      QString(256, u'宽'),
      QString(3999, u'x'),
      QString(4001, u'y'),
  };
  const QString& text = OneOf(kTexts);
  return OneIn(3) ? text : text + QString::number(Below(1000));
}

void Session::TypeText() {
  QWidget* focus = QApplication::focusWidget();
  if (focus == nullptr) return;
  const QString text = NastyText();
  Tell(QStringLiteral("types “%1”").arg(text.left(20)));
  if (OneIn(2)) QTest::keyClick(focus, Qt::Key_A, Qt::ControlModifier);
  QInputMethodEvent event;
  event.setCommitString(text);
  QApplication::sendEvent(focus, &event);
  composing_ = nullptr;
  editing_ = OpenEditing();
}

void Session::Paste() {
  static const QStringList kEnds = {QString(),
                                    QStringLiteral("\n"),
                                    QStringLiteral("\t"),
                                    QStringLiteral("\r\n二"),
                                    QString(QChar(0xD842)),
                                    QString(QChar(0))};
  const QString text = OneOf(kEnds) + NastyText() + OneOf(kEnds);
  QApplication::clipboard()->setText(text);
  Tell(QStringLiteral("pastes “%1”").arg(text.left(20)));
  if (qobject_cast<QLineEdit*>(QApplication::focusWidget()) == nullptr) return;
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_V, Qt::ControlModifier);
  editing_ = OpenEditing();
}

void Session::Compose() {
  auto* editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
  if (editor == nullptr || editor->hasSelectedText() || editor->text().size() > 3000) return;
  Tell(QStringLiteral("composes"));
  composing_ = editor;
  composedInto_ = editor->text();
  QInputMethodEvent event(kPreedit, {});
  QApplication::sendEvent(editor, &event);
  editing_ = OpenEditing();
}

// The way most names are given: opened, typed, confirmed in one way or another.
void Session::EditNode() {
  if (OpenEditing() || QApplication::activePopupWidget() != nullptr) return;
  if (!window_->isActiveWindow()) window_->activateWindow();
  tree_->setFocus();
  Settle();
  Key(Qt::Key_F2);
  TypeText();
  if (OneIn(3)) {
    const auto [point, name] = Place();
    Tell(QStringLiteral("leaves for ") + name);
    QTest::mouseClick(window_->windowHandle(), Qt::LeftButton, {}, point);
  } else if (OneIn(2)) {
    Tell(QStringLiteral("Enter"));
    Key(Qt::Key_Return);
  }
}

void Session::Menu() {
  const QList<QAction*> menus = window_->menuBar()->actions();
  QAction* menu = OneOf(menus);
  Tell(QStringLiteral("menu ") + menu->text());
  if (!window_->isActiveWindow()) window_->activateWindow();
  const QPoint point =
      window_->menuBar()->mapTo(window_.get(), window_->menuBar()->actionGeometry(menu).center());
  QTest::mouseClick(window_->windowHandle(), Qt::LeftButton, {}, point);
  Settle();
  const int kind = Below(4);
  if (kind == 0) return;  // stays open
  if (kind == 1) {
    // Escape belongs to the menu here, and then to the menu bar.
    Tell(QStringLiteral("Escape"));
    for (int i = 0; i < 2 && QApplication::activePopupWidget() != nullptr; ++i) {
      QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
      Settle();
    }
    return;
  }
  for (int i = Below(5); i >= 0; --i) Key(Qt::Key_Down);
  Tell(QStringLiteral("chooses"));
  if (QApplication::activePopupWidget() != nullptr) Key(Qt::Key_Return);
}

void Session::PopUp() {
  const auto [point, name] = Place();
  Tell(QStringLiteral("right click on ") + name);
  if (!window_->isActiveWindow()) window_->activateWindow();
  QTest::mouseClick(window_->windowHandle(), Qt::RightButton, {}, point);
  Settle();
  QWidget* popup = QApplication::activePopupWidget();
  if (popup == nullptr || OneIn(4)) return;
  if (OneIn(3)) {
    Tell(QStringLiteral("Escape"));
    QTest::keyClick(popup, Qt::Key_Escape);
    return;
  }
  for (int i = Below(4); i >= 0; --i) QTest::keyClick(popup, Qt::Key_Down);
  Tell(QStringLiteral("chooses"));
  if (popup->isVisible()) QTest::keyClick(popup, Qt::Key_Return);
}

void Session::ToolBarButtonClicks() {
  const QList<ToolBarButton*> buttons = window_->findChildren<ToolBarButton*>();
  ToolBarButton* button = OneOf(buttons);
  const QPoint point = button->mapTo(window_.get(), button->rect().center());
  if (!window_->isActiveWindow()) window_->activateWindow();
  const Library before = StoredLibrary(*colleague_);
  const bool twice = OneIn(3);
  Tell(QStringLiteral("%1 on %2")
           .arg(twice ? QStringLiteral("double click") : QStringLiteral("click"), button->Key()));
  if (twice) {
    QTest::mouseDClick(window_->windowHandle(), Qt::LeftButton, {}, point);
  } else {
    QTest::mouseClick(window_->windowHandle(), Qt::LeftButton, {}, point);
  }
  Settle();
  if (StoredLibrary(*colleague_).size() > before.size() + 1) {
    throw Fault(QStringLiteral("one double click made two entries"));
  }
}

void Session::Command() {
  static const QStringList kItems = {
      QStringLiteral("mnuEditNewItem"), QStringLiteral("mnuEditNewWord"),
      QStringLiteral("mnuEditNewWord"), QStringLiteral("mnuEditDelete"),
      QStringLiteral("mnuEditRename")};
  if (QApplication::activePopupWidget() != nullptr) return;
  const QString& item = OneOf(kItems);
  Tell(item);
  if (!window_->isActiveWindow() && OneIn(2)) window_->activateWindow();
  window_->findChild<QAction*>(item)->trigger();
}

void Session::OtherWindow() {
  const bool away = window_->isActiveWindow();
  Tell(away ? QStringLiteral("to another window") : QStringLiteral("back to the window"));
  if (away) {
    otherWindow_->activateWindow();
  } else {
    window_->activateWindow();
  }
}

void Session::Colleague() {
  const Library stored = StoredLibrary(*colleague_);
  QList<EntryId> words;
  QList<EntryId> categories;
  for (const auto& [id, entry] : stored) (id.second == 0 ? categories : words) += id;
  const auto touch = [this](EntryId id) {
    touched_.entries.insert(id);
    touchedNow_.entries.insert(id);
  };
  const QString name = QStringLiteral("同事的%1").arg(random_.bounded(1'000'000));
  const int kind = Below(5);
  if (kind == 0 && !words.isEmpty()) {
    const EntryId id = OneOf(words);
    Tell(QStringLiteral("a colleague renames ") + Describe(id));
    colleague_->Execute(Statement::RenameWord(name, id.first, id.second));
    touch(id);
  } else if (kind == 1 && !categories.isEmpty()) {
    const EntryId id = OneOf(categories);
    Tell(QStringLiteral("a colleague renames ") + Describe(id));
    colleague_->Execute(Statement::RenameCategory(name, id.first));
    touch(id);
  } else if (kind == 2 && !words.isEmpty() && !words.contains({OneOf(words).first, 0})) {
    // Not the last number of a category, which would be given again.
    const EntryId id = OneOf(words);
    const auto next = stored.upper_bound(id);
    if (next == stored.end() || next->first.first != id.first) return;
    Tell(QStringLiteral("a colleague deletes ") + Describe(id));
    colleague_->Execute(Statement::DeleteWord(id.first, id.second));
    touch(id);
  } else if (kind == 3 && !categories.isEmpty()) {
    const qint32 gid = OneOf(categories).first;
    qint32 last = 0;
    for (const EntryId& id : words) {
      if (id.first == gid) last = std::max(last, id.second);
    }
    const EntryId id{gid, last + 1};
    Tell(QStringLiteral("a colleague adds ") + Describe(id));
    colleague_->Execute(
        QStringLiteral("insert into Items (SortID,ID,FatherID,NodeName) values (%1,%2,0,'%3')")
            .arg(id.first)
            .arg(id.second)
            .arg(name));
    touch(id);
  } else if (kind == 4 && categories.size() > 2 && OneIn(3)) {
    const EntryId id = OneOf(categories);
    Tell(QStringLiteral("a colleague deletes ") + Describe(id));
    colleague_->Execute(Statement::DeleteCategory(id.first));
    colleague_->Execute(Statement::DeleteWordsOfCategory(id.first));
    touched_.goneCategories.insert(id.first);
    touchedNow_.goneCategories.insert(id.first);
  }
}

void Session::FailingStatement() {
  if (!OneIn(4)) return Command();
  const int step = 1 + Below(6);
  Tell(QStringLiteral("statement %1 fails").arg(step));
  faultArmed_ = true;
  // From the tool bar, which goes on; a menu's command ends the program.
  const auto buttons = window_->findChildren<ToolBarButton*>();
  ToolBarButton* button = OneOf(buttons);
  Tell(button->Key());
  FailDatabaseStep(step);
  button->click();
  Settle();
  FailDatabaseStep(0);
}

void Session::Window() {
  static const QStringList kItems = {QStringLiteral("mnuViewToolbar"),
                                     QStringLiteral("mnuViewStatusBar")};
  if (OneIn(3)) {
    window_->resize(280 + Below(500), 280 + Below(400));
  } else if (OneIn(2)) {
    window_->findChild<QAction*>(OneOf(kItems))->trigger();
  } else {
    const QPointF at = tree_->viewport()->rect().center();
    QWheelEvent wheel(at, tree_->viewport()->mapToGlobal(at), {}, {0, OneIn(2) ? 120 : -120}, {},
                      {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(tree_->viewport(), &wheel);
  }
  Tell(QStringLiteral("size, bars or wheel"));
}

void Session::CloseAndReopen() {
  if (!OneIn(3)) return;
  Tell(QStringLiteral("close box"));
  window_->close();
}
