// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "error.h"
#include "list_items.h"
#include "tree_nodes.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

#include <string>

namespace {

constexpr auto kFatal = QAbstractItemModelTester::FailureReportingMode::Fatal;

void Add(TreeNodes& nodes, const QString& parent, const char* keys) {
  for (const QString& key : QString::fromLatin1(keys).split(u' ')) {
    nodes.Add(parent, Relationship::kChild, key, key.toUpper(), 1);
  }
}

// The tree as text, "a(b c(d))", after every node was held against its row, its parent, its
// siblings and its key.
std::string Audit(const TreeNodes& nodes, const QModelIndex& parent = QModelIndex()) {
  std::string text;
  for (int row = 0; row < nodes.rowCount(parent); ++row) {
    const QModelIndex index = nodes.index(row, 0, parent);
    const Node* node = nodes.NodeAt(index);
    const std::string key = node->Key().toStdString();
    EXPECT_EQ(nodes.IndexOf(node), index) << key;
    EXPECT_EQ(nodes.parent(index), parent) << key;
    EXPECT_EQ(nodes.Find(node->Key()), node) << key;
    EXPECT_EQ(node->Parent(), nodes.NodeAt(parent)) << key;
    EXPECT_EQ(node->Next(), nodes.NodeAt(nodes.index(row + 1, 0, parent))) << key;
    EXPECT_EQ(node->Previous(), nodes.NodeAt(nodes.index(row - 1, 0, parent))) << key;
    EXPECT_EQ(node->Child(), nodes.NodeAt(nodes.index(0, 0, index))) << key;
    EXPECT_EQ(node->Children(), nodes.rowCount(index)) << key;
    const std::string below = Audit(nodes, index);
    text += (row == 0 ? "" : " ") + key + (below.empty() ? "" : "(" + below + ")");
  }
  return text;
}

TEST(TreeNodes, KeepsEveryRowThroughInsertionsRemovalsAndFailures) {
  TreeNodes nodes;
  const QAbstractItemModelTester tester(&nodes, kFatal);
  Add(nodes, QString(), "root");
  Add(nodes, QStringLiteral("root"), "a b c");
  Add(nodes, QStringLiteral("a"), "a1 a2 a3");
  Add(nodes, QStringLiteral("a2"), "a2x");
  EXPECT_EQ(Audit(nodes), "root(a(a1 a2(a2x) a3) b c)");
  EXPECT_THROW(Add(nodes, QStringLiteral("nobody"), "new"), Error);
  EXPECT_THROW(Add(nodes, QStringLiteral("A"), "new"), Error);
  EXPECT_THROW(Add(nodes, QStringLiteral("b"), "a2x"), Error);
  EXPECT_THROW(Add(nodes, QString(), "root"), Error);
  EXPECT_THROW(nodes.Remove(QStringLiteral("new")), Error);
  EXPECT_THROW(nodes.Item(QStringLiteral("new")), Error);
  EXPECT_EQ(Audit(nodes), "root(a(a1 a2(a2x) a3) b c)");

  Node* a3 = nodes.Find(QStringLiteral("a3"));
  nodes.Remove(QStringLiteral("a2"));
  Add(nodes, QStringLiteral("c"), "a2x new");  // these keys are free
  Add(nodes, QStringLiteral("a"), "a4");
  nodes.Remove(QStringLiteral("b"));
  EXPECT_EQ(Audit(nodes), "root(a(a1 a3 a4) c(a2x new))");
  EXPECT_EQ(nodes.Find(QStringLiteral("a3")), a3);
  nodes.SetText(*a3, QStringLiteral("车削"));
  EXPECT_EQ(nodes.IndexOf(a3).data().toString(), QStringLiteral("车削"));
  nodes.Remove(QStringLiteral("root"));
  EXPECT_EQ(Audit(nodes), "");
}

// Deeper than any recursion on the stack could go.
TEST(TreeNodes, HoldsAVeryDeepChain) {
  for (const bool remove : {true, false}) {  // the destructor takes it apart as well
    TreeNodes nodes;
    QString parent;
    for (int i = 0; i < 50'000; ++i) {
      const QString key = QStringLiteral("TheItem%1").arg(i);
      nodes.Add(parent, Relationship::kChild, key, key, 1);
      parent = key;
    }
    if (!remove) continue;
    nodes.Remove(QStringLiteral("TheItem1"));
    EXPECT_EQ(Audit(nodes), "TheItem0");
    EXPECT_EQ(nodes.Find(parent), nullptr);
  }
}

TEST(ListItems, AnnouncesWhatWasAddedOnce) {
  ListItems items;
  const QAbstractItemModelTester tester(&items, kFatal);
  QSignalSpy announced(&items, &QAbstractItemModel::rowsInserted);
  const auto add = [&items](const char* key) {
    items.Add(QString::fromLatin1(key), QString::fromLatin1(key).toUpper(), 2, 3);
  };
  const auto shown = [&items] {
    QString texts;
    for (int row = 0; row < items.rowCount(); ++row) texts += items.index(row).data().toString();
    return texts.toStdString();
  };
  add("x");
  items.Clear();
  for (const char* key : {"b", "a"}) add(key);
  ASSERT_TRUE(QTest::qWaitFor([&] { return shown() == "BA"; }));
  add("c");
  EXPECT_THROW(add("a"), Error);
  ASSERT_TRUE(QTest::qWaitFor([&] { return shown() == "BAC"; }));
  EXPECT_EQ(announced.count(), 2);
  items.Clear();
  EXPECT_THROW(items.Item(QStringLiteral("a")), Error);
  EXPECT_THROW(items.Item(1), Error);
  add("a");
  items.Announce();
  EXPECT_EQ(shown(), "A");
}

}  // namespace
