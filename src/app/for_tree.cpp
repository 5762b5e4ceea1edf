// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "for_tree.h"

#include "list_view.h"
#include "tree_view.h"
#include "twips.h"

void InitTreeView(TreeView& TheTree, const ImageList& TheImages) {
  TheTree.SetHideSelection(false);
  TheTree.SetHotTracking(true);
  TheTree.SetLineStyle(LineStyle::kRootLines);
  TheTree.SetLabelEdit(LabelEdit::kAutomatic);
  TheTree.SetIndentation(0);
  TheTree.SetImageList(TheImages);
}

void InitListView(ListView& TheList, const ImageList& TheImages) {
  // The list mode, which the view never leaves, shows the small icons only.
  TheList.SetSmallIcons(TheImages);
  TheList.setEditTriggers(QAbstractItemView::NoEditTriggers);
  TheList.ColumnHeaders().append({QStringLiteral("Head1"), QStringLiteral("名  称"),
                                  PixelsToTwips(TheList.width()), Qt::AlignLeft});
}
