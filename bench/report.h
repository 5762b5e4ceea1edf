// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <functional>

// The measurements, in the order in which they were taken, each beside its bound.
class Report {
 public:
  // `value` and `bound` in the same `unit`.
  void Add(const QString& work, double value, double bound, const QString& unit);
  // Further lines below the last measurement.
  void Note(const QString& text);

  // Prints the table. True when every value is within its bound.
  bool Print() const;

 private:
  QString lines_;
  bool withinBounds_ = true;
};

// How long `action` takes, in milliseconds.
double MillisecondsOf(const std::function<void()>& action);
