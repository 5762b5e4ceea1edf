// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "program_start.h"

#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>

#include <unistd.h>
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <thread>

namespace {

constexpr int kLongestMilliseconds = 60000;

struct Free {
  void operator()(void* reply) const { std::free(reply); }
};
template <class Reply>
using Owned = std::unique_ptr<Reply, Free>;

// The number behind `name` in /proc/<pid>/status.
double StatusNumber(qint64 pid, const char* name) {
  QFile file(QStringLiteral("/proc/%1/status").arg(pid));
  if (!file.open(QIODevice::ReadOnly)) return 0;
  const QByteArray text = file.readAll();
  return text.mid(text.indexOf(name) + qstrlen(name)).simplified().split(' ').first().toDouble();
}

// Time in the program and in the kernel, from /proc/<pid>/stat.
double ProcessorMilliseconds(qint64 pid) {
  QFile file(QStringLiteral("/proc/%1/stat").arg(pid));
  if (!file.open(QIODevice::ReadOnly)) return 0;
  const QByteArray text = file.readAll();
  const QByteArrayList fields = text.mid(text.lastIndexOf(')') + 2).split(' ');
  return (fields[11].toDouble() + fields[12].toDouble()) * 1000 /
         static_cast<double>(sysconf(_SC_CLK_TCK));
}

}  // namespace

ProgramStart::ProgramStart() : connection_(xcb_connect(nullptr, nullptr)) {
  if (xcb_connection_has_error(connection_)) return;
  root_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
}

ProgramStart::~ProgramStart() {
  xcb_disconnect(connection_);
}

std::optional<ProgramStart::Result> ProgramStart::Measure(const QString& program) {
  QProcess process;
  process.setProcessChannelMode(QProcess::ForwardedChannels);
  QElapsedTimer timer;
  timer.start();
  process.start(program, {});
  if (!process.waitForStarted()) return std::nullopt;

  const auto waitUntil = [&](const auto& condition) {
    while (!condition()) {
      if (timer.elapsed() > kLongestMilliseconds) return false;
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return true;
  };
  xcb_window_t window = XCB_WINDOW_NONE;
  const bool painted = waitUntil([&] { return (window = ClientWindow()) != XCB_WINDOW_NONE; }) &&
                       waitUntil([&] { return IsPainted(window); });
  const qint64 pid = process.processId();
  const Result result{static_cast<double>(timer.nsecsElapsed()) / 1e6,
                      StatusNumber(pid, "VmHWM:") * 1024 / 1e6, ProcessorMilliseconds(pid)};
  if (painted) Close(window);
  if (!painted || !process.waitForFinished(kLongestMilliseconds)) {
    process.kill();
    process.waitForFinished();
    return std::nullopt;
  }
  if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) return std::nullopt;
  if (!waitUntil([&] { return ClientWindow() == XCB_WINDOW_NONE; })) return std::nullopt;
  return result;
}

xcb_window_t ProgramStart::ClientWindow() const {
  const Owned<xcb_get_property_reply_t> reply(xcb_get_property_reply(
      connection_,
      xcb_get_property(connection_, 0, root_, Atom("_NET_CLIENT_LIST"), XCB_ATOM_WINDOW, 0, 1),
      nullptr));
  if (!reply || xcb_get_property_value_length(reply.get()) == 0) return XCB_WINDOW_NONE;
  xcb_window_t window = XCB_WINDOW_NONE;
  std::memcpy(&window, xcb_get_property_value(reply.get()), sizeof window);
  return window;
}

// A window shows more than one colour once its first picture is there, which is made in one piece.
bool ProgramStart::IsPainted(xcb_window_t window) const {
  const Owned<xcb_get_image_reply_t> reply(xcb_get_image_reply(
      connection_,
      xcb_get_image(connection_, XCB_IMAGE_FORMAT_Z_PIXMAP, window, 0, 0, 200, 100, ~uint32_t{0}),
      nullptr));
  if (!reply) return false;
  const uint8_t* const pixels = xcb_get_image_data(reply.get());
  const int size = xcb_get_image_data_length(reply.get());
  constexpr int kPixel = 4;
  return !std::equal(pixels, pixels + size - kPixel, pixels + kPixel);
}

// As the frame's close button does.
void ProgramStart::Close(xcb_window_t window) const {
  xcb_client_message_event_t event{};
  event.response_type = XCB_CLIENT_MESSAGE;
  event.format = 32;
  event.window = window;
  event.type = Atom("_NET_CLOSE_WINDOW");
  xcb_send_event(connection_, 0, root_,
                 XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                 reinterpret_cast<const char*>(&event));
  xcb_flush(connection_);
}

xcb_atom_t ProgramStart::Atom(const char* name) const {
  const Owned<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
      connection_, xcb_intern_atom(connection_, 0, static_cast<uint16_t>(std::strlen(name)), name),
      nullptr));
  return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}
