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

// The numbers in the records' keys, in their order.
std::string Keys(const TreePrptys& words) {
  QString keys;
  for (qint32 i = 1; i <= words.Count(); ++i) keys += words.Item(i).NodeKey().Text().mid(7);
  return keys.toStdString();
}

// The number in the word's node key, "" when there is no such word.
std::string FatherKey(const TreePrptys& words, qint32 dicId, qint32 id) {
  EntryKey key = Key(99);
  if (words.GetFatherKey(dicId, id, key)) return key.Text().mid(7).toStdString();
  EXPECT_EQ(key, Key(99));
  return "";
}

TEST(KeyedCollections, FindsByKeyAndPositionAndAFailureChangesNothing) {
  TreePrptys words;
  for (int i = 1; i <= 5; ++i) AddWord(words, 7, i, i);
  words.Add(7, 6, 0, QString(), Key(6), EntryTag(), Key(0));  // without a key
  EXPECT_THROW(words.Add(8, 9, 0, QString(), Key(7), EntryTag(), Key(0), Key(2)), Error);
  for (const EntryKey missing : {Key(6), EntryKey::Root(), EntryKey()}) {
    EXPECT_THROW(words.Item(missing), Error);
    EXPECT_THROW(words.Remove(missing), Error);
    EXPECT_THROW(words.Rename(missing, QString()), Error);
  }
  for (const qint32 missing : {-1, 0, 7}) {
    EXPECT_THROW(words.Item(missing), Error);
    EXPECT_THROW(words.Remove(missing), Error);
  }
  EXPECT_EQ(Keys(words), "123456");
  EXPECT_EQ(FatherKey(words, 8, 9), "");

  const TreePrpty& third = words.Item(Key(3));
  words.Remove(Key(1));
  words.Remove(5);
  words.Remove(Key(4));
  EXPECT_EQ(Keys(words), "235");
  EXPECT_EQ(&words.Item(2), &third);
  AddWord(words, 7, 4, 4);  // the key is free again; a new record goes to the end
  words.Remove(1);
  EXPECT_TRUE(words.Rename(Key(5), QString()));
  EXPECT_EQ(words.Item(Key(5)).NodeName(), QString());
  EXPECT_EQ(words.Item(Key(4)).NodeName(), QStringLiteral("词4"));
  EXPECT_EQ(Keys(words), "354");
}

TEST(KeyedCollections, GetFatherKeyAnswersWithTheFirstRecordAdded) {
  TreePrptys words;
  int key = 0;
  for (const auto& [dicId, id] : {std::pair(7, 1), {8, 1}, {7, 1}, {-7, -1}, {7, 1}}) {
    AddWord(words, dicId, id, ++key);
  }
  EXPECT_EQ(FatherKey(words, 8, 1) + FatherKey(words, -7, -1) + FatherKey(words, 7, -1), "24");
  const std::pair<int, const char*> removals[] = {{3, "1"}, {1, "5"}, {5, ""}};
  for (const auto& [removed, first] : removals) {
    words.Remove(Key(removed));
    EXPECT_EQ(FatherKey(words, 7, 1), first);
  }
}

}  // namespace
