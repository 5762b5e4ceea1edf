// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "progress_bar.h"

#include <unistd.h>

#include <cstdio>

namespace {

constexpr int kWidth = 40;

}  // namespace

ProgressBar::ProgressBar(const QString& title, qsizetype total)
    : title_(title.toUtf8()), total_(total), isTerminal_(isatty(STDERR_FILENO) == 1) {
  Advance(0);
}

ProgressBar::~ProgressBar() {
  if (isTerminal_) {
    std::fputs("\r\033[K", stderr);
  }
}

void ProgressBar::Advance(qsizetype steps) {
  done_ += steps;
  const int percent = total_ > 0 ? static_cast<int>(done_ * 100 / total_) : 100;
  if (!isTerminal_ || percent == shownPercent_) {
    return;
  }
  shownPercent_ = percent;
  const int filled = percent * kWidth / 100;
  std::fprintf(stderr, "\r%s [%s%s] %3d%%", title_.constData(), QByteArray(filled, '#').constData(),
               QByteArray(kWidth - filled, ' ').constData(), percent);
}
