// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

class Node;
class Report;
class TreeView;

// Measures what a paste into the category takes whose node this is.
void MeasurePaste(TreeView& tree, Node& category, Report& report);
