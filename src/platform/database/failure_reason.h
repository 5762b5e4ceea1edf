// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

// One sentence in Chinese for what a driver reports: what happened and what to do about it. Empty
// for everything that is told best by the driver's own text, a refused row first of all.
// `message` is the text of the diagnostic record as the driver gives it.
QString FailureReason(const QString& sqlState, int nativeCode, const QString& message);
