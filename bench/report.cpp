// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "report.h"

#include <QElapsedTimer>

#include <cstdio>

namespace {

constexpr int kWorkWidth = 64;

}  // namespace

void Report::Add(const QString& work, double value, double bound, const QString& unit) {
  const int decimals = bound < 10 ? 2 : bound < 100 ? 1 : 0;
  const bool within = value <= bound;
  withinBounds_ = withinBounds_ && within;
  lines_ += QStringLiteral("%1%2 %5  %3 %5  %4\n")
                .arg(work, -kWorkWidth)
                .arg(value, 8, 'f', decimals)
                .arg(bound, 6, 'f', decimals)
                .arg(within ? QLatin1String("") : QLatin1String("EXCEEDED"))
                .arg(unit, -2);
}

void Report::Note(const QString& text) {
  lines_ += QStringLiteral("  ") + text + u'\n';
}

bool Report::Print() const {
  std::printf("%s%s%s", qUtf8Printable(QStringLiteral("Work").leftJustified(kWorkWidth)),
              "measured      bound\n", qUtf8Printable(lines_));
  std::puts(withinBounds_ ? "All within their bounds." : "Not all within their bounds.");
  return withinBounds_;
}

double MillisecondsOf(const std::function<void()>& action) {
  QElapsedTimer timer;
  timer.start();
  action();
  return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}
