// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QPalette>

// A colour as the program writes it: a system colour, &H80000000 plus its index, or plain RGB with
// red in the lowest byte.
using OleColor = quint32;

inline constexpr OleColor kWindowBackground = 0x80000005;
inline constexpr OleColor kWindowFrame = 0x80000006;
inline constexpr OleColor kCaptionText = 0x80000009;
inline constexpr OleColor kInactiveBorder = 0x8000000B;
inline constexpr OleColor kApplicationWorkspace = 0x8000000C;
inline constexpr OleColor kBlack = 0x00000000;
inline constexpr OleColor kWhite = 0x00FFFFFF;

// The colour that the platform's `palette` gives to `color`. In a light scheme these are the
// classic ones; in a dark scheme light and dark lines keep their contrast to the pane's background,
// and so does plain black, which is the glyphs' colour.
QColor ResolveColor(OleColor color, const QPalette& palette);
