// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>

#include <optional>

// A token that the Wayland compositor gives without any input of the user. A window that is
// activated with it is marked as wanting attention. Empty when the compositor knows no such tokens;
// none when the program would not show its windows on Wayland.
std::optional<QByteArray> RequestAttentionToken();
