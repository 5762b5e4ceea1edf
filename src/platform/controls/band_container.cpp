// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "band_container.h"

#include "twips.h"

#include <QEvent>
#include <QLabel>
#include <QPainter>
#include <QStyle>

namespace {

constexpr int kGripWidth = 9;

}  // namespace

BandContainer::BandContainer(float above, float below, QWidget* parent)
    : QWidget(parent), above_(above), below_(below) {}

void BandContainer::AddResizableBand(QWidget* child, float minHeight) {
  AddBand(Band{child, minHeight, 0, false, QRect()});
}

void BandContainer::AddFixedBand(QWidget* child, float minHeight, float width) {
  AddBand(Band{child, minHeight, width, true, QRect()});
}

void BandContainer::AddBand(const Band& band) {
  band.child->setParent(this);
  band.child->installEventFilter(this);
  bands_.append(band);
  Rearrange();
}

void BandContainer::AddCaptionBand(const QString& caption, float minHeight, float width) {
  auto* label = new QLabel(caption, this);
  label->setAlignment(Qt::AlignCenter);
  AddFixedBand(label, minHeight, width);
}

void BandContainer::SetBandWidth(int band, float width) {
  bands_[band - 1].width = width;
  PlaceBands();
}

void BandContainer::Rearrange() {
  float row = 0;
  for (const Band& band : bands_) {
    row = qMax(row, qMax(band.minHeight, PixelsToTwips(band.child->sizeHint().height())));
  }
  const float height = above_ + row + below_;
  PlaceBands();
  if (height == height_) return;
  height_ = height;
  Q_EMIT HeightChanged(height_);
}

void BandContainer::PlaceBands() {
  const int top = TwipsToPixels(above_);
  const int rowHeight = height() - top - TwipsToPixels(below_);
  int right = width();
  for (qsizetype i = bands_.size() - 1; i >= 0; --i) {
    Band& band = bands_[i];
    // A caption is not cut when its font is large.
    const int wanted = qMax(TwipsToPixels(band.width), band.child->minimumSizeHint().width());
    const int left = band.fixedSize ? qMax(0, right - wanted) : 0;
    band.rect = QRect(left, top, right - left, rowHeight);
    QRect place = band.fixedSize ? band.rect : band.rect.adjusted(kGripWidth, 0, 0, 0);
    // A picture keeps its own size.
    const QSize size = place.size().boundedTo(band.child->maximumSize());
    place = QStyle::alignedRect(layoutDirection(), Qt::AlignCenter, size, place);
    band.child->setGeometry(place);
    right = left;
  }
  update();
}

bool BandContainer::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::FontChange) Rearrange();
  return QWidget::eventFilter(watched, event);
}

void BandContainer::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) Rearrange();
}

void BandContainer::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  PlaceBands();
}

void BandContainer::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const QColor window = palette().color(QPalette::Window);
  const bool dark = window.lightness() < 128;
  for (const Band& band : bands_) {
    if (band.fixedSize) continue;
    const QRect grip = band.rect.adjusted(3, 3, 0, -3);
    painter.fillRect(grip.left(), grip.top(), 1, grip.height(),
                     dark ? window.lighter(170) : QColor(Qt::white));
    painter.fillRect(grip.left() + 1, grip.top(), 1, grip.height(),
                     dark ? window.darker(160) : window.darker(140));
  }
}
