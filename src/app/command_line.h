// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

// Answers --help and --version, and refuses what is neither theirs nor Qt's, without a display and
// whether or not another instance runs: the status to end with, or nothing when the program is to
// start.
std::optional<int> AnswerCommandLine(int argc, char** argv);
