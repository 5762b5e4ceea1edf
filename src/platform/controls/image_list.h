// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QIcon>
#include <QList>
#include <QString>

// Pictures of one size, numbered from 1 in the order in which they were added. A picture can have
// a key, unique in the list. Copies share the pictures.
class ImageList {
 public:
  // `size` in device-independent pixels, for width and height alike.
  explicit ImageList(int size = 0) : size_(size) {}

  // Appends the picture in the file or resource `path`, drawn for every scale that it is shown at.
  void Add(const QString& path, const QString& key = QString());

  // The picture `index`, counted from 1, or that with the key; an Error when there is none.
  const QIcon& Picture(int index) const;
  const QIcon& Picture(const QString& key) const;

  int Count() const { return static_cast<int>(images_.size()); }
  int Size() const { return size_; }

 private:
  struct Image {
    QIcon icon;
    QString key;
  };

  int size_;
  QList<Image> images_;
};
