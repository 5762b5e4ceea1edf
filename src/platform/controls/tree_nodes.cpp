// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "tree_nodes.h"

#include "error.h"

#include <utility>

TreeNodes::TreeNodes() = default;

TreeNodes::~TreeNodes() {
  index_.Clear();
  if (!top_.children_) return;
  for (std::unique_ptr<Node>& node : *top_.children_) Forget(std::move(node));
}

Node& TreeNodes::Add(EntryKey relative, Relationship /*relationship*/, EntryKey key,
                     SharedText text, int image) {
  Node* parent = relative.IsNone() ? &top_ : index_.Find(relative);
  if (parent == nullptr) throw Error(QStringLiteral("找不到元素"));
  std::unique_ptr<Node> node(new Node);
  node->key = key;
  if (!index_.Insert(*node)) throw Error(QStringLiteral("集合中的关键字不唯一"));
  node->parent_ = parent;
  node->text_ = std::move(text);
  node->image_ = static_cast<qint16>(image);
  Node& added = *node;
  if (growing_ != nullptr && !growing_->top_) {
    growing_->top_ = std::move(node);
  } else {
    Hang(std::move(node), nullptr);
  }
  return added;
}

void TreeNodes::Hang(std::unique_ptr<Node> node, const Node* before) {
  Node* const parent = node->parent_;
  if (!parent->children_) {
    parent->children_ = std::make_unique<std::vector<std::unique_ptr<Node>>>();
    parent->children_->reserve(3);  // which the smallest allocation has room for
  }
  const int row = before == nullptr ? parent->Children() : before->row_;
  const bool isAnnounced = !loading_ && growing_ == nullptr;
  if (isAnnounced) {
    beginInsertRows(parent == &top_ ? QModelIndex() : IndexOf(parent), row, row);
  }
  auto& siblings = *parent->children_;
  if (before == nullptr) {
    node->row_ = row;
    siblings.push_back(std::move(node));
  } else {
    siblings.insert(siblings.begin() + row, std::move(node));
    for (size_t i = row; i < siblings.size(); ++i) siblings[i]->row_ = static_cast<qint32>(i);
  }
  if (isAnnounced) endInsertRows();
}

TreeNodes::Loading::Loading(TreeNodes& nodes) : nodes_(nodes) {
  nodes_.beginResetModel();
  nodes_.loading_ = true;
}

TreeNodes::Loading::~Loading() {
  nodes_.loading_ = false;
  nodes_.endResetModel();
}

TreeNodes::Growing::Growing(TreeNodes& nodes, const Node* before) : nodes_(nodes), before_(before) {
  nodes_.growing_ = this;
}

TreeNodes::Growing::~Growing() {
  nodes_.growing_ = nullptr;
  if (top_) nodes_.Hang(std::move(top_), before_);
}

Node& TreeNodes::Item(EntryKey key) const {
  Node* node = index_.Find(key);
  if (node == nullptr) throw Error(QStringLiteral("找不到元素"));
  return *node;
}

void TreeNodes::Remove(EntryKey key) {
  Node& node = Item(key);
  Node* parent = node.parent_;
  auto& siblings = *parent->children_;
  const int row = node.row_;
  beginRemoveRows(this->parent(IndexOf(&node)), row, row);
  std::unique_ptr<Node> removed = std::move(siblings[row]);
  siblings.erase(siblings.begin() + row);
  for (size_t i = row; i < siblings.size(); ++i) siblings[i]->row_ = static_cast<qint32>(i);
  Forget(std::move(removed));
  endRemoveRows();
}

void TreeNodes::Clear(Node& parent) {
  const auto children = std::exchange(parent.children_, nullptr);
  if (!children) return;
  for (std::unique_ptr<Node>& child : *children) Forget(std::move(child));
}

void TreeNodes::SetText(Node& node, const QString& text) {
  node.text_ = text;
  const QModelIndex index = IndexOf(&node);
  Q_EMIT dataChanged(index, index, {Qt::DisplayRole});
}

// Takes the nodes apart one by one: a chain of words can be deeper than the stack.
void TreeNodes::Forget(std::unique_ptr<Node> subtree) {
  std::vector<std::unique_ptr<Node>> nodes;
  nodes.push_back(std::move(subtree));
  while (!nodes.empty()) {
    const std::unique_ptr<Node> node = std::move(nodes.back());
    nodes.pop_back();
    index_.Remove(*node);
    if (node->children_) {
      for (std::unique_ptr<Node>& child : *node->children_) nodes.push_back(std::move(child));
    }
  }
}

QModelIndex TreeNodes::IndexOf(const Node* node) const {
  return node == nullptr ? QModelIndex() : createIndex(node->row_, 0, node);
}

Node* TreeNodes::NodeAt(const QModelIndex& index) const {
  return static_cast<Node*>(index.internalPointer());
}

QModelIndex TreeNodes::index(int row, int column, const QModelIndex& parent) const {
  const Node* node = parent.isValid() ? NodeAt(parent) : &top_;
  if (column != 0 || row < 0 || row >= node->Children()) return QModelIndex();
  return createIndex(row, column, (*node->children_)[row].get());
}

QModelIndex TreeNodes::parent(const QModelIndex& index) const {
  return index.isValid() ? IndexOf(NodeAt(index)->Parent()) : QModelIndex();
}

int TreeNodes::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? NodeAt(parent)->Children() : top_.Children();
}

int TreeNodes::columnCount(const QModelIndex& /*parent*/) const {
  return 1;
}

bool TreeNodes::hasChildren(const QModelIndex& parent) const {
  return rowCount(parent) > 0;
}

QVariant TreeNodes::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return QVariant();
  const Node& node = *NodeAt(index);
  switch (role) {
    case Qt::DisplayRole:
      return node.Text();
    case Qt::DecorationRole:
      return images_.Count() == 0 ? QVariant() : QVariant::fromValue(images_.Picture(node.image_));
    default:
      return QVariant();
  }
}

QVariant TreeNodes::headerData(int /*section*/, Qt::Orientation orientation, int role) const {
  const bool isName = orientation == Qt::Horizontal && role == Qt::DisplayRole;
  return isName && top_.Children() > 0 ? top_.Child()->Text() : QVariant();
}
