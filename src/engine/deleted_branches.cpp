// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "deleted_branches.h"

#include <utility>

void DeletedBranches::Keep(DeletedBranch branch) {
  if (branch.rows.IsEmpty()) return;
  words_ += branch.rows.words.size();
  branches_.push_back(std::move(branch));
  auto kept = branches_.begin();
  for (; words_ > kMostWords; ++kept) words_ -= kept->rows.words.size();
  branches_.erase(branches_.begin(), kept);
  StartOver();
}

const DeletedBranch* DeletedBranches::Next() const {
  return branches_.empty() ? nullptr : &branches_[Turn()];
}

void DeletedBranches::RemoveNext() {
  words_ -= branches_[Turn()].rows.words.size();
  branches_.erase(branches_.begin() + static_cast<ptrdiff_t>(Turn()));
  StartOver();
}

void DeletedBranches::PassOverNext() {
  passedOver_ = (passedOver_ + 1) % branches_.size();
}
