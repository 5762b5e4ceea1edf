// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "termination.h"

#include <QApplication>
#include <QSocketNotifier>
#include <QTimer>
#include <QWidget>

#include <fcntl.h>
#include <unistd.h>
#include <cerrno>
#include <csignal>
#include <utility>

namespace {

// A signal handler may do little more than write; the event loop waits at the other end.
int gPipe[2];

void PassOn(int signal) {
  const int before = errno;
  const auto byte = static_cast<char>(signal);
  [[maybe_unused]] const ssize_t written = write(gPipe[1], &byte, 1);
  errno = before;
}

void Close(QWidget& window) {
  // Again, as long as the loop runs: whoever waits for a box goes on first, and what reports that
  // the window could not be closed properly is a box, too.
  QTimer::singleShot(0, &window, [&window] { Close(window); });
  QWidget* inFront = QApplication::activePopupWidget();
  if (inFront == nullptr) inFront = QApplication::activeModalWidget();
  (inFront != nullptr ? inFront : &window)->close();
}

}  // namespace

void CloseOnTermination(QWidget& window, std::function<void()> prepare) {
  if (pipe2(gPipe, O_CLOEXEC | O_NONBLOCK) != 0) return;
  auto* const asked = new QSocketNotifier(gPipe[0], QSocketNotifier::Read, &window);
  QObject::connect(asked, &QSocketNotifier::activated, &window,
                   [asked, &window, prepare = std::move(prepare)] {
                     asked->setEnabled(false);
                     prepare();
                     Close(window);
                   });
  struct sigaction action = {};
  action.sa_handler = PassOn;
  action.sa_flags = SA_RESTART;
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
    struct sigaction before = {};
    sigaction(signal, nullptr, &before);
    if (before.sa_handler != SIG_IGN) sigaction(signal, &action, nullptr);  // nohup ignores SIGHUP
  }
}
