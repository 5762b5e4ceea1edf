// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "list_view.h"

#include "mouse.h"
#include "tree_item_delegate.h"
#include "twips.h"

#include <QEvent>
#include <QMouseEvent>

namespace {

// Every item has the same size, so that a list of a hundred thousand is laid out at once.
class ListItemDelegate : public TreeItemDelegate {
 public:
  explicit ListItemDelegate(QObject* parent) : TreeItemDelegate(parent) { SetHideSelection(false); }

  void SetSize(const QSize& size) { size_ = size; }
  QSize sizeHint(const QStyleOptionViewItem& /*option*/,
                 const QModelIndex& /*index*/) const override {
    return size_;
  }

 private:
  QSize size_;
};

constexpr int kIconSize = 16;
// The least width, in pixels, that long labels get in a narrow list.
constexpr int kLeastWidth = 160;

}  // namespace

ListView::ListView(QWidget* parent) : QListView(parent) {
  setItemDelegate(new ListItemDelegate(this));
  setModel(&items_);
  setViewMode(ListMode);
  setFlow(TopToBottom);
  setWrapping(true);
  setResizeMode(Adjust);
  setUniformItemSizes(true);
  setEditTriggers(NoEditTriggers);
  setSelectionMode(SingleSelection);
  setHorizontalScrollMode(ScrollPerPixel);
  setIconSize(QSize(kIconSize, kIconSize));
  setTextElideMode(Qt::ElideRight);
  setMouseTracking(true);
  connect(&items_, &QAbstractItemModel::rowsInserted, this, &ListView::Measure);
  Measure();
}

ListView::~ListView() {
  setModel(nullptr);
}

void ListView::SetSmallIcons(const ImageList& images) {
  items_.SetSmallIcons(images);
}

const ListItem* ListView::HitTest(float x, float y) const {
  const QPoint point(TwipsToPixels(x), TwipsToPixels(y));
  const QModelIndex index = indexAt(point);
  if (!index.isValid()) return nullptr;
  const ListItem& item = items_.Item(index.row() + 1);
  const auto* const delegate = static_cast<const TreeItemDelegate*>(itemDelegate());
  const QRect shown = delegate->ItemRect(visualRect(index), fontMetrics(), item.Text());
  return shown.contains(point) ? &item : nullptr;
}

void ListView::UsePointer(bool custom) {
  if (custom) {
    viewport()->setCursor(customPointer_);
  } else {
    viewport()->unsetCursor();
  }
}

void ListView::mouseMoveEvent(QMouseEvent* event) {
  QListView::mouseMoveEvent(event);
  Q_EMIT MouseMove(MouseButtonsDown(event->buttons()),
                   PixelsToTwips(event->position().toPoint().x()),
                   PixelsToTwips(event->position().toPoint().y()));
}

void ListView::changeEvent(QEvent* event) {
  QListView::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) Measure();
}

void ListView::resizeEvent(QResizeEvent* event) {
  FitItems();
  QListView::resizeEvent(event);
}

void ListView::Measure() {
  widest_ = 0;
  for (const QString& text : items_.LongestTexts()) {
    widest_ = qMax(widest_, fontMetrics().horizontalAdvance(text));
  }
  FitItems();
}

// As wide as the widest label asks, if the list is; a longer one ends in an ellipsis.
void ListView::FitItems() {
  const int room = qMax(maximumViewportSize().width(), kLeastWidth);
  const QSize size(qMin(widest_ + kIconSize + 30, room),
                   qMax(kIconSize, fontMetrics().height()) + 4);
  static_cast<ListItemDelegate*>(itemDelegate())->SetSize(size);
  scheduleDelayedItemsLayout();
}
