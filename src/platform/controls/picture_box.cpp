// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "picture_box.h"

#include "mouse.h"
#include "twips.h"

#include <QChildEvent>
#include <QFrame>
#include <QMouseEvent>
#include <QPainter>

namespace {

// Edges on whole device pixels, so that thin lines are crisp at every scale.
qreal Snapped(qreal twips, qreal scale) {
  return qRound(twips / kTwipsPerPixel * scale) / scale;
}

}  // namespace

PictureBox::PictureBox(QWidget* parent) : QWidget(parent) {
  setMouseTracking(true);
}

void PictureBox::SetBackColor(OleColor color) {
  backColor_ = color;
  update();
}

void PictureBox::SetBorder() {
  border_ = new QFrame(this);
  border_->setFrameStyle(QFrame::Box | QFrame::Plain);
  border_->setAttribute(Qt::WA_TransparentForMouseEvents);
  ColorBorder();
}

void PictureBox::ColorBorder() {
  QPalette colors = palette();
  colors.setColor(QPalette::WindowText, ResolveColor(kApplicationWorkspace, palette()));
  border_->setPalette(colors);
}

void PictureBox::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && border_ != nullptr) ColorBorder();
}

void PictureBox::SetPicture(const QIcon& picture, const QSize& size) {
  picture_ = picture;
  pictureSize_ = size;
  setFixedSize(size);
  update();
}

// A widget that is really hidden loses the pointer, so one that is pressed is concealed until the
// button comes up.
void PictureBox::setVisible(bool visible) {
  concealed_ = !visible && buttonDown_;
  if (concealed_) {
    update();
  } else {
    QWidget::setVisible(visible);
  }
}

void PictureBox::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  if (border_ == nullptr) return;
  border_->setGeometry(rect());
  border_->raise();
}

void PictureBox::Cls() {
  lines_.clear();
  update();
}

void PictureBox::Line(float x1, float y1, float x2, float y2, OleColor color) {
  lines_.append(DrawnLine{QPointF(x1, y1), QPointF(x2, y2), color, drawWidth_});
  update();
}

void PictureBox::paintEvent(QPaintEvent* /*event*/) {
  if (concealed_) return;
  QPainter painter(this);
  painter.fillRect(rect(), ResolveColor(backColor_, palette()));
  const qreal scale = devicePixelRatioF();
  for (const DrawnLine& line : lines_) {
    const QColor color = ResolveColor(line.color, palette());
    const qreal width = qMax(qreal(1), qreal(qRound(line.width * scale))) / scale;
    const QPointF from(Snapped(line.from.x(), scale), Snapped(line.from.y(), scale));
    const QPointF to(Snapped(line.to.x(), scale), Snapped(line.to.y(), scale));
    const qreal before = qRound((line.width - 1) / 2.0 * scale) / scale;
    if (from.y() == to.y()) {
      painter.fillRect(QRectF(from.x(), from.y() - before, to.x() - from.x(), width), color);
    } else if (from.x() == to.x()) {
      painter.fillRect(QRectF(from.x() - before, from.y(), width, to.y() - from.y()), color);
    } else {
      painter.setRenderHint(QPainter::Antialiasing);
      painter.setPen(QPen(color, width * 1.2, Qt::SolidLine, Qt::RoundCap));
      const QPointF centre(0.5 / scale, 0.5 / scale);
      painter.drawLine(from + centre, to + centre);
    }
  }
  if (!picture_.isNull()) picture_.paint(&painter, QRect(QPoint(0, 0), pictureSize_));
}

void PictureBox::mousePressEvent(QMouseEvent* event) {
  const QPointF p = event->position();
  buttonDown_ = true;
  Q_EMIT MouseDown(MouseButton(event->button()), static_cast<float>(p.x()) * kTwipsPerPixel,
                   static_cast<float>(p.y()) * kTwipsPerPixel);
}

void PictureBox::mouseMoveEvent(QMouseEvent* event) {
  const QPointF p = event->position();
  Q_EMIT MouseMove(MouseButtonsDown(event->buttons()), static_cast<float>(p.x()) * kTwipsPerPixel,
                   static_cast<float>(p.y()) * kTwipsPerPixel);
}

void PictureBox::mouseReleaseEvent(QMouseEvent* event) {
  const QPointF p = event->position();
  buttonDown_ = event->buttons() != Qt::NoButton;
  Q_EMIT MouseUp(MouseButton(event->button()), static_cast<float>(p.x()) * kTwipsPerPixel,
                 static_cast<float>(p.y()) * kTwipsPerPixel);
  if (event->button() == Qt::LeftButton && rect().contains(p.toPoint())) Q_EMIT Click();
  if (concealed_ && !buttonDown_) setVisible(false);
}

void PictureBox::leaveEvent(QEvent* event) {
  QWidget::leaveEvent(event);
  Q_EMIT MouseLeave();
}

void PictureBox::childEvent(QChildEvent* event) {
  QWidget::childEvent(event);
  if (event->added()) event->child()->installEventFilter(this);
}

bool PictureBox::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Enter) Q_EMIT MouseLeave();
  return QWidget::eventFilter(watched, event);
}
