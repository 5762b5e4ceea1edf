// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

class Connection;

// The statements that make the tables of a library, with their indexes and triggers, in the data
// source's engine. Raises Error when there are none for it.
QStringList SchemaOf(const Connection& connection);
