// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

// What the user and another window do in a session.

#include "connection.h"
#include "failing_step.h"
#include "frm_main.h"
#include "session.h"
#include "shared_objects.h"
#include "tool_bar.h"
#include "tree_view.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMenuBar>
#include <QTest>
#include <QWheelEvent>

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
    if (OneIn(3)) {  // the keyboard does not wait for the button
      Key(OneIn(3) ? Qt::Key_F5 : Qt::Key_F2);
      TypeText();
    }
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
  // What lost its parent word may have left the tree.
  if (key == Qt::Key_F5) touched_.entries.merge(Orphans(StoredLibrary(*colleague_)));
}

void Session::Keys() {
  static const QList<Qt::Key> kKeys = {
      Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape,   Qt::Key_F2,    Qt::Key_Up,
      Qt::Key_Down,   Qt::Key_Down,  Qt::Key_Left,     Qt::Key_Right, Qt::Key_Right,
      Qt::Key_Home,   Qt::Key_End,   Qt::Key_PageDown, Qt::Key_Tab,   Qt::Key_Backtab,
      Qt::Key_Plus,   Qt::Key_Minus, Qt::Key_Asterisk, Qt::Key_Space, Qt::Key_Delete,
      Qt::Key_Menu,   Qt::Key_F10,   Qt::Key_Alt,      Qt::Key_A,     Qt::Key_Backspace,
      Qt::Key_F5};
  static const QList<Qt::KeyboardModifiers> kModifiers = {Qt::NoModifier,      Qt::NoModifier,
                                                          Qt::NoModifier,      Qt::NoModifier,
                                                          Qt::ControlModifier, Qt::ShiftModifier};
  for (int count = 1 + Below(3); count > 0; --count) {
    const Qt::Key key = OneOf(kKeys);
    const Qt::KeyboardModifiers modifiers = OneOf(kModifiers);
    Tell(QStringLiteral("key %1+%2").arg(modifiers.toInt()).arg(key, 0, 16));
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
  QInputMethodEvent event(Composed(), {});
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
  editing_ = OpenEditing();
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
  // The first click is then the menu's, and the second one ends the editing that it has opened.
  const bool isBelowMenu = QApplication::activePopupWidget() != nullptr;
  Tell(QStringLiteral("%1 on %2")
           .arg(twice ? QStringLiteral("double click") : QStringLiteral("click"), button->Key()));
  if (twice) {
    QTest::mouseDClick(window_->windowHandle(), Qt::LeftButton, {}, point);
  } else {
    QTest::mouseClick(window_->windowHandle(), Qt::LeftButton, {}, point);
  }
  Settle();
  const size_t added = StoredLibrary(*colleague_).size() - before.size();
  if (added == 2) throw Fault(QStringLiteral("one double click made two entries"));
  if (added == 1 && !isBelowMenu && !tree_->IsEditing()) {
    throw Fault(QStringLiteral("the new entry is not being named"));
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

void Session::FailingStatement() {
  if (!OneIn(4)) return Command();
  const int step = 1 + Below(6);
  Tell(QStringLiteral("statement %1 fails").arg(step));
  faultArmed_ = true;
  // From the tool bar, which goes on; a menu's command ends the program.
  const auto buttons = window_->findChildren<ToolBarButton*>();
  ToolBarButton* button = OneOf(buttons);
  Tell(button->Key());
  FailStep(TheConn(), step);
  button->click();
  Settle();
  TheConn().SetStepHook({});
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
