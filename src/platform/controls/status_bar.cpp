// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "status_bar.h"

#include "twips.h"

#include <QDateTime>
#include <QEvent>
#include <QHBoxLayout>
#include <QLocale>
#include <QPainter>
#include <QRegularExpression>

#include <sys/timerfd.h>

namespace {

constexpr float kLeastPanelWidth = 1440;  // twips

// An inset panel. Where there is less room than the panels ask for, its text ends in an ellipsis.
class Panel : public QLabel {
 public:
  explicit Panel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setContentsMargins(5, 1, 5, 1);
  }

  QSize sizeHint() const override {
    return QLabel::sizeHint().expandedTo(QSize(TwipsToPixels(kLeastPanelWidth), 0));
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    const QColor window = palette().color(QPalette::Window);
    const bool dark = window.lightness() < 128;
    const QColor shadow = dark ? window.darker(170) : window.darker(135);
    const QColor light = dark ? window.lighter(150) : window.lighter(112);
    const QRect r = rect();
    painter.fillRect(r.left(), r.top(), r.width(), 1, shadow);
    painter.fillRect(r.left(), r.top(), 1, r.height(), shadow);
    painter.fillRect(r.left(), r.bottom(), r.width(), 1, light);
    painter.fillRect(r.right(), r.top(), 1, r.height(), light);
    const QRect textRect = contentsRect();
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(textRect, Qt::AlignLeft | Qt::AlignVCenter,
                     fontMetrics().elidedText(text(), Qt::ElideRight, textRect.width()));
  }
};

// The short time format without the seconds that some locales have in it.
QString MinuteFormat(const QLocale& locale) {
  static const QRegularExpression kSeconds(QStringLiteral("[:.]?ss?"));
  return locale.timeFormat(QLocale::ShortFormat).remove(kSeconds);
}

}  // namespace

StatusBar::StatusBar(QWidget* parent)
    : QWidget(parent),
      clock_(timerfd_create(CLOCK_REALTIME, TFD_CLOEXEC)),
      minute_(clock_.Get(), QSocketNotifier::Read) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(2);
  const char* const names[] = {"状态", "日期", "时间"};
  for (int i = 0; i < 3; ++i) {
    panels_[i] = new Panel(this);
    panels_[i]->setObjectName(QStringLiteral("panel%1").arg(i + 1));
    panels_[i]->setAccessibleDescription(QString::fromUtf8(names[i]));
    row->addWidget(panels_[i], i == 0 ? 1 : 0);
  }
  panels_[0]->setText(QStringLiteral("状态"));
  connect(&minute_, &QSocketNotifier::activated, this, &StatusBar::ShowNow);
}

void StatusBar::ShowNow() {
  const QDateTime now = QDateTime::currentDateTime();
  const QLocale locale = QLocale::system();
  panels_[1]->setText(locale.toString(now.date(), QLocale::ShortFormat));
  panels_[2]->setText(locale.toString(now.time(), MinuteFormat(locale)));
  WakeAt(now.toSecsSinceEpoch() / 60 * 60 + 60);
}

void StatusBar::WakeAt(qint64 second) {
  const itimerspec time{{}, {.tv_sec = second, .tv_nsec = 0}};
  timerfd_settime(clock_.Get(), TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET, &time, nullptr);
}

void StatusBar::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  ShowNow();
}

void StatusBar::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  WakeAt(0);
}

void StatusBar::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::LocaleChange && isVisible()) ShowNow();
}
