// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <functional>

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

// Answers every message box in the user's place, and none is shown; an empty one gives the boxes
// back to the user. For tests.
using MsgBoxTwin = std::function<MsgBoxResult(const QString& text, MsgBoxButtons buttons,
                                              MsgBoxIcon icon, const QString& title)>;
void SetMsgBoxTwin(MsgBoxTwin twin);
