// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

class QWidget;

enum class MsgBoxButtons { kOkOnly, kYesNo };
enum class MsgBoxIcon { kNone, kInformation, kCritical };
enum class MsgBoxResult { kOk, kYes, kNo };

// Shows a modal message box above `owner` and returns the button that closed it. Without a title
// it carries the application's name. Escape and the close box answer 否 where there is one.
MsgBoxResult MsgBox(QWidget* owner, const QString& text,
                    MsgBoxButtons buttons = MsgBoxButtons::kOkOnly,
                    MsgBoxIcon icon = MsgBoxIcon::kNone,
                    const QString& title = QStringLiteral("HCWordLib"));
