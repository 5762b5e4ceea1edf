// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "get_guid.h"

#include <QString>

#include <memory>

class Connection;
class Recordset;

// The selector Sel of the record operations.
inline constexpr qint32 kSelCategory = 1;
inline constexpr qint32 kSelWord = 2;

// The window's only writer of the library's tables. Sel is 1 for a category and 2 for a word;
// DictID is the category's GID. What is not said to be reported otherwise is raised as
// DatabaseError.
class DataBaseFuncs {
 public:
  // Writes through `connection`, which must outlive this object.
  explicit DataBaseFuncs(Connection& connection) : connection_(connection) {}

  // Stores a category behind all others and hands back the position and the GID given to it. False,
  // with the reason and nothing stored, when no identifier could be drawn. Raises Error when the
  // positions are used up.
  bool AddDict(const QString& SortName, qint32& Position, qint32& TheNewItemID,
               QString* RetTheErr = nullptr);

  // What the tables hold before the first of many AddDict in one transaction, which reads it for
  // all of them. To be dropped when one fails.
  struct DictRows {
    std::unique_ptr<Recordset> identifiers;
    std::unique_ptr<Recordset> categories;
  };
  bool AddDict(const QString& SortName, DictRows& rows, qint32& Position, qint32& TheNewItemID,
               QString* RetTheErr);

  // Stores a word under the word ParentID, or directly under the category when that is 0, and hands
  // back the ID given to it. Raises Error when the category's numbers are used up.
  bool AddItem(const QString& NodeName, qint32 DictID, qint32& RetID, qint32 ParentID);

  // True also when there is no such row.
  bool UpdateItem(const QString& NewName, qint32 Sel, qint32 DictID, qint32 ID = 0);

  // Deletes a category with all its words, or one word without the words below it. True also when
  // there is no such row.
  bool DeleteItem(qint32 Sel, qint32 DictID, qint32 ID = 0);

 private:
  Connection& connection_;
  GetGUID getGUID_;
};
