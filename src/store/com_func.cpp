// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "com_func.h"

#include "recordset.h"

void CloseRecordset(std::unique_ptr<Recordset>& TheRs) {
  if (!TheRs) {
    Recordset().Close();  // raises
  }
  TheRs->Close();
  TheRs.reset();
}
