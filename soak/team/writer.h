// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "connection.h"
#include "data_base_funcs.h"
#include "journal.h"

#include <QRandomGenerator>

#include <vector>

// A colleague without a window: changes the library on the data source "HCWordLib" as the window
// does, by a view of it that is as stale as a window's.
class Writer {
 public:
  Writer(const QString& name, quint32 seed);

  // One change.
  void Act();

 private:
  struct Word {
    qint32 id, fatherId;
    QString name;
  };
  struct Category {
    qint32 gid;
    QString name;
    std::vector<Word> words;
  };

  void Look();
  // `change` is what was told to the journal; what it raises is a refusal.
  template <class Change>
  bool Confirmed(const Change& change);
  void AddCategory();
  void AddWord(Category& category);
  void RenameWord(Category& category);
  void DeleteBranch(Category& category);
  void DropCategory(size_t index);
  QString FreshName();
  int Below(size_t count) { return static_cast<int>(random_.bounded(static_cast<quint32>(count))); }

  QRandomGenerator random_;
  const QString name_;
  int names_ = 0;
  int acts_ = 0;
  Connection connection_;
  DataBaseFuncs funcs_{connection_};
  Journal journal_;
  std::vector<Category> library_;  // as last looked at
};
