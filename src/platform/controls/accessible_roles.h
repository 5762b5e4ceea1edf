// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

// Tells assistive tools what the controls of this folder are. Called once, before they are made.
void InstallAccessibleRoles();
