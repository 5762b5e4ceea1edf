// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "list_items.h"

#include "error.h"

#include <QTimer>

#include <algorithm>

namespace {

// About how wide a text is, in half em: a character of East Asian writing takes a whole em.
int EstimatedWidth(const QString& text) {
  int width = 0;
  for (const QChar c : text) width += c.unicode() < 0x1100 ? 1 : 2;
  return width;
}

}  // namespace

ListItems::~ListItems() = default;

ListItem& ListItems::Add(EntryKey key, const QString& text, int icon, int smallIcon) {
  ListItem& item = items_.emplace_back();
  item.key = key;
  if (!index_.Insert(item)) {
    items_.pop_back();
    throw Error(QStringLiteral("集合中的关键字不唯一"));
  }
  item.text_ = text;
  item.icon_ = static_cast<qint16>(icon);
  item.smallIcon_ = static_cast<qint16>(smallIcon);
  if (Count() == announced_ + 1) QTimer::singleShot(0, this, &ListItems::Announce);
  return item;
}

void ListItems::Clear() {
  beginResetModel();
  index_.Clear();
  items_.clear();
  announced_ = 0;
  endResetModel();
}

const ListItem& ListItems::Item(int index) const {
  if (index < 1 || index > Count()) throw Error(QStringLiteral("索引超出范围"));
  return items_[index - 1];
}

const ListItem& ListItems::Item(EntryKey key) const {
  const ListItem* item = index_.Find(key);
  if (item == nullptr) throw Error(QStringLiteral("找不到元素"));
  return *item;
}

void ListItems::Announce() {
  if (announced_ == Count()) return;
  beginInsertRows(QModelIndex(), announced_, Count() - 1);
  announced_ = Count();
  endInsertRows();
}

QStringList ListItems::LongestTexts() const {
  constexpr size_t kCandidates = 24;
  std::vector<std::pair<int, const QString*>> texts;
  texts.reserve(items_.size());
  for (const ListItem& item : items_) texts.emplace_back(-EstimatedWidth(item.text_), &item.text_);
  const size_t count = std::min(kCandidates, texts.size());
  std::nth_element(texts.begin(), texts.begin() + static_cast<ptrdiff_t>(count), texts.end());
  QStringList longest;
  for (size_t i = 0; i < count; ++i) longest.append(*texts[i].second);
  return longest;
}

int ListItems::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : announced_;
}

QVariant ListItems::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return QVariant();
  const ListItem& item = items_[index.row()];
  switch (role) {
    case Qt::DisplayRole:
      return item.text_;
    case Qt::DecorationRole:
      return smallIcons_.Count() == 0 ? QVariant()
                                      : QVariant::fromValue(smallIcons_.Picture(item.smallIcon_));
    default:
      return QVariant();
  }
}
