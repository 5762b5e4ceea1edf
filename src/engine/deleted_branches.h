// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "deleted_rows.h"

#include <vector>

// What a delete has taken from the library, and where it stood.
struct DeletedBranch {
  DeletedRows rows;
  qint32 previousGid = 0;  // the sibling before a category, 0 when there was none
};

// The deletes of this run that can be taken back, the last one first. One that is refused lets the
// one before it have its turn, and gets its own again afterwards.
class DeletedBranches {
 public:
  static constexpr size_t kMostWords = 1'000'000;

  // Keeps what a delete has taken, unless that is nothing. The oldest ones are dropped while there
  // are more than kMostWords words in all.
  void Keep(DeletedBranch branch);

  // The one whose turn it is, null when there is none.
  const DeletedBranch* Next() const;
  // It has been taken back, or was refused.
  void RemoveNext();
  void PassOverNext();
  // What was refused may be accepted now: the last one's turn.
  void StartOver() { passedOver_ = 0; }

 private:
  size_t Turn() const { return branches_.size() - 1 - passedOver_; }

  std::vector<DeletedBranch> branches_;
  size_t words_ = 0;
  size_t passedOver_ = 0;
};
