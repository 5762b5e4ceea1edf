// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>

class QWidget;

// From now on SIGTERM, SIGINT and SIGHUP, with which a session that ends and a terminal ask a
// program to end (POSIX, signal.h), close `window` in the event loop as its close box does; menus
// and modal boxes that are open are dismissed first, and `prepare` is called before all that. Call
// it once; `window` must live as long as the loop.
void CloseOnTermination(QWidget& window, std::function<void()> prepare);
