// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "file_descriptor.h"

#include <QByteArray>
#include <QSocketNotifier>

#include <functional>
#include <memory>

// What the desktop gave to a program that it started, so that its window may come to the front.
struct ActivationToken {
  QByteArray wayland;  // XDG_ACTIVATION_TOKEN
  QByteArray x11;      // DESKTOP_STARTUP_ID
};

// Whether another instance of this application runs for this user, and the hand-over to it.
//
// A lock that the kernel gives back with the process decides, in a folder that only this user can
// enter; a datagram socket beside it takes the requests of later instances, which wait there until
// the first one's event loop serves them. Make it before the application object, which uses up the
// environment's activation token.
class SingleInstance {
 public:
  explicit SingleInstance(const QByteArray& appName);
  ~SingleInstance();
  SingleInstance(const SingleInstance&) = delete;
  SingleInstance& operator=(const SingleInstance&) = delete;

  bool PrevInstance() const { return prevInstance_; }

  // Asks the running instance to come to the front, with this process's activation token, which is
  // taken out of the environment. Does not wait for it. Without a token Wayland marks the window as
  // wanting attention; where the compositor cannot do that either, one line of the log says so.
  void HandOver() const;

  // Calls `handler` in the event loop for every request handed over. Needs the application object.
  void Serve(std::function<void(const ActivationToken&)> handler);

 private:
  bool Claim(const QByteArray& folder);
  void Listen();
  void Receive();

  FileDescriptor folder_;
  FileDescriptor lock_;
  FileDescriptor socket_;
  bool prevInstance_ = false;
  std::unique_ptr<QSocketNotifier> notifier_;
  std::function<void(const ActivationToken&)> handler_;
};
