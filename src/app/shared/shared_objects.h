// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

class Connection;
class DataBaseFuncs;
class EditWordsFuncs;
class WordTree;

// The objects that the whole program shares. Each is created when it is first used.
Connection& TheConn();
WordTree& TheWordTree();
EditWordsFuncs& TheEditFuncs();
DataBaseFuncs& TheDBFuncs();

// Releases those that were created, in the order above.
void ReleaseSharedObjects();
