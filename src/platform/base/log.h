// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QLoggingCategory>

// What the program has to say on standard error to whoever looks after it, in Chinese.
Q_DECLARE_LOGGING_CATEGORY(lcHCWordLib)
