// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <vector>

// Something wrong with a library, told in one line.
struct Fault {
  QString text;
  QString mend;  // what is done about it; empty where nothing can be done without a person
};

using Faults = std::vector<Fault>;
