// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "termination.h"

#include <QApplication>
#include <QSocketNotifier>
#include <QTimer>
#include <QWidget>

#include <fcntl.h>
#include <unistd.h>
#include <csignal>

namespace {

// A signal handler may do little more than write; the event loop waits at the other end.
int gPipe[2];

void PassOn(int signal) {
  const int before = errno;
  const auto byte = static_cast<char>(signal);
  static_cast<void>(write(gPipe[1], &byte, 1));
  errno = before;
}

void Close(QWidget& window) {
  QWidget* inFront = QApplication::activePopupWidget();
  if (inFront == nullptr) inFront = QApplication::activeModalWidget();
  if (inFront == nullptr) {
    window.close();
    return;
  }
  inFront->close();
  // Whoever waits for the box goes on first.
  QTimer::singleShot(0, &window, [&window] { Close(window); });
}

}  // namespace

void CloseOnTermination(QWidget& window) {
  if (pipe2(gPipe, O_CLOEXEC | O_NONBLOCK) != 0) return;
  auto* const asked = new QSocketNotifier(gPipe[0], QSocketNotifier::Read, &window);
  QObject::connect(asked, &QSocketNotifier::activated, &window, [asked, &window] {
    asked->setEnabled(false);
    Close(window);
  });
  struct sigaction action = {};
  action.sa_handler = PassOn;
  action.sa_flags = SA_RESTART;
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) sigaction(signal, &action, nullptr);
}
