// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

// The scheme by which the entries of the tree and the list are told apart.

// The application's title: caption of the main window, text and tag of the root node.
inline const QString kAppTitle = QStringLiteral("衡川词句库");
inline const QString kRootKey = QStringLiteral("HCWLIBTitle");

// The tags of a category's and of a word's node and list item.
inline const QString kCategoryTag = QStringLiteral("分类条目");
inline const QString kWordTag = QStringLiteral("分类词");

// Pictures of the image list imlTreeIcons.
inline constexpr int kRootImage = 1;
inline constexpr int kCategoryImage = 2;
inline constexpr int kWordImage = 3;
