// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "shared_objects.h"

#include "connection.h"
#include "data_base_funcs.h"
#include "edit_words_funcs.h"
#include "word_tree.h"

#include <memory>

namespace {

std::unique_ptr<Connection> theConn;
std::unique_ptr<WordTree> theWordTree;
std::unique_ptr<EditWordsFuncs> theEditFuncs;
std::unique_ptr<DataBaseFuncs> theDBFuncs;

}  // namespace

Connection& TheConn() {
  if (!theConn) theConn = std::make_unique<Connection>();
  return *theConn;
}

WordTree& TheWordTree() {
  if (!theWordTree) theWordTree = std::make_unique<WordTree>();
  return *theWordTree;
}

EditWordsFuncs& TheEditFuncs() {
  if (!theEditFuncs) theEditFuncs = std::make_unique<EditWordsFuncs>(TheConn(), TheWordTree());
  return *theEditFuncs;
}

DataBaseFuncs& TheDBFuncs() {
  if (!theDBFuncs) theDBFuncs = std::make_unique<DataBaseFuncs>(TheConn());
  return *theDBFuncs;
}

void ReleaseSharedObjects() {
  theConn.reset();
  theWordTree.reset();
  theEditFuncs.reset();
  theDBFuncs.reset();
}
