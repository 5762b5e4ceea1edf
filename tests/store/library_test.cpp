// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "library.h"

#include "engines.h"

namespace {

using LibraryTest = EngineTest;
INSTANTIATE_ON_ENGINES(LibraryTest);

TEST_P(LibraryTest, AnswersForTheRightTableAndCategory) {
  connection_.Execute(QStringLiteral(
      "insert into Dictionary (GID,SortName,Position) values (7,'车''削',1),(9,'b',2)"));
  connection_.Execute(
      QStringLiteral("insert into Items (SortID,ID,FatherID,NodeName) values (7,1,0,'粗车')"));
  EXPECT_TRUE(IsCategoryNameTaken(connection_, QStringLiteral("车'削")));
  EXPECT_FALSE(IsCategoryNameTaken(connection_, QStringLiteral("粗车")));
  EXPECT_TRUE(IsWordNameTaken(connection_, QStringLiteral("粗车"), 7));
  EXPECT_FALSE(IsWordNameTaken(connection_, QStringLiteral("粗车"), 9));
  EXPECT_TRUE(IsCategoryStored(connection_, 9));
  EXPECT_FALSE(IsCategoryStored(connection_, 8));
  connection_.Close();
  EXPECT_TRUE(IsCategoryStored(connection_, 8));  // cannot tell
}

}  // namespace
