// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "branch.h"

#include "data_base_funcs.h"
#include "edit_words_funcs.h"
#include "engines.h"
#include "entry_scheme.h"
#include "failing_step.h"
#include "rows.h"
#include "tree_view.h"
#include "word_tree.h"

namespace {

// A category (7) with the words 1 > (2 > 4, 3) and 5.
class BranchTest : public EngineTest {
 protected:
  void SetUp() override {
    EngineTest::SetUp();
    connection_.Execute(
        QStringLiteral("insert into Dictionary (GID,SortName,Position) values (7,'c',1)"));
    connection_.Execute(
        QStringLiteral("insert into Items (SortID,ID,FatherID,NodeName) values "
                       "(7,1,0,'1'),(7,2,1,'2'),(7,3,1,'3'),"
                       "(7,4,2,'4'),(7,5,0,'5')"));
    tree_.Nodes().Add(EntryKey(), Relationship::kChild, kRootKey, kAppTitle, kRootImage);
    funcs_.LoadCategories(tree_);
  }
  std::string Texts(const std::vector<EntryKey>& keys) const {
    std::string texts;
    for (const EntryKey key : keys) texts += tree_.Nodes().Item(key).Text().toStdString();
    return texts;
  }

  WordTree records_;
  mutable TreeView tree_;
  EditWordsFuncs funcs_{connection_, records_};
  DataBaseFuncs rows_{connection_};
};

INSTANTIATE_ON_ENGINES(BranchTest);

TEST_P(BranchTest, IsDeletedParentsFirstAsFarAsItGoes) {
  const Node& top = *tree_.Nodes().Item(kRootKey).Child()->Child();
  const std::vector<EntryKey> branch = BranchOf(top);
  EXPECT_EQ(Texts(branch), "1243");
  size_t gone = 1;
  FailStep(connection_, 1);
  EXPECT_NE(DeleteBranch(branch, records_.colTreePrptys(), rows_, gone), nullptr);
  EXPECT_EQ(gone, 0U);
  EXPECT_EQ(records_.colTreePrptys().Count(), 5);
  FailStep(connection_, 3);
  EXPECT_NE(DeleteBranch(branch, records_.colTreePrptys(), rows_, gone), nullptr);
  EXPECT_EQ(gone, 2U);
  EXPECT_EQ(records_.colTreePrptys().Count(), 1);  // nothing hangs on what is gone
  connection_.SetStepHook({});
  EXPECT_EQ(Words(connection_), "7|3|1|3\n7|4|2|4\n7|5|0|5\n");
}

TEST_P(BranchTest, APendingNodeGoesUnlessItIsKept) {
  Node& category = *tree_.Nodes().Item(kRootKey).Child();
  tree_.SetSelectedItem(category);
  for (const bool isKept : {false, true}) {
    PendingNode pending(tree_);
    funcs_.AddNode(tree_, category.Key(), QStringLiteral("new"), kWordImage, kWordTag, 1);
    if (isKept) pending.Keep();
  }
  EXPECT_EQ(tree_.SelectedItem()->Text(), QStringLiteral("new"));
  EXPECT_EQ(category.Children(), 3);
}

}  // namespace
