// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "deleted_branches.h"

#include <gtest/gtest.h>

namespace {

TEST(DeletedBranchesTest, TheOldestOnesAreDroppedForTheSakeOfMemory) {
  DeletedBranches deletes;
  const auto keep = [&deletes](qint32 gid, size_t words) {
    deletes.Keep({{gid, DeletedRows::Category{}, 0, std::vector<WordRow>(words)}});
  };
  keep(1, 2);
  keep(2, DeletedBranches::kMostWords - 2);
  keep(3, 1);
  for (const qint32 gid : {3, 2}) {
    EXPECT_EQ(deletes.Next()->rows.gid, gid);
    deletes.RemoveNext();
  }
  EXPECT_EQ(deletes.Next(), nullptr);
  keep(5, DeletedBranches::kMostWords + 1);
  EXPECT_EQ(deletes.Next(), nullptr);
}

}  // namespace
