// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "word_lib_main.h"

#include "entry_scheme.h"
#include "event_guard.h"
#include "frm_main.h"
#include "single_instance.h"
#include "termination.h"
#include "utf8_locale.h"
#include "window_manager.h"

#include <sys/resource.h>

#include <QApplication>
#include <QIcon>
#include <QLibraryInfo>
#include <QTranslator>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>

namespace {

// What Qt says while it looks for a display.
QByteArray& EarlyMessages() {
  static QByteArray messages;
  return messages;
}

// Where there is no display Qt would tell at length how it is configured, and abort.
void EndWithoutDisplay(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  if (type == QtFatalMsg) {
    std::fputs("hcwordlib: 没有可用的图形显示，无法打开窗口。\n", stderr);
    std::_Exit(EXIT_FAILURE);
  }
  EarlyMessages() += qFormatLogMessage(type, context, text).toLocal8Bit() + '\n';
}

// Qt lays out the open levels of a tree one within the other. The limit counts when the stack
// grows, so that the program need not be started anew with it.
void MakeRoomForDeepTrees() {
  constexpr rlim_t kStack = 100'000'000;  // enough for some 300,000 levels
  rlimit limit{};
  if (getrlimit(RLIMIT_STACK, &limit) != 0 || limit.rlim_cur >= kStack) return;
  limit.rlim_cur = std::min(limit.rlim_max, kStack);
  setrlimit(RLIMIT_STACK, &limit);
}

}  // namespace

int Main(int argc, char** argv) {
  std::optional<SingleInstance> instance("HCWordLib");
  if (instance->PrevInstance()) {
    instance->HandOver();
    return 0;
  }

  MakeRoomForDeepTrees();
  // Chinese looks the same whatever the user's locale prefers for it, and whichever font a style or
  // a desktop sets at any time.
  qputenv("FC_LANG", "zh-cn");
  NameUtf8WithoutLocale();
  qInstallMessageHandler(EndWithoutDisplay);
  QApplication application(argc, argv);
  qInstallMessageHandler(nullptr);
  std::fputs(EarlyMessages().constData(), stderr);
  QApplication::setApplicationName(QStringLiteral("hcwordlib"));
  QApplication::setDesktopFileName(QStringLiteral("hcwordlib"));
  QApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/hcwordlib.svg")));
  // Qt's own texts: the context menu of an editor, the buttons of its dialogs.
  QTranslator translator;
  if (translator.load(QLocale(QLocale::Chinese, QLocale::China), QStringLiteral("qtbase"),
                      QStringLiteral("_"), QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QApplication::installTranslator(&translator);
  }

  std::unique_ptr<frmMain> window;
  Guarded([&window] {
    window = std::make_unique<frmMain>();
    window->Form_Load();
    window->show();
    CloseOnTermination(*window, [&window] { window->PrepareToTerminate(); });
  })();
  instance->Serve([](const ActivationToken& token) {
    QWidget* running = FindWindowByCaption(kAppTitle);
    if (running == nullptr) return;
    RestoreWindow(*running);
    SetForegroundWindow(*running, token);
    BringWindowToTop(*running);
  });
  const int status = QApplication::exec();
  instance.reset();  // the next start need not wait for a large tree to be taken apart
  // Qt's Wayland connection now and then waits for ever when it is taken apart. The window has
  // closed the database and stored what it had to.
  if (QApplication::platformName().startsWith(QStringLiteral("wayland"))) {
    std::fflush(nullptr);
    std::_Exit(status);
  }
  return status;
}
