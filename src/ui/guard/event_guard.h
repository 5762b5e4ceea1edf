// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "error.h"

#include <QString>

#include <utility>

// Ends the program at once with a non-zero status: no closing step runs, nothing is saved.
[[noreturn]] void EndProgram();

// Reports an error that nothing caught, with its own description, and ends the program.
[[noreturn]] void ReportErrorAndEnd(const QString& description);

// `handler`, for the user interface to call: an error that it lets out is reported and ends the
// program, instead of travelling through the event dispatch.
template <class Handler>
auto Guarded(Handler handler) {
  return [handler = std::move(handler)](auto&&... arguments) {
    try {
      handler(std::forward<decltype(arguments)>(arguments)...);
    } catch (const Error& error) {
      ReportErrorAndEnd(error.Description());
    } catch (const std::exception& error) {
      ReportErrorAndEnd(QString::fromLocal8Bit(error.what()));
    }
  };
}

// Runs one step; when it fails, it is skipped.
template <class Step>
void IgnoringErrors(Step step) {
  try {
    step();
  } catch (const std::exception&) {
  }
}
