// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "entry_key.h"
#include "name_pattern.h"

#include <QObject>

#include <vector>

class FindField;
class Node;
class TreeView;

// Finding in a tree, over all of its nodes, also the folded ones: the field at its lower edge, the
// keys that open it and go on, and a lens in the tree's corner. What is found is selected as the
// keyboard selects. A search reads every name once.
class TreeFind : public QObject {
  Q_OBJECT

 public:
  explicit TreeFind(TreeView& tree);

  // Ends label editing first, as leaving it does; stays closed when that is refused.
  void Open();
  void Close();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void PrepareReadings();
  const Node* First() const;
  void TextChanged();
  void Collect();
  // The tree's names are others than those that were read.
  void Outdate();
  // The place in `matches_` of the first one at or behind the node, their number when there is
  // none.
  size_t PlaceOf(const Node& node) const;
  void Go(bool forward);
  void Select(size_t place);
  void ShowFound();

  TreeView& tree_;
  FindField* field_;
  NamePattern pattern_;
  QString searched_;  // the text of it
  // In the tree's order.
  std::vector<EntryKey> matches_;
  bool outdated_ = false;
  bool hasReadings_ = false;
};
