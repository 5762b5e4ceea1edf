// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "find_work.h"

#include "error.h"
#include "report.h"
#include "tree_view.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QFile>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QTest>

#include <algorithm>

namespace {

constexpr double kKeyBound = 100;

void Settle() {
  while (QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents)) {
  }
}

// What the process holds in memory now.
double Megabytes() {
  QFile file(QStringLiteral("/proc/self/statm"));
  if (!file.open(QIODevice::ReadOnly)) throw Error(QStringLiteral("the memory is not known"));
  return file.readAll().split(' ').at(1).toDouble() * 4096 / 1e6;
}

}  // namespace

void MeasureFind(TreeView& tree, Report& report) {
  const double before = Megabytes();
  tree.setFocus();
  tree.SetSelectedItem(*tree.Nodes().NodeAt(tree.model()->index(0, 0)));
  Settle();
  const auto press = [](Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    return MillisecondsOf([&] {
      QTest::keyClick(QGuiApplication::focusWindow(), key, modifiers);
      Settle();
    });
  };
  const double opening = press(Qt::Key_F, Qt::ControlModifier);
  auto* const line = qobject_cast<QLineEdit*>(QApplication::focusWidget());
  if (line == nullptr) throw Error(QStringLiteral("the find field has not the focus"));
  const double first = press(Qt::Key_C);
  double longest = first;
  const auto take = [&longest](double time) { longest = std::max(longest, time); };
  for (const Qt::Key key : {Qt::Key_H, Qt::Key_E, Qt::Key_W, Qt::Key_F3, Qt::Key_F3, Qt::Key_Return,
                            Qt::Key_Backspace, Qt::Key_Q, Qt::Key_Q, Qt::Key_Q, Qt::Key_Q}) {
    take(press(key));
  }
  const QString deepest = tree.SelectedItem()->Text();
  for (const QChar c : deepest) {
    line->selectAll();
    QInputMethodEvent event;
    event.setCommitString(c);
    take(MillisecondsOf([&] {
      QApplication::sendEvent(line, &event);
      Settle();
    }));
  }
  report.Add(QStringLiteral("find as one types, the longest key"), longest, kKeyBound,
             QStringLiteral("ms"));
  report.Note(QStringLiteral("opening the field %1 ms, the first key %2 ms; %3 MB more in memory")
                  .arg(opening, 0, 'f', 1)
                  .arg(first, 0, 'f', 1)
                  .arg(Megabytes() - before, 0, 'f', 1));
  press(Qt::Key_Escape);
}
