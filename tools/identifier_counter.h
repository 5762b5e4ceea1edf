// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

class Connection;

// The highest identifier that the register has given to a category, whose row may be gone since; 0
// before the first one.
qint32 LastIdentifier(Connection& connection);

// Has the register give only identifiers behind `identifier` from now on. Not taken back with a
// transaction on every engine.
void RaiseLastIdentifier(Connection& connection, qint32 identifier);
