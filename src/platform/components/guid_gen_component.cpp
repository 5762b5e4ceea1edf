// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "component_factory.h"
#include "error.h"

#include <QObject>

#include <array>
#include <cerrno>
#include <cstring>

#include <unistd.h>

namespace {

// GUIDs of version 4 from the system's random source, in the order in which their text is read.
class RandomGUIDGen : public GUIDGen {
 public:
  void Generate() override {
    std::array<quint32, 4> fresh;
    if (getentropy(fresh.data(), sizeof fresh) != 0) {
      throw Error(QStringLiteral("无法读取系统的随机数：%1")
                      .arg(QString::fromLocal8Bit(std::strerror(errno))));
    }
    fresh[1] = (fresh[1] & 0xffff0fffU) | 0x00004000U;  // the version
    fresh[2] = (fresh[2] & 0x3fffffffU) | 0x80000000U;  // the variant
    quarters_ = fresh;
  }

  qint32 Part1() const override { return static_cast<qint32>(quarters_[0]); }
  qint32 Part2() const override { return static_cast<qint32>(quarters_[1]); }
  qint32 Part3() const override { return static_cast<qint32>(quarters_[2]); }
  qint32 Part4() const override { return static_cast<qint32>(quarters_[3]); }

 private:
  std::array<quint32, 4> quarters_{};
};

}  // namespace

class GUIDGenFactory : public QObject, public ComponentFactory {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID "HCWordLib.ComponentFactory/1.0")
  Q_INTERFACES(ComponentFactory)

 public:
  std::unique_ptr<GUIDGen> Create() const override { return std::make_unique<RandomGUIDGen>(); }
};

#include "guid_gen_component.moc"
