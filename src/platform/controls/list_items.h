// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "image_list.h"
#include "key_index.h"

#include <QAbstractListModel>
#include <QString>

#include <deque>

// An item of a list view. It stays where it is in memory until the list is cleared.
class ListItem : private Keyed {
 public:
  EntryKey Key() const { return key; }
  EntryTag Tag() const { return tag_; }
  void SetTag(EntryTag tag) { tag_ = tag; }
  const QString& Text() const { return text_; }
  // The numbers of the item's pictures in the view's image lists for large and small icons.
  int Icon() const { return icon_; }
  int SmallIcon() const { return smallIcon_; }

 private:
  friend class ListItems;
  friend class KeyIndex<ListItem>;

  QString text_;
  EntryTag tag_{};
  qint16 icon_ = 0;
  qint16 smallIcon_ = 0;
};

// The items of a list view, as an item model. Items added in one go are announced together, at
// the latest when control returns to the event loop.
class ListItems : public QAbstractListModel {
  Q_OBJECT

 public:
  ~ListItems() override;

  void SetSmallIcons(const ImageList& images) { smallIcons_ = images; }

  // Appends an item. An Error when the key is in use; then nothing is added.
  ListItem& Add(EntryKey key, const QString& text, int icon, int smallIcon);
  void Clear();

  int Count() const { return static_cast<int>(items_.size()); }
  // The item at `index`, counted from 1, or that with the key; an Error when there is none.
  const ListItem& Item(int index) const;
  const ListItem& Item(EntryKey key) const;

  // Announces the items that were added since the last time.
  void Announce();

  // The texts that are candidates for the widest one.
  QStringList LongestTexts() const;

  int rowCount(const QModelIndex& parent = QModelIndex()) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

 private:
  std::deque<ListItem> items_;
  KeyIndex<ListItem> index_;
  int announced_ = 0;
  ImageList smallIcons_;
};
