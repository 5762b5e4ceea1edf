// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "window_manager.h"

#include <QApplication>
#include <QWidget>
#include <QWindow>

#include <cstdlib>

#include <xcb/xcb.h>

namespace {

QWidget& ForegroundTarget(QWidget& window) {
  QWidget* const dialog = QApplication::activeModalWidget();
  return dialog ? *dialog : window;
}

// The X server's time at which the user started the program, from "<anything>_TIME<milliseconds>";
// 0, the present, when the text does not tell.
quint32 StartTime(const QByteArray& startupId) {
  constexpr char kMark[] = "_TIME";
  const qsizetype mark = startupId.lastIndexOf(kMark);
  return mark < 0 ? 0 : startupId.mid(mark + qstrlen(kMark)).toUInt();
}

// Asks the window manager as a task bar does, for it refuses the foreground to a program that asks
// for its own window without any input of the user.
void ActivateOnX11(xcb_connection_t* connection, WId window, const QByteArray& startupId) {
  constexpr char kName[] = "_NET_ACTIVE_WINDOW";
  constexpr quint32 kOnBehalfOfUser = 2;
  xcb_intern_atom_reply_t* const atom = xcb_intern_atom_reply(
      connection, xcb_intern_atom(connection, 0, qstrlen(kName), kName), nullptr);
  xcb_get_geometry_reply_t* const geometry = xcb_get_geometry_reply(
      connection, xcb_get_geometry(connection, static_cast<xcb_window_t>(window)), nullptr);
  if (atom && geometry) {
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = static_cast<xcb_window_t>(window);
    event.type = atom->atom;
    event.data.data32[0] = kOnBehalfOfUser;
    event.data.data32[1] = StartTime(startupId);
    xcb_send_event(connection, 0, geometry->root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&event));
    xcb_flush(connection);
  }
  std::free(geometry);
  std::free(atom);
}

}  // namespace

QWidget* FindWindowByCaption(const QString& caption) {
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && window->windowTitle() == caption) return window;
  }
  return nullptr;
}

void RestoreWindow(QWidget& window) {
  if (!window.isVisible()) return;
  const Qt::WindowStates state = window.windowState();
  window.setWindowState(
      state & ~(state.testFlag(Qt::WindowMinimized) ? Qt::WindowMinimized : Qt::WindowMaximized));
}

void SetForegroundWindow(QWidget& window, const ActivationToken& token) {
  QWidget& target = ForegroundTarget(window);
  const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  if (x11 && x11->connection()) {
    ActivateOnX11(x11->connection(), target.winId(), token.x11);
    return;
  }
  // Wayland's compositor honours the token, which the toolkit takes from the environment.
  if (!token.wayland.isEmpty()) qputenv("XDG_ACTIVATION_TOKEN", token.wayland);
  target.activateWindow();
}

void BringWindowToTop(QWidget& window) {
  window.raise();
  if (QWidget& target = ForegroundTarget(window); &target != &window) target.raise();
}
