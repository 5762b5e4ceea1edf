// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "list_items.h"

#include <QCursor>
#include <QListView>

// A list of keyed items in list mode: small icons with their labels, running down and then to the
// right. Its labels are edited by program only, its items raise no event; the pointer's way over it
// does.
class ListView : public QListView {
  Q_OBJECT

 public:
  // A column of the details mode, which this program never switches to.
  struct ColumnHeader {
    QString key;
    QString caption;
    float width = 0;  // twips
    Qt::Alignment alignment = Qt::AlignLeft;
  };

  explicit ListView(QWidget* parent = nullptr);
  ~ListView() override;

  ListItems& Items() { return items_; }
  QList<ColumnHeader>& ColumnHeaders() { return columnHeaders_; }

  void SetSmallIcons(const ImageList& images);

  // The item whose picture or label is at a point in twips, null when there is none.
  const ListItem* HitTest(float x, float y) const;

  // The pointer over the list: its own one, or the platform's default.
  void SetCustomPointer(const QCursor& pointer) { customPointer_ = pointer; }
  void UsePointer(bool custom);

 Q_SIGNALS:
  // Positions in twips; buttons as in mouse.h.
  void MouseMove(int buttons, float x, float y);

 protected:
  void mouseMoveEvent(QMouseEvent* event) override;
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Measure();
  void FitItems();

  ListItems items_;
  QList<ColumnHeader> columnHeaders_;
  QCursor customPointer_;
  int widest_ = 0;  // label, in pixels
};
