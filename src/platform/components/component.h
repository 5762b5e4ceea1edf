// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "guid_gen.h"

#include <QString>

#include <memory>

// The ProgID of the identifier generator.
inline constexpr char kGUIDGenProgId[] = "HCPLANGUIDDev.GUIDGen";

// The description of the error that a component which cannot be created is reported with.
QString CannotCreateObjectText();

// Creates the component registered under `progId`: loads the shared library lib<progId>.so, which
// stands beside the program or in the library folder of its installation, and asks it for an
// instance. Raises Error with CannotCreateObjectText() when there is none.
std::unique_ptr<GUIDGen> CreateComponent(const QString& progId);
