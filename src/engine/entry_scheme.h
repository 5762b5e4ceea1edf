// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "entry_key.h"

#include <QString>

// The scheme by which the entries of the tree and the list are told apart.

// The application's title: caption of the main window, text of the root node and of its tag.
inline const QString kAppTitle = QStringLiteral("衡川词句库");
inline constexpr EntryKey kRootKey = EntryKey::Root();

// The tags of the root's node, of a category's and of a word's node and list item.
inline constexpr EntryTag kRootTag{1};
inline constexpr EntryTag kCategoryTag{2};
inline constexpr EntryTag kWordTag{3};

inline QString TagText(EntryTag tag) {
  switch (tag) {
    case kRootTag:
      return kAppTitle;
    case kCategoryTag:
      return QStringLiteral("分类条目");
    case kWordTag:
      return QStringLiteral("分类词");
    default:
      return QString();
  }
}

// Pictures of the image list imlTreeIcons.
inline constexpr int kRootImage = 1;
inline constexpr int kCategoryImage = 2;
inline constexpr int kWordImage = 3;
