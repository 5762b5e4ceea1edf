// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "find_field.h"

#include "glyph_button.h"
#include "label_editor.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>

namespace {

constexpr int kLeastLine = 40;
constexpr QMargins kMargins(4, 3, 2, 2);
constexpr int kSpacing = 2;
// The least widths, in pixels, in which there are buttons to go on and back, and one to close.
constexpr int kWithAllButtons = 200;
constexpr int kWithClose = 90;
const QString kNothing = QStringLiteral("没有找到");

}  // namespace

FindField::FindField(QWidget* parent)
    : QWidget(parent),
      line_(new LabelEditor(QString(), this)),
      found_(new QLabel(this)),
      previous_(new GlyphButton(GlyphButton::Glyph::kUp, QStringLiteral("上一个"),
                                QStringLiteral("Shift+F3"), this)),
      next_(new GlyphButton(GlyphButton::Glyph::kDown, QStringLiteral("下一个"),
                            QStringLiteral("F3"), this)),
      close_(new GlyphButton(GlyphButton::Glyph::kCross, QStringLiteral("关闭查找"),
                             QStringLiteral("Esc"), this)) {
  setObjectName(QStringLiteral("picFind"));
  line_->setObjectName(QStringLiteral("txtFind"));
  line_->setAccessibleName(QStringLiteral("查找"));
  line_->setPlaceholderText(QStringLiteral("查找：文字或拼音"));
  line_->setFrame(false);
  line_->setMinimumWidth(kLeastLine);
  line_->installEventFilter(this);
  setFocusPolicy(Qt::ClickFocus);  // a click on a button leaves the focus here
  setFocusProxy(line_);
  ColorParts();

  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(kMargins);
  row->setSpacing(kSpacing);
  row->addWidget(line_, 1);
  row->addWidget(found_);
  for (GlyphButton* button : {previous_, next_, close_}) row->addWidget(button);

  connect(line_, &QLineEdit::textChanged, this, &FindField::TextChanged);
  connect(line_, &LabelEditor::Ended, this, [this](LabelEditor::Ending ending) {
    if (ending == LabelEditor::Ending::kEscape) {
      Q_EMIT Closed();
    } else if ((modifiers_ & Qt::ShiftModifier) != 0) {
      Q_EMIT Previous();
    } else {
      Q_EMIT Next();
    }
  });
  connect(previous_, &QToolButton::clicked, this, &FindField::Previous);
  connect(next_, &QToolButton::clicked, this, &FindField::Next);
  connect(close_, &QToolButton::clicked, this, &FindField::Closed);
}

void FindField::ColorParts() {
  QColor faint = palette().color(QPalette::Active, QPalette::Text);
  faint.setAlpha(150);
  QPalette colors = palette();
  colors.setColor(QPalette::Base, Qt::transparent);
  colors.setColor(QPalette::PlaceholderText, faint);
  line_->setPalette(colors);
  colors.setColor(QPalette::WindowText, faint);
  found_->setPalette(colors);
}

void FindField::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) ColorParts();
}

QString FindField::Text() const {
  return line_->text();
}

void FindField::Activate() {
  line_->setFocus(Qt::ShortcutFocusReason);
  line_->selectAll();
}

void FindField::ShowFound(qsizetype place, qsizetype count) {
  QString shown;
  QString told;
  if (!Text().isEmpty() && count == 0) {
    told = shown = kNothing;
  } else if (place > 0) {
    told = QStringLiteral("第 %1 项，共 %2 项").arg(place).arg(count);
    shown = QStringLiteral("%1/%2").arg(place).arg(count);
  } else if (count > 0) {
    told = QStringLiteral("共 %1 项").arg(count);
    shown = QStringLiteral("–/%1").arg(count);
  }
  for (GlyphButton* button : {previous_, next_}) button->setEnabled(count > 0);
  if (shown_ == shown) return;
  shown_ = shown;
  FitFound();
  line_->setAccessibleDescription(told);
}

// A number that is cut without a sign would be taken for another one.
void FindField::FitFound() {
  int room = width() - kMargins.left() - kMargins.right() - kLeastLine - kSpacing;
  for (const GlyphButton* button : {previous_, next_, close_}) {
    if (!button->isHidden()) room -= button->width() + kSpacing;
  }
  const QFontMetrics metrics = found_->fontMetrics();
  const bool fits = metrics.horizontalAdvance(shown_) <= room;
  found_->setText(!fits && shown_ == kNothing ? QStringLiteral("无")
                                              : metrics.elidedText(shown_, Qt::ElideRight, room));
}

// The strip takes whatever width there is.
QSize FindField::minimumSizeHint() const {
  return QSize(0, QWidget::minimumSizeHint().height());
}

bool FindField::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) modifiers_ = static_cast<QKeyEvent*>(event)->modifiers();
  return QWidget::eventFilter(watched, event);
}

void FindField::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), palette().color(QPalette::Base));
  QColor edge = palette().color(QPalette::Active, QPalette::Text);
  edge.setAlpha(60);
  painter.fillRect(0, 0, width(), 1, edge);
}

void FindField::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  previous_->setVisible(width() >= kWithAllButtons);
  next_->setVisible(width() >= kWithAllButtons);
  close_->setVisible(width() >= kWithClose);
  FitFound();
}
