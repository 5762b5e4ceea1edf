// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

class Report;
class TreeView;

// Finds in the tree of the active window, key by key, and by typing in the tree itself.
void MeasureFind(TreeView& tree, Report& report);
