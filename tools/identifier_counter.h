// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

class Connection;

// The last identifier that the register has counted: the next new category gets a higher one. Rows
// that were deleted count, and rows that were stored with a number of their own where the engine
// counts these. 0 before the first one.
qint32 LastIdentifier(Connection& connection);

// Has the register count on behind `identifier`, if it is not there yet. Some engines do not take
// this back with a transaction.
void RaiseLastIdentifier(Connection& connection, qint32 identifier);
