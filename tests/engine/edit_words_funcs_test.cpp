// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "edit_words_funcs.h"

#include "engines.h"
#include "entry_scheme.h"
#include "error.h"
#include "recordset.h"
#include "statements.h"
#include "tree_view.h"
#include "word_tree.h"

#include <QAbstractItemModelTester>

#include <string>
#include <utility>
#include <vector>

namespace {

// An empty library and a tree that holds the root.
class EditWordsFuncsTest : public EngineTest {
 protected:
  void SetUp() override {
    EngineTest::SetUp();
    tree_.SetSelectedItem(
        tree_.Nodes().Add(EntryKey(), Relationship::kChild, kRootKey, kAppTitle, kRootImage));
  }

  void StoreCategories(const QString& rows) {
    connection_.Execute("insert into Dictionary (GID,Position,SortName) values " + rows);
  }
  void StoreWords(const QString& rows) {
    DropGuards();
    connection_.Execute("insert into Items (SortID,ID,FatherID,NodeName) values " + rows);
  }

  // A line for each node that was loaded, indented by its level: its key, its text, its record's
  // identifiers.
  std::string Load() {
    Recordset categories;
    categories.Open(Statement::SelectCategories(), connection_, CursorType::kKeyset,
                    LockType::kUnspecified);
    EXPECT_EQ(funcs_.OpenAddNodes(tree_, categories), categories.RecordCount() > 0);
    return Below(tree_.Nodes().Item(kRootKey), 0);
  }
  std::string Below(const Node& parent, int level) {
    std::string text;
    for (const Node* node = parent.Child(); node != nullptr; node = node->Next()) {
      const EntryKey key = node->Key();
      const QString name = node->Text();
      QString ids;
      if (level == 0) {
        const DictPrpty& record = wordTree_.colDictPrptys().Item(key);
        EXPECT_EQ(record.NodeName(), name);
        ids = QStringLiteral("%1 at %2").arg(record.DicID()).arg(record.Position());
      } else {
        const TreePrpty& record = wordTree_.colTreePrptys().Item(key);
        EXPECT_TRUE(record.NodeName() == name && record.FatherKey() == parent.Key());
        ids =
            QStringLiteral("%1 %2 %3").arg(record.DicID()).arg(record.ID()).arg(record.FatherID());
      }
      const QString indent(qsizetype{2} * level, u' ');
      const QString shown = name.size() > 20 ? QStringLiteral("long") : name;
      const QString line = indent + key.Text() + u' ' + shown + u' ' + ids + u'\n';
      text += line.toStdString() + Below(*node, level + 1);
    }
    return text;
  }

  WordTree wordTree_;
  TreeView tree_;
  const QAbstractItemModelTester tester_{tree_.model(),
                                         QAbstractItemModelTester::FailureReportingMode::Fatal};
  EditWordsFuncs funcs_{connection_, wordTree_};
};

INSTANTIATE_ON_ENGINES(EditWordsFuncsTest);

TEST_P(EditWordsFuncsTest, LoadsWhatItCanOfOddRows) {
  EXPECT_EQ(Load(), "");
  const QString longName(4000, u'长');
  StoreCategories(
      QStringLiteral("(-5,-1,''),(7,2147483647,'%1'),(2147483647,-2147483648,' ''a\"\\%_;--')")
          .arg(longName));
  StoreWords(QStringLiteral("(-5,-2147483648,0,''),(-5,-3,-2147483648,'%1'),(-5,4,-3,'𠮷'),"
                            "(7,1,0,'A'),(7,2,99,'no parent'),(7,3,5,'parent comes later'),"
                            "(7,4,4,'its own parent'),(7,5,2,'below a skipped one'),(7,6,1,'B'),"
                            "(7,7,-3,'another category''s'),(8,20,0,'of no category'),"
                            "(2147483647,20,0,'A')")
                 .arg(longName));
  EXPECT_EQ(Load(), R"(TheItem0  -5 at -1
  TheItem1  -5 -2147483648 0
    TheItem2 long -5 -3 -2147483648
      TheItem3 𠮷 -5 4 -3
TheItem4 long 7 at 2147483647
  TheItem5 A 7 1 0
    TheItem6 B 7 6 1
TheItem7  'a"\%_;-- 2147483647 at -2147483648
  TheItem8 A 2147483647 20 0
)");
  QString skipped;
  for (const auto& word : funcs_.SkippedWords()) {
    skipped += QStringLiteral("%1 %2 %3, ").arg(word.DictID).arg(word.ID).arg(word.FatherID);
  }
  EXPECT_EQ(skipped.toStdString(), "7 2 99, 7 3 5, 7 4 4, 7 5 2, 7 7 -3, ");
  EXPECT_EQ(wordTree_.colTreePrptys().Count(), 6);
}

TEST_P(EditWordsFuncsTest, FindsTheFirstFreeDefaultName) {
  const auto named = [](const char* base, int number) {
    return QString::fromUtf8(base) + (number == 0 ? QString() : QString::number(number));
  };
  // The numbers behind the names that exist, 0 for none, and that of the name that is found.
  const std::pair<std::vector<int>, int> cases[] = {
      {{}, 0},     {{2}, 0},    {{1}, 0},    {{0}, 2},
      {{0, 1}, 2}, {{0, 2}, 3}, {{0, 3}, 2}, {{5, 4, 3, 2, 0}, 6},
  };
  for (const auto& [taken, free] : cases) {
    MakeEmptyLibrary(GetParam(), connection_);
    StoreWords(QStringLiteral("(8,1,0,'新加词'),(8,2,0,'新加词2')"));
    int id = 0;
    for (const int number : taken) {
      ++id;
      StoreCategories(QStringLiteral("(%1,%1,'%2')").arg(id).arg(named("新建条目", number)));
      const QString word = QStringLiteral("(7,%1,%2,'%3')").arg(id).arg(id - 1);  // nested
      StoreWords(word.arg(named("新加词", number)));
    }
    EXPECT_EQ(funcs_.TreeDictNewName(), named("新建条目", free));
    EXPECT_EQ(funcs_.TreeWordNewName(7), named("新加词", free));
    EXPECT_EQ(funcs_.TreeWordNewName(9), named("新加词", 0));
  }
}

}  // namespace
