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

namespace {

// The value set, unless the window's own differs by more than what rounding explains: that of a
// fractional scale and, on Wayland, that of the frame that Qt draws itself.
float Settled(float wanted, int actual, qreal scale) {
  const bool drawsFrame = QGuiApplication::platformName().startsWith(QStringLiteral("wayland"));
  const bool rounds = std::floor(scale) != scale || (drawsFrame && scale != 1);
  if (std::abs(actual - TwipsToPixels(wanted)) <= (rounds ? 1 : 0)) return wanted;
  return PixelsToTwips(actual);
}

bool IsOnAScreen(const QRect& place) {
  const auto screens = QGuiApplication::screens();
  return std::any_of(screens.begin(), screens.end(), [&](const QScreen* screen) {
    return screen->availableGeometry().intersects(place);
  });
}

}  // namespace

WindowPlacement::WindowPlacement(QWidget& window) : QObject(&window), window_(window) {
  window_.installEventFilter(this);
}

QMargins WindowPlacement::Frame() const {
  const QWindow* const handle = window_.windowHandle();
  return handle ? handle->frameMargins() : QMargins();
}

TwipsRect WindowPlacement::Get() const {
  const bool correctionPending = !framed_ && !Frame().isNull();
  if (!window_.isVisible() || correctionPending) return wanted_;
  const QRect actual = window_.windowHandle()->frameGeometry();
  const qreal scale = window_.devicePixelRatio();
  TwipsRect result{wanted_.left, wanted_.top, Settled(wanted_.width, actual.width(), scale),
                   Settled(wanted_.height, actual.height(), scale)};
  // Wayland does not tell a window where it stands.
  if (!QGuiApplication::platformName().startsWith(QLatin1String("wayland"))) {
    result.left = Settled(wanted_.left, actual.x(), scale);
    result.top = Settled(wanted_.top, actual.y(), scale);
  }
  return result;
}

void WindowPlacement::Set(const TwipsRect& geometry) {
  wanted_ = geometry;
  const QRect place(TwipsToPixels(wanted_.left), TwipsToPixels(wanted_.top),
                    TwipsToPixels(wanted_.width), TwipsToPixels(wanted_.height));
  if (!IsOnAScreen(place)) {
    const QPoint corner = QGuiApplication::primaryScreen()->availableGeometry().topLeft();
    wanted_.left = PixelsToTwips(corner.x());
    wanted_.top = PixelsToTwips(corner.y());
  }
  window_.move(TwipsToPixels(wanted_.left), TwipsToPixels(wanted_.top));
  ApplySize();
}

void WindowPlacement::SetWidth(float width) {
  wanted_ = Get();
  wanted_.width = width;
  ApplySize();
}

void WindowPlacement::SetHeight(float height) {
  wanted_ = Get();
  wanted_.height = height;
  ApplySize();
}

void WindowPlacement::ApplySize() {
  const QSize outer(TwipsToPixels(wanted_.width), TwipsToPixels(wanted_.height));
  window_.resize(outer.shrunkBy(Frame()));
}

// Any event of the window may be the first after it was framed.
bool WindowPlacement::eventFilter(QObject* watched, QEvent* event) {
  if (!framed_ && watched == &window_ && window_.isVisible() && !Frame().isNull()) {
    framed_ = true;
    window_.removeEventFilter(this);
    ApplySize();
  }
  return QObject::eventFilter(watched, event);
}
