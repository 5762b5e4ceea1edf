// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "reload.h"

#include "connection.h"
#include "entry_scheme.h"
#include "error.h"
#include "frm_main.h"
#include "report.h"
#include "shared_objects.h"
#include "tree_view.h"

#include <QAbstractEventDispatcher>
#include <QFile>
#include <QTest>

#include <algorithm>
#include <limits>
#include <optional>

namespace {

constexpr int kRounds = 3;
constexpr int kReloads = 100;

// The number behind `name` in /proc/self/status, of kilobytes there, in megabytes.
double Megabytes(const char* name) {
  QFile file(QStringLiteral("/proc/self/status"));
  if (!file.open(QIODevice::ReadOnly)) return 0;
  const QByteArray text = file.readAll();
  return text.mid(text.indexOf(name) + qstrlen(name)).simplified().split(' ').first().toDouble() *
         1024 / 1e6;
}

// The memory's peak is counted from now on.
void ForgetPeak() {
  QFile file(QStringLiteral("/proc/self/clear_refs"));
  if (file.open(QIODevice::WriteOnly)) file.write("5");
}

}  // namespace

void MeasureReload(int kept, Report& report) {
  constexpr double kNever = std::numeric_limits<double>::max();
  double start = kNever;
  std::optional<frmMain> loaded;
  for (int i = 0; i < kRounds; ++i) {
    loaded.reset();
    ReleaseSharedObjects();
    loaded.emplace();
    start = std::min(start, MillisecondsOf([&loaded] { loaded->Form_Load(); }));
  }
  frmMain& window = *loaded;
  window.show();
  if (!QTest::qWaitForWindowActive(&window))
    throw Error(QStringLiteral("the window is not active"));
  TreeView& tree = *window.findChild<TreeView*>(QStringLiteral("tvTreeView"));
  const auto reload = [&window, &tree] {
    QTest::keyClick(&window, Qt::Key_F5);
    while (QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents)) {
    }
    if (tree.SelectedItem() == nullptr) throw Error(QStringLiteral("nothing is selected"));
  };
  tree.SetExpanded(tree.Nodes().Item(kRootKey), true);
  const double before = Megabytes("VmRSS:");
  ForgetPeak();
  double again = kNever;
  for (int i = 0; i < kRounds; ++i) again = std::min(again, MillisecondsOf(reload));
  report.Add(QStringLiteral("reading the library again, of the load at start"), again / start, 1.5,
             QStringLiteral("x"));
  report.Note(QStringLiteral("%1 ms, at start %2 ms; memory %3 MB before, %4 MB at its peak")
                  .arg(again, 0, 'f', 0)
                  .arg(start, 0, 'f', 0)
                  .arg(before, 0, 'f', 0)
                  .arg(Megabytes("VmHWM:"), 0, 'f', 0));

  TheConn().Execute(QStringLiteral("delete from Dictionary where GID<>%1").arg(kept));
  for (int i = 0; i < kRounds; ++i) reload();
  if (tree.Nodes().Item(kRootKey).Children() != 1) throw Error(QStringLiteral("not read again"));
  const double few = Megabytes("VmRSS:");
  for (int i = 0; i < kReloads; ++i) reload();
  report.Add(QStringLiteral("memory that 100 times more leave behind"), Megabytes("VmRSS:") - few,
             1, QStringLiteral("MB"));
  report.Note(QStringLiteral("%1 words").arg(tree.Nodes().Item(kRootKey).Child()->Children()));
}
