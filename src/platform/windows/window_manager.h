// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "single_instance.h"

#include <QString>

class QWidget;

// The shown top-level window of this program whose caption is exactly `caption`; null when none.
QWidget* FindWindowByCaption(const QString& caption);

// A minimised window comes back as it was before, a maximised one to its normal size. A window that
// is not shown stays so.
void RestoreWindow(QWidget& window);

// Gives the window the foreground on behalf of the user who started the program again; `token` is
// what the desktop gave to that start. A modal dialog that is open gets it in the window's stead.
void SetForegroundWindow(QWidget& window, const ActivationToken& token);

// Raises the window above all others, an open modal dialog above it.
void BringWindowToTop(QWidget& window);
