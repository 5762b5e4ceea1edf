// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "image_list.h"

#include "error.h"

void ImageList::Add(const QString& path, const QString& key) {
  images_.append(Image{QIcon(path), key});
}

const QIcon& ImageList::Picture(int index) const {
  if (index < 1 || index > Count()) throw Error(QStringLiteral("索引超出范围"));
  return images_.at(index - 1).icon;
}

const QIcon& ImageList::Picture(const QString& key) const {
  for (const Image& image : images_) {
    if (!key.isEmpty() && image.key == key) return image.icon;
  }
  throw Error(QStringLiteral("找不到元素"));
}
