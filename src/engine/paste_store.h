// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "data_base_funcs.h"
#include "deleted_rows.h"
#include "outline.h"

#include <QHash>
#include <QString>

#include <optional>
#include <vector>

class Connection;
class WordTree;

// Stores a pasted outline in one transaction, as far as it goes, and tells what has come in. It
// shows nothing, and looks into the records only for what is shown already.
class PasteStore {
 public:
  // `outline` must outlive this object.
  PasteStore(const Outline& outline, Connection& connection, DataBaseFuncs& funcs,
             WordTree& records);

  // As categories with their words, or all as words below the word `fatherId` of the category
  // `dicId`, directly below that when it is 0.
  void StoreCategories();
  void StoreWords(qint32 dicId, qint32 fatherId);

  // A category and its new words, in the order of their numbers.
  struct Category {
    qint32 gid;
    std::optional<qint32> position;  // of a new category
    QString name;
    std::vector<WordRow> words;
  };
  const std::vector<Category>& Stored() const { return stored_; }
  qsizetype Skipped() const;
  const std::optional<LineRemark>& Failure() const { return failure_; }

 private:
  // An entry that has a name already.
  struct Owner {
    qint32 id;
    qint32 fatherId;
    bool isNew;
  };

  template <class Store>
  void InTransaction(Store store);
  bool Add(const OutlineCategory& category, QHash<QString, Owner>& taken,
           DataBaseFuncs::DictRows& dictRows);
  bool Add(const std::vector<OutlineWord>& words, qint32 fatherId, Category& category);
  bool Reaches(int line);
  bool IsShown(qint32 dicId, const QString& name, const Owner& owner) const;

  const Outline& outline_;
  Connection& connection_;
  DataBaseFuncs& funcs_;
  WordTree& records_;
  std::vector<Category> stored_;
  std::vector<int> skippedLines_;
  std::optional<LineRemark> failure_;
};
