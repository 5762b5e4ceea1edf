// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "error.h"
#include "tree_nodes.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>

namespace {

constexpr auto kFatal = QAbstractItemModelTester::FailureReportingMode::Fatal;

EntryKey Key(int number) {
  return EntryKey::Numbered(number);
}

void Add(TreeNodes& nodes, EntryKey parent, std::initializer_list<int> keys) {
  for (const int key : keys) {
    nodes.Add(parent, Relationship::kChild, Key(key), QString::number(key), 1);
  }
}

TEST(TreeNodes, AddsNothingWhereItFails) {
  TreeNodes nodes;
  const QAbstractItemModelTester tester(&nodes, kFatal);
  Add(nodes, EntryKey(), {0});
  Add(nodes, Key(0), {1, 2, 3});
  EXPECT_THROW(Add(nodes, Key(9), {8}), Error);
  EXPECT_THROW(Add(nodes, EntryKey::Root(), {8}), Error);
  EXPECT_THROW(Add(nodes, Key(2), {3}), Error);
  EXPECT_THROW(nodes.Remove(Key(8)), Error);
  EXPECT_THROW(nodes.Item(Key(8)), Error);
  EXPECT_EQ(nodes.Item(Key(0)).Children(), 3);
  EXPECT_EQ(nodes.Item(Key(2)).Child(), nullptr);
  nodes.Remove(Key(2));
  Add(nodes, Key(3), {2});  // the key is free again
  EXPECT_EQ(nodes.Item(Key(1)).Next()->Child()->Key(), Key(2));
}

// Deeper than any recursion on the stack could go.
TEST(TreeNodes, HoldsAVeryDeepChain) {
  for (const bool remove : {true, false}) {  // the destructor takes it apart as well
    TreeNodes nodes;
    Add(nodes, EntryKey(), {0});
    constexpr int kNodes = 50'000;
    for (int i = 1; i < kNodes; ++i) Add(nodes, Key(i - 1), {i});
    if (remove) nodes.Remove(Key(1));
    EXPECT_EQ(nodes.Find(Key(kNodes - 1)) == nullptr, remove);
  }
}

}  // namespace
