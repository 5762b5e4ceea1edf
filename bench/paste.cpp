// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "paste.h"

#include "error.h"
#include "report.h"
#include "tree_view.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QClipboard>
#include <QTest>

namespace {

// From the key until all is painted, of rows as a spreadsheet copies them.
double Paste(TreeView& tree, Node& category, int lines) {
  QString text;
  for (int i = 1; i <= lines; ++i) {
    text += QStringLiteral("粘贴的词%1之%2\t%2\t件\r\n").arg(lines).arg(i);
  }
  QApplication::clipboard()->setText(text);
  tree.SetSelectedItem(category);
  tree.setFocus();
  const int before = category.Children();
  const double time = MillisecondsOf([&tree] {
    QTest::keyClick(&tree, Qt::Key_V, Qt::ControlModifier);
    while (QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents)) {
    }
  });
  if (category.Children() != before + lines) throw Error(QStringLiteral("the paste is not shown"));
  return time;
}

}  // namespace

void MeasurePaste(TreeView& tree, Node& category, Report& report) {
  report.Add(QStringLiteral("paste of 2,000 lines into a category of 100,000 words"),
             Paste(tree, category, 2'000), 2'000, QStringLiteral("ms"));
  report.Add(QStringLiteral("paste of 2,000 categories"), Paste(tree, *category.Parent(), 2'000),
             2'000, QStringLiteral("ms"));
  report.Note(
      QStringLiteral("of 100,000 lines: %1 ms").arg(Paste(tree, category, 100'000), 0, 'f', 0));
}
