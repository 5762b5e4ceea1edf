// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

class Recordset;

// Closes the record set and sets the variable to nothing. One that is not open, or nothing, raises
// the database layer's error and is left as it is.
void CloseRecordset(std::unique_ptr<Recordset>& TheRs);
