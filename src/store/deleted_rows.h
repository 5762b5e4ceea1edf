// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "library.h"

#include <QString>

#include <optional>
#include <vector>

// The rows that a delete takes away.
struct DeletedRows {
  struct Category {
    QString name;
    qint32 position = 0;
  };

  qint32 gid = 0;                    // the category's, whether its own row is among them or not
  std::optional<Category> category;  // its own row
  qint32 topId = 0;                  // the word whose branch it is; 0 for a category
  std::vector<WordRow> words;        // by ID

  bool IsEmpty() const { return !category && words.empty(); }
  // The name of the category or of the branch's word, empty when its row is not among them.
  QString Name() const;
};

// What is stored of a category with all its words, or of the words `branch` of a category, whose
// first one is the branch's top. Raise DatabaseError.
DeletedRows CategoryRows(Connection& connection, qint32 gid);
DeletedRows BranchRows(Connection& connection, qint32 gid, const std::vector<qint32>& branch);

// Leaves out what is still stored, where a category's delete has failed half-way.
void LeaveOutStored(Connection& connection, DeletedRows& rows);

// Stores the rows again with the identifiers, numbers, positions and names that they had. Returns
// why not, when somebody has used one of the numbers or names since or what the branch hung on is
// gone; empty when all are stored, and `stored` has all words of the category by ID. Raises
// DatabaseError when the database fails. Nothing is stored but all together.
QString PutBack(Connection& connection, const DeletedRows& rows, std::vector<WordRow>& stored);
