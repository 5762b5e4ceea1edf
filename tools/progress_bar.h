// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

// A bar on standard error that tells how far a long work is. Only shown on a terminal.
class ProgressBar {
 public:
  ProgressBar(const QString& title, qsizetype total);
  ~ProgressBar();  // wipes the bar out
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;

  void Advance(qsizetype steps);

 private:
  QByteArray title_;
  qsizetype total_;
  qsizetype done_ = 0;
  int shownPercent_ = -1;
  bool isTerminal_;
};
