// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "single_instance.h"

#include "attention_token.h"
#include "log.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <array>
#include <cerrno>
#include <cstring>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

constexpr std::size_t kMaxRequest = 4096;

// The folders of this user in the order of preference: the session's, which ends with it, then the
// user's cache, for a user without one.
std::array<QByteArray, 3> UserFolders() {
  const QString cache = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation);
  QDir().mkpath(cache);
  return {qgetenv("XDG_RUNTIME_DIR"), "/run/user/" + QByteArray::number(geteuid()),
          QFile::encodeName(cache)};
}

// Opens the folder, makes it if need be; none unless it is this user's and closed to all others.
FileDescriptor OpenPrivateFolder(const QByteArray& path) {
  mkdir(path.constData(), S_IRWXU);
  FileDescriptor folder(open(path.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
  struct stat status {};
  const bool isPrivate = folder && fstat(folder.Get(), &status) == 0 &&
                         status.st_uid == geteuid() && (status.st_mode & (S_IRWXG | S_IRWXO)) == 0;
  return isPrivate ? std::move(folder) : FileDescriptor();
}

// The socket's address by the open folder: short enough however deep the folder lies.
sockaddr_un SocketAddress(int folder) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  const QByteArray path = "/proc/self/fd/" + QByteArray::number(folder) + "/socket";
  std::memcpy(address.sun_path, path.constData(), static_cast<std::size_t>(path.size()));
  return address;
}

QByteArray TakeFromEnvironment(const char* name) {
  QByteArray value = qgetenv(name);
  qunsetenv(name);
  return value;
}

}  // namespace

SingleInstance::SingleInstance(const QByteArray& appName) {
  for (const QByteArray& folder : UserFolders()) {
    if (folder.startsWith('/') && Claim(folder + '/' + appName)) {
      if (!prevInstance_) Listen();
      return;
    }
  }
  qCWarning(lcHCWordLib, "没有仅供本用户使用的文件夹，无法得知程序是否已在运行。");
}

SingleInstance::~SingleInstance() {
  notifier_.reset();  // before the socket that it watches
}

// Tries for the lock in this folder; false when the folder cannot serve.
bool SingleInstance::Claim(const QByteArray& folder) {
  FileDescriptor place = OpenPrivateFolder(folder);
  FileDescriptor lock(
      openat(place.Get(), "lock", O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR));
  if (!lock) return false;
  const bool isFree = flock(lock.Get(), LOCK_EX | LOCK_NB) == 0;
  if (!isFree && errno != EWOULDBLOCK) return false;
  prevInstance_ = !isFree;
  folder_ = std::move(place);
  lock_ = std::move(lock);
  return true;
}

// Without the socket the lock still holds; a later instance then ends without the window coming up.
void SingleInstance::Listen() {
  unlinkat(folder_.Get(), "socket", 0);
  socket_ = FileDescriptor(socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
  const int on = 1;
  const sockaddr_un address = SocketAddress(folder_.Get());
  if (!socket_ || setsockopt(socket_.Get(), SOL_SOCKET, SO_PASSCRED, &on, sizeof on) != 0 ||
      bind(socket_.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
    qCWarning(lcHCWordLib, "无法接收再次启动的请求：%s", std::strerror(errno));
    socket_ = FileDescriptor();
  }
}

void SingleInstance::HandOver() const {
  QByteArray token = TakeFromEnvironment("XDG_ACTIVATION_TOKEN");
  if (token.isEmpty()) {
    const std::optional<QByteArray> attention = RequestAttentionToken();
    if (attention && attention->isEmpty()) {
      qCWarning(lcHCWordLib, "程序已在运行；这个桌面不让它的窗口到前台来，请自行切换过去。");
    }
    token = attention.value_or(QByteArray());
  }
  const QByteArray request = token + '\0' + TakeFromEnvironment("DESKTOP_STARTUP_ID");
  const FileDescriptor sender(socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
  if (!sender) return;
  const sockaddr_un address = SocketAddress(folder_.Get());
  // Nobody listens yet, or enough requests wait: the window comes up without this one.
  sendto(sender.Get(), request.constData(), static_cast<std::size_t>(request.size()), 0,
         reinterpret_cast<const sockaddr*>(&address), sizeof address);
}

void SingleInstance::Serve(std::function<void(const ActivationToken&)> handler) {
  handler_ = std::move(handler);
  if (!socket_) return;
  notifier_ = std::make_unique<QSocketNotifier>(socket_.Get(), QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                   [this] { Receive(); });
}

void SingleInstance::Receive() {
  std::array<char, kMaxRequest> text;
  alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(ucred))> control;
  iovec part{text.data(), text.size()};
  msghdr message{};
  message.msg_iov = &part;
  message.msg_iovlen = 1;
  message.msg_control = control.data();
  message.msg_controllen = control.size();
  const ssize_t length = recvmsg(socket_.Get(), &message, MSG_CMSG_CLOEXEC);
  if (length < 0) return;

  ucred sender{};
  sender.uid = static_cast<uid_t>(-1);
  for (cmsghdr* item = CMSG_FIRSTHDR(&message); item; item = CMSG_NXTHDR(&message, item)) {
    if (item->cmsg_level == SOL_SOCKET && item->cmsg_type == SCM_CREDENTIALS) {
      std::memcpy(&sender, CMSG_DATA(item), sizeof sender);
    }
  }
  if (sender.uid != geteuid()) return;

  const QByteArray request(text.data(), length);
  const qsizetype border = request.indexOf('\0');
  handler_({request.left(border), border < 0 ? QByteArray() : request.mid(border + 1)});
}
