// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "tool_bar.h"

#include "error.h"
#include "focus_frame.h"

#include <QFrame>
#include <QHBoxLayout>

namespace {

// 609 by 582 hundredths of a millimetre.
constexpr QSize kButtonSize(23, 22);

}  // namespace

ToolBarButton::ToolBarButton(const QString& key, QWidget* parent) : QToolButton(parent), key_(key) {
  setToolTip(key);
  setAccessibleName(key);
  setAutoRaise(true);
  setFixedSize(kButtonSize);
  setFocusPolicy(Qt::TabFocus);
}

// The styles' own mark is hardly seen on a flat button.
void ToolBarButton::paintEvent(QPaintEvent* event) {
  QToolButton::paintEvent(event);
  QPainter painter(this);
  if (hasFocus()) DrawFocusFrame(painter, rect(), palette().color(QPalette::WindowText));
}

ToolBar::ToolBar(QWidget* parent) : QWidget(parent) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(0);
  row->addStretch();
}

void ToolBar::AddButton(const QString& key, int image) {
  auto* button = new ToolBarButton(key, this);
  button->setObjectName(key);
  button->setIcon(images_.Picture(image));
  button->setIconSize(QSize(images_.Size(), images_.Size()));
  connect(button, &QToolButton::clicked, this, [this, button] { Q_EMIT ButtonClick(*button); });
  auto* row = static_cast<QHBoxLayout*>(layout());
  row->insertWidget(row->count() - 1, button);
  buttons_.append(button);
}

void ToolBar::AddSeparator() {
  auto* separator = new QFrame(this);
  separator->setFrameStyle(QFrame::VLine | QFrame::Sunken);
  separator->setFixedSize(8, kButtonSize.height() - 6);
  auto* row = static_cast<QHBoxLayout*>(layout());
  row->insertWidget(row->count() - 1, separator, 0, Qt::AlignVCenter);
}

ToolBarButton& ToolBar::Button(const QString& key) const {
  for (ToolBarButton* button : buttons_) {
    if (button->Key() == key) return *button;
  }
  throw Error(QStringLiteral("找不到元素"));
}
