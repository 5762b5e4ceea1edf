// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "vertical_label.h"

#include <QFontInfo>
#include <QPainter>

VerticalLabel::VerticalLabel(const QString& caption, qreal pointSize, QWidget* parent)
    : QWidget(parent), caption_(caption) {
  setAccessibleName(caption);
  QFont title = font();
  title.setFamilies({QStringLiteral("隶书"), QStringLiteral("LiSu"), QStringLiteral("华文隶书"),
                     QStringLiteral("STLiti"), QStringLiteral("方正隶书_GBK"),
                     QStringLiteral("AR PL UKai CN"), QStringLiteral("楷体"),
                     QStringLiteral("KaiTi"), QStringLiteral("Noto Serif CJK SC")});
  title.setPointSizeF(pointSize);
  setFont(title);
}

void VerticalLabel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::Text));
  const qreal cell = qreal(height()) / qreal(caption_.size());
  QFont title = font();
  if (QFontInfo(title).pixelSize() > cell) title.setPixelSize(int(cell));
  painter.setFont(title);
  for (qsizetype i = 0; i < caption_.size(); ++i) {
    painter.drawText(QRectF(0, cell * qreal(i), width(), cell), Qt::AlignCenter | Qt::TextDontClip,
                     caption_.mid(i, 1));
  }
}
