// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "log.h"

Q_LOGGING_CATEGORY(lcHCWordLib, "hcwordlib")
