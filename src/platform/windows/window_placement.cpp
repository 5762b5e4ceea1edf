// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "window_placement.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <QWindow>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace {

bool OnWayland() {
  return QGuiApplication::platformName().startsWith(QStringLiteral("wayland"));
}

// The value set, unless the window's own differs by more than what rounding explains: that of a
// fractional scale and, on Wayland, that of the frame that Qt draws itself.
float Settled(float wanted, int actual, qreal scale) {
  const bool rounds = std::floor(scale) != scale || (OnWayland() && scale != 1);
  if (std::abs(actual - TwipsToPixels(wanted)) <= (rounds ? 1 : 0)) return wanted;
  return PixelsToTwips(actual);
}

// The thickest frame at either side, in pixels, that leaves sight of what spans the outer width.
constexpr int kThickestSide = 2;

// How long a size that was asked for may take, in milliseconds; doubled every time.
constexpr int kFirstPatience = 250;
constexpr int kLastPatience = 10'000;

// As much of a caption as the pointer needs, in twips.
constexpr double kCaptionWidth = 1500;
constexpr double kCaptionHeight = 450;

// In double precision, which holds every sum of single-precision numbers.
TwipsRect Reachable(TwipsRect place) {
  const QSize all = QGuiApplication::primaryScreen()->availableVirtualSize();
  place.width = std::min(place.width, PixelsToTwips(all.width()));
  place.height = std::min(place.height, PixelsToTwips(all.height()));
  TwipsRect nearest = place;
  double least = std::numeric_limits<double>::infinity();
  for (const QScreen* screen : QGuiApplication::screens()) {
    const QRect area = screen->availableGeometry();
    const double left =
        std::clamp<double>(place.left, PixelsToTwips(area.left()) - place.width + kCaptionWidth,
                           PixelsToTwips(area.right() + 1) - kCaptionWidth);
    const double top = std::clamp<double>(place.top, PixelsToTwips(area.top()),
                                          PixelsToTwips(area.bottom() + 1) - kCaptionHeight);
    const double distance = std::abs(left - place.left) + std::abs(top - place.top);
    if (distance >= least) continue;
    least = distance;
    nearest.left = float(left);
    nearest.top = float(top);
  }
  return nearest;
}

}  // namespace

WindowPlacement::WindowPlacement(QWidget& window) : QObject(&window), window_(window) {
  window_.installEventFilter(this);
  askAgain_.setSingleShot(true);
  connect(&askAgain_, &QTimer::timeout, this, [this] {
    if (window_.isVisible() && window_.size() == refused_) Ask();
  });
}

QMargins WindowPlacement::Frame() const {
  const QWindow* const handle = window_.windowHandle();
  QMargins frame = handle ? handle->frameMargins() : QMargins();
  // Qt's own frame is thicker, and may count its shadow.
  if (OnWayland()) {
    frame.setLeft(std::min(frame.left(), kThickestSide));
    frame.setRight(std::min(frame.right(), kThickestSide));
  }
  return frame;
}

TwipsRect WindowPlacement::Get() const {
  const bool correctionPending = !framed_ && !Frame().isNull();
  if (!window_.isVisible() || correctionPending) return wanted_;
  // The handle tells a size that was asked for as if the window had it.
  const QSize actualSize = window_.size().grownBy(Frame());
  const qreal scale = window_.devicePixelRatio();
  TwipsRect result{wanted_.left, wanted_.top, Settled(wanted_.width, actualSize.width(), scale),
                   Settled(wanted_.height, actualSize.height(), scale)};
  // Wayland does not tell a window where it stands.
  if (!OnWayland()) {
    const QPoint actual = window_.windowHandle()->framePosition();
    result.left = Settled(wanted_.left, actual.x(), scale);
    result.top = Settled(wanted_.top, actual.y(), scale);
  }
  return result;
}

void WindowPlacement::Set(const TwipsRect& geometry) {
  wanted_ = Reachable(geometry);
  window_.move(TwipsToPixels(wanted_.left), TwipsToPixels(wanted_.top));
  window_.resize(WantedSize());
}

void WindowPlacement::AskForSize(float width, float height) {
  wanted_ = Get();
  wanted_.width = width;
  wanted_.height = height;
  refused_ = window_.size();
  patience_ = kFirstPatience;
  Ask();
}

void WindowPlacement::Ask() {
  window_.windowHandle()->resize(WantedSize());
  if (patience_ > kLastPatience) return;
  askAgain_.start(patience_);
  patience_ *= 2;
}

QSize WindowPlacement::WantedSize() const {
  return QSize(TwipsToPixels(wanted_.width), TwipsToPixels(wanted_.height)).shrunkBy(Frame());
}

// Any event of the window may be the first after it was framed.
bool WindowPlacement::eventFilter(QObject* watched, QEvent* event) {
  if (!framed_ && watched == &window_ && window_.isVisible() && !Frame().isNull()) {
    framed_ = true;
    window_.removeEventFilter(this);
    window_.resize(WantedSize());
  }
  return QObject::eventFilter(watched, event);
}
