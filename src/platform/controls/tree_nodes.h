// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "image_list.h"
#include "key_index.h"
#include "pool.h"
#include "shared_text.h"

#include <QAbstractItemModel>
#include <QString>

#include <memory>
#include <vector>

class TreeNodes;

// A node of a tree view, owned by its parent. It stays where it is in memory until it is removed.
class Node : private Keyed, public Pooled<Node> {
 public:
  EntryKey Key() const { return key; }
  EntryTag Tag() const { return tag_; }
  void SetTag(EntryTag tag) { tag_ = tag; }
  QString Text() const { return text_.ToString(); }
  // Until the text changes.
  QStringView TextView() const { return text_.View(); }
  // The number of the node's picture in the view's image list.
  int Image() const { return image_; }

  // The number of direct children; the first of them, the next sibling and the parent, each null
  // where there is none.
  int Children() const { return children_ ? static_cast<int>(children_->size()) : 0; }
  Node* Child() const { return Children() > 0 ? children_->front().get() : nullptr; }
  Node* Next() const { return Sibling(1); }
  Node* Previous() const { return Sibling(-1); }
  Node* Parent() const { return parent_->parent_ == nullptr ? nullptr : parent_; }

 private:
  friend class TreeNodes;
  friend class KeyIndex<Node>;
  Node() = default;

  Node* Sibling(int distance) const {
    const int row = row_ + distance;
    return row >= 0 && row < parent_->Children() ? (*parent_->children_)[row].get() : nullptr;
  }

  Node* parent_ = nullptr;
  // Null until there is a child: most nodes are leaves.
  std::unique_ptr<std::vector<std::unique_ptr<Node>>> children_;
  SharedText text_;
  qint32 row_ = 0;
  qint16 image_ = 0;
  EntryTag tag_{};
};

enum class Relationship { kChild = 4 };

// The nodes of a tree view, as an item model of one column. A node is found by its key at once,
// its row among its siblings is known.
class TreeNodes : public QAbstractItemModel {
  Q_OBJECT

 public:
  TreeNodes();
  ~TreeNodes() override;

  void SetImageList(const ImageList& images) { images_ = images; }

  // Adds a node as the last child of the node keyed `relative`, or as the last top-level node when
  // that is none. An Error when there is no such node or the key is in use; then nothing is added.
  Node& Add(EntryKey relative, Relationship relationship, EntryKey key, SharedText text, int image);

  // While it exists, added nodes are not announced one by one, which would take longer than all
  // else that is done for them, and none is removed but by Clear. At its end the views start anew:
  // all is collapsed, nothing selected.
  class Loading {
   public:
    explicit Loading(TreeNodes& nodes);
    ~Loading();
    Loading(const Loading&) = delete;
    Loading& operator=(const Loading&) = delete;

   private:
    TreeNodes& nodes_;
  };

  // While it exists, one node is added with all that hangs below it, which is announced at its end
  // as one row. That stands before the sibling `before`, or last when that is null.
  class Growing {
   public:
    Growing(TreeNodes& nodes, const Node* before);
    ~Growing();
    Growing(const Growing&) = delete;
    Growing& operator=(const Growing&) = delete;

   private:
    friend class TreeNodes;
    TreeNodes& nodes_;
    const Node* const before_;
    std::unique_ptr<Node> top_;
  };

  // An Error when there is none.
  Node& Item(EntryKey key) const;

  // Null when there is none.
  Node* Find(EntryKey key) const { return index_.Find(key); }

  // Removes the node with its whole subtree. An Error when there is none.
  void Remove(EntryKey key);

  // Removes all nodes below `parent`, while Loading only.
  void Clear(Node& parent);

  void SetText(Node& node, const QString& text);

  QModelIndex IndexOf(const Node* node) const;
  Node* NodeAt(const QModelIndex& index) const;

  QModelIndex index(int row, int column, const QModelIndex& parent = QModelIndex()) const override;
  QModelIndex parent(const QModelIndex& index) const override;
  int rowCount(const QModelIndex& parent = QModelIndex()) const override;
  int columnCount(const QModelIndex& parent = QModelIndex()) const override;
  bool hasChildren(const QModelIndex& parent = QModelIndex()) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  // The column is called as the first top-level node.
  QVariant headerData(int section, Qt::Orientation orientation,
                      int role = Qt::DisplayRole) const override;

 private:
  // Hangs the node on its parent, before `before` or as the last child when that is null.
  void Hang(std::unique_ptr<Node> node, const Node* before);
  void Forget(std::unique_ptr<Node> subtree);

  // The invisible parent of the top-level nodes.
  Node top_;
  KeyIndex<Node> index_;
  bool loading_ = false;
  Growing* growing_ = nullptr;
  ImageList images_;
};
