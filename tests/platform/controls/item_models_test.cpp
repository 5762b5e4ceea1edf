// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "error.h"
#include "list_items.h"
#include "tree_nodes.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>

namespace {

constexpr auto kFatal = QAbstractItemModelTester::FailureReportingMode::Fatal;

void Add(TreeNodes& nodes, const QString& parent, const char* keys) {
  for (const QString& key : QString::fromLatin1(keys).split(u' ')) {
    nodes.Add(parent, Relationship::kChild, key, key.toUpper(), 1);
  }
}

TEST(TreeNodes, AddsNothingWhereItFails) {
  TreeNodes nodes;
  const QAbstractItemModelTester tester(&nodes, kFatal);
  Add(nodes, QString(), "root");
  Add(nodes, QStringLiteral("root"), "a b c");
  EXPECT_THROW(Add(nodes, QStringLiteral("nobody"), "new"), Error);
  EXPECT_THROW(Add(nodes, QStringLiteral("A"), "new"), Error);
  EXPECT_THROW(Add(nodes, QStringLiteral("b"), "c"), Error);
  EXPECT_THROW(nodes.Remove(QStringLiteral("new")), Error);
  EXPECT_THROW(nodes.Item(QStringLiteral("new")), Error);
  EXPECT_EQ(nodes.Item(QStringLiteral("root")).Children(), 3);
  EXPECT_EQ(nodes.Item(QStringLiteral("b")).Child(), nullptr);
  nodes.Remove(QStringLiteral("b"));
  Add(nodes, QStringLiteral("c"), "b");  // the key is free again
  EXPECT_EQ(nodes.Item(QStringLiteral("a")).Next()->Child()->Key(), QStringLiteral("b"));
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
    if (remove) nodes.Remove(QStringLiteral("TheItem1"));
    EXPECT_EQ(nodes.Find(parent) == nullptr, remove);
  }
}

TEST(ListItems, AddsNothingUnderAKeyInUse) {
  ListItems items;
  const QAbstractItemModelTester tester(&items, kFatal);
  const auto add = [&](const char* key) { items.Add(QString::fromLatin1(key), QString(), 2, 3); };
  add("a");
  EXPECT_THROW(add("a"), Error);
  EXPECT_EQ(items.Count(), 1);
  items.Clear();
  EXPECT_THROW(items.Item(QStringLiteral("a")), Error);
  add("a");
}

}  // namespace
