// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "keyed_collections.h"

#include <memory>

// Owns the one instance of each collection. A member is created when it is first read; replacing
// it hands the ownership over.
class WordTree {
 public:
  WordTree();

  DictPrptys& colDictPrptys();
  void SetcolDictPrptys(std::unique_ptr<DictPrptys> value);

  ::DictPrpty& DictPrpty();
  void SetDictPrpty(std::unique_ptr<::DictPrpty> value);

  ::ListPrpty& ListPrpty();
  void SetListPrpty(std::unique_ptr<::ListPrpty> value);

  ::TreePrpty& TreePrpty();
  void SetTreePrpty(std::unique_ptr<::TreePrpty> value);

  ListPrptys& colListPrptys();
  void SetcolListPrptys(std::unique_ptr<ListPrptys> value);

  TreePrptys& colTreePrptys();
  void SetcolTreePrptys(std::unique_ptr<TreePrptys> value);

 private:
  // Released from the last to the first.
  std::unique_ptr<::TreePrpty> treePrpty_;
  std::unique_ptr<::ListPrpty> listPrpty_;
  std::unique_ptr<::DictPrpty> dictPrpty_;
  std::unique_ptr<TreePrptys> colTreePrptys_;
  std::unique_ptr<ListPrptys> colListPrptys_;
  std::unique_ptr<DictPrptys> colDictPrptys_;
};
