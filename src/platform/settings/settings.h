// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

// The user's settings: texts addressed by application name, section and key, in the file
// <application name>.conf of the user's configuration folder.
QString GetSetting(const QString& appName, const QString& section, const QString& key,
                   const QString& defaultValue);

// Raises Error when the value cannot be stored.
void SaveSetting(const QString& appName, const QString& section, const QString& key,
                 const QString& value);

// The decimal text of a number and back, the same in every locale. The text is the shortest that
// gives the same number again; a text that is no number yields `fallback`.
QString SingleToText(float number);
float TextToSingle(const QString& text, float fallback);
