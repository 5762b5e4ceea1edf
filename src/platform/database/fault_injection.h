// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

// The seam at which tests make the database fail. A step is the execution of a statement, the
// storing of a new row, the opening of a record set, the asking for a new row's number or a commit.
// The failing step raises DatabaseError before anything reaches the driver.

// The n-th step from now on fails, once; 0 takes that back.
void FailDatabaseStep(int n);

// True until the step that was asked to fail has failed.
bool IsDatabaseFaultPending();

// The database layer calls this at the beginning of each step.
void TakeDatabaseStep();
