// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QList>

#include <functional>

// The fewest of `acts` that still fail, found by leaving out ever smaller runs of them (Zeller and
// Hildebrandt, "Simplifying and Isolating Failure-Inducing Input", 2002). `fails` runs a session
// of some of the acts.
QList<int> Shrunk(QList<int> acts, const std::function<bool(const QList<int>&)>& fails);
