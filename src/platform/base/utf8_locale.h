// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

// Where the environment names no locale, as on a bare system, names C.UTF-8 for the encoding. Qt
// takes that in any case, but then tells at length of it. To be called before the application
// object is made.
void NameUtf8WithoutLocale();
