// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "connection.h"

#include <QString>

#include <functional>
#include <random>

// Fills the library of the data source with generated words, whose names have 4 to 10 Chinese
// characters. Categories are numbered from 1 in the order in which they are added, the words of
// each likewise. The same library every time.
class Library {
 public:
  Library();

  qint32 Categories() const { return categories_; }

  // What the word with the number `id` is: the number of its parent, 0 for none, and its name.
  struct Word {
    qint32 fatherId;
    QString name;
  };
  // Adds a category of `words` words in one transaction and returns its number.
  qint32 AddCategory(const QString& name, qint32 words,
                     const std::function<Word(qint32 id)>& wordOf);

  QString RandomName();

 private:
  Connection connection_;
  std::mt19937 random_{20260101};
  qint32 categories_ = 0;
};
