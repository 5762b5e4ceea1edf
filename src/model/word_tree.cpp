// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "word_tree.h"

#include <utility>

namespace {

template <class T>
T& CreatedAtFirstUse(std::unique_ptr<T>& member) {
  if (!member) member = std::make_unique<T>();
  return *member;
}

}  // namespace

WordTree::WordTree() : dictPrpty_(std::make_unique<::DictPrpty>()) {}

DictPrptys& WordTree::colDictPrptys() {
  return CreatedAtFirstUse(colDictPrptys_);
}
void WordTree::SetcolDictPrptys(std::unique_ptr<DictPrptys> value) {
  colDictPrptys_ = std::move(value);
}

::DictPrpty& WordTree::DictPrpty() {
  return CreatedAtFirstUse(dictPrpty_);
}
void WordTree::SetDictPrpty(std::unique_ptr<::DictPrpty> value) {
  dictPrpty_ = std::move(value);
}

::ListPrpty& WordTree::ListPrpty() {
  return CreatedAtFirstUse(listPrpty_);
}
void WordTree::SetListPrpty(std::unique_ptr<::ListPrpty> value) {
  listPrpty_ = std::move(value);
}

::TreePrpty& WordTree::TreePrpty() {
  return CreatedAtFirstUse(treePrpty_);
}
void WordTree::SetTreePrpty(std::unique_ptr<::TreePrpty> value) {
  treePrpty_ = std::move(value);
}

ListPrptys& WordTree::colListPrptys() {
  return CreatedAtFirstUse(colListPrptys_);
}
void WordTree::SetcolListPrptys(std::unique_ptr<ListPrptys> value) {
  colListPrptys_ = std::move(value);
}

TreePrptys& WordTree::colTreePrptys() {
  return CreatedAtFirstUse(colTreePrptys_);
}
void WordTree::SetcolTreePrptys(std::unique_ptr<TreePrptys> value) {
  colTreePrptys_ = std::move(value);
}
