// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "image_list.h"

#include <QList>
#include <QString>
#include <QToolButton>

// A push button of a tool bar, known by its key. A double click is one click.
class ToolBarButton : public QToolButton {
  Q_OBJECT

 public:
  ToolBarButton(const QString& key, QWidget* parent);

  const QString& Key() const { return key_; }

 protected:
  void mouseDoubleClickEvent(QMouseEvent* /*event*/) override {}
  void paintEvent(QPaintEvent* event) override;

 private:
  QString key_;
};

// A row of buttons that show images only, 23 by 22 pixels each; a button's key is its tool tip.
class ToolBar : public QWidget {
  Q_OBJECT

 public:
  explicit ToolBar(QWidget* parent = nullptr);

  void SetImageList(const ImageList& images) { images_ = images; }
  void AddButton(const QString& key, int image);
  void AddSeparator();

  // An Error when there is none.
  ToolBarButton& Button(const QString& key) const;

 Q_SIGNALS:
  void ButtonClick(ToolBarButton& button);

 private:
  ImageList images_;
  QList<ToolBarButton*> buttons_;
};
