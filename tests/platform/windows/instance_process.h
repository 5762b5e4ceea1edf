// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

// What this test program does when it is started as an instance; the exit status. It says "first"
// or "second". The first then waits for a line on its input, as if it were loading, and serves. As
// a "parent" it starts a child that outlives it instead, and waits to be killed.
int RunInstance(int argc, char** argv);
