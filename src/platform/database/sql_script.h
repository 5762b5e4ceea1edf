// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

// The statements of a script, without the lines that begin with "--". A statement ends with a
// semicolon before an empty line or the end; those in a trigger's body stand before its next line.
QStringList StatementsOf(const QString& script);
