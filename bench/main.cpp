// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "bare_odbc.h"
#include "error.h"
#include "library.h"
#include "program_start.h"
#include "report.h"
#include "window_work.h"

#include <QFileInfo>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <limits>

namespace {

constexpr qint32 kCategories = 31;
constexpr qint32 kWords = 665245;

// Words four levels deep in each category.
void AddLibrary(Library& library) {
  constexpr qint32 kFanOut = 12;
  for (qint32 i = 0; i < kCategories; ++i) {
    const qint32 words = kWords / kCategories + (i < kWords % kCategories ? 1 : 0);
    library.AddCategory(library.RandomName(), words, [&library](qint32 id) {
      return Library::Word{id <= kFanOut ? 0 : (id - 1) / kFanOut, library.RandomName()};
    });
  }
}

// The program and the two bare reads in turn, the best of each.
void MeasureStart(const QString& program, Report& report) {
  constexpr int kRounds = 7;
  constexpr double kNever = std::numeric_limits<double>::max();
  ProgramStart programStart;
  double start = kNever;
  double processor = kNever;
  double peak = 0;
  double bound = kNever;
  double byGetData = kNever;
  const auto bareRead = [](auto read) {
    qint64 words = 0;
    const double time = MillisecondsOf([&] { words = BareLibraryRead(read); });
    if (words != kWords) throw Error(QStringLiteral("the bare read has missed words"));
    return time;
  };
  for (int i = 0; i < kRounds; ++i) {
    bound = std::min(bound, bareRead(&BareOdbc::ReadBound));
    byGetData = std::min(byGetData, bareRead(&BareOdbc::ReadByGetData));
    const auto result = programStart.Measure(program);
    if (!result) throw Error(QStringLiteral("the program did not start and end as it should"));
    start = std::min(start, result->milliseconds);
    processor = std::min(processor, result->processorMilliseconds);
    peak = std::max(peak, result->peakMegabytes);
  }
  report.Add(QStringLiteral("start until the library is shown, of a bare read"), start / bound, 1.5,
             QStringLiteral("x"));
  report.Note(QStringLiteral("%1 ms, %2 ms of them at work in the process; 665,245 words")
                  .arg(start, 0, 'f', 0)
                  .arg(processor, 0, 'f', 0));
  report.Note(QStringLiteral("bare read into bound columns, by 256 rows, which the bound is held "
                             "against: %1 ms")
                  .arg(bound, 0, 'f', 0));
  report.Note(QStringLiteral("bare read by SQLGetData, row by row: %1 ms, so %2 x")
                  .arg(byGetData, 0, 'f', 0)
                  .arg(start / byGetData, 0, 'f', 2));
  report.Add(QStringLiteral("peak memory of that"), peak, 180, QStringLiteral("MB"));
}

}  // namespace

// Measures the program beside this one, on a data source "HCWordLib" whose library is empty and is
// filled here. The exit status is 0 when every bound holds.
int main(int argc, char** argv) {
  try {
    Report report;
    {
      Library library;
      if (library.Categories() != 0) throw Error(QStringLiteral("the library is not empty"));
      AddLibrary(library);
    }
    MeasureStart(
        QFileInfo(QString::fromLocal8Bit(argv[0])).absolutePath() + QStringLiteral("/hcwordlib"),
        report);
    Library library;
    const WorkCategories categories(library);
    MeasureWindowWork(argc, argv, categories, report);
    return report.Print() ? EXIT_SUCCESS : EXIT_FAILURE;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "bench: %s\n", error.what());
    return EXIT_FAILURE;
  }
}
