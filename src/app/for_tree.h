// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

class ImageList;
class ListView;
class TreeView;

// Set up the two browsing controls with their pictures.
void InitTreeView(TreeView& TheTree, const ImageList& TheImages);
void InitListView(ListView& TheList, const ImageList& TheImages);
