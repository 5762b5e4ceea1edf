// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "window_manager.h"

#include <QApplication>
#include <QWidget>
#include <QWindow>

#include <algorithm>
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

xcb_atom_t Atom(xcb_connection_t* connection, const char* name) {
  const xcb_intern_atom_cookie_t cookie =
      xcb_intern_atom(connection, 0, static_cast<uint16_t>(qstrlen(name)), name);
  xcb_intern_atom_reply_t* const reply = xcb_intern_atom_reply(connection, cookie, nullptr);
  const xcb_atom_t atom = reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
  std::free(reply);
  return atom;
}

xcb_window_t RootOf(xcb_connection_t* connection, xcb_window_t window) {
  xcb_get_geometry_reply_t* const reply =
      xcb_get_geometry_reply(connection, xcb_get_geometry(connection, window), nullptr);
  const xcb_window_t root = reply ? reply->root : xcb_window_t{XCB_WINDOW_NONE};
  std::free(reply);
  return root;
}

// Asks the window manager as a task bar does, for it refuses the foreground to a program that asks
// for its own window without any input of the user.
void ActivateOnX11(xcb_connection_t* connection, xcb_window_t window, const QByteArray& startupId) {
  constexpr quint32 kOnBehalfOfUser = 2;
  xcb_client_message_event_t event{};
  event.response_type = XCB_CLIENT_MESSAGE;
  event.format = 32;
  event.window = window;
  event.type = Atom(connection, "_NET_ACTIVE_WINDOW");
  event.data.data32[0] = kOnBehalfOfUser;
  event.data.data32[1] = StartTime(startupId);
  xcb_send_event(connection, 0, RootOf(connection, window),
                 XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                 reinterpret_cast<const char*>(&event));
}

// Ends the desktop's sign that the program is starting; no window of the new process will.
void EndStartupNotice(xcb_connection_t* connection, xcb_window_t window,
                      const QByteArray& startupId) {
  if (startupId.isEmpty()) return;
  QByteArray quoted = startupId;
  quoted.replace('\\', "\\\\").replace('"', "\\\"");
  const QByteArray text = "remove: ID=\"" + quoted + '"' + '\0';
  const xcb_window_t root = RootOf(connection, window);
  xcb_client_message_event_t event{};
  event.response_type = XCB_CLIENT_MESSAGE;
  event.format = 8;
  event.window = window;
  event.type = Atom(connection, "_NET_STARTUP_INFO_BEGIN");
  constexpr qsizetype kPiece = sizeof event.data.data8;
  for (qsizetype at = 0; at < text.size(); at += kPiece) {
    const QByteArray piece = text.mid(at, kPiece).leftJustified(kPiece, '\0');
    std::copy(piece.begin(), piece.end(), event.data.data8);
    xcb_send_event(connection, 0, root, XCB_EVENT_MASK_PROPERTY_CHANGE,
                   reinterpret_cast<const char*>(&event));
    event.type = Atom(connection, "_NET_STARTUP_INFO");
  }
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
    const auto id = static_cast<xcb_window_t>(target.winId());
    ActivateOnX11(x11->connection(), id, token.x11);
    EndStartupNotice(x11->connection(), id, token.x11);
    xcb_flush(x11->connection());
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
