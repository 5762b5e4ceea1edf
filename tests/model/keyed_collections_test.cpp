// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "keyed_collections.h"

#include <gtest/gtest.h>

#include <string>

namespace {

EntryKey Key(int number) {
  return EntryKey::Numbered(number);
}

void AddWord(TreePrptys& words, qint32 dicId, qint32 id, int key) {
  words.Add(dicId, id, 0, QStringLiteral("词%1").arg(key), Key(key), EntryTag(), Key(0), Key(key));
}

TEST(KeyedCollections, FindAndForgetByKeyAndAFailureChangesNothing) {
  TreePrptys words;
  for (int i = 1; i <= 4; ++i) AddWord(words, 7, i, i);
  words.Add(7, 6, 0, QString(), Key(6), EntryTag(), Key(0));  // without a key
  EXPECT_THROW(AddWord(words, 8, 9, 2), Error);
  for (const EntryKey missing : {Key(6), EntryKey::Root(), EntryKey()}) {
    EXPECT_THROW(words.Item(missing), Error);
    EXPECT_THROW(words.Remove(missing), Error);
    EXPECT_THROW(words.Rename(missing, QString()), Error);
  }
  EXPECT_EQ(words.Count(), 5);
  const TreePrpty& third = words.Item(Key(3));
  words.Remove(Key(1));
  EXPECT_EQ(&words.Item(2), &third);
  AddWord(words, 7, 1, 1);  // the key is free again; a new record goes to the end
  EXPECT_TRUE(words.Rename(Key(3), QString()));
}

TEST(KeyedCollections, GetFatherKeyAnswersWithTheFirstRecordAdded) {
  TreePrptys words;
  for (int key = 1; key <= 3; ++key) AddWord(words, 7, 1, key);
  AddWord(words, 8, 1, 4);
  for (const int removed : {2, 1, 3}) {
    EntryKey found = Key(99);
    EXPECT_TRUE(words.GetFatherKey(7, 1, found));
    EXPECT_EQ(found, removed == 3 ? Key(3) : Key(1));
    words.Remove(Key(removed));
  }
  EntryKey untouched = Key(99);
  EXPECT_FALSE(words.GetFatherKey(7, 1, untouched));
  EXPECT_EQ(untouched, Key(99));
}

}  // namespace
