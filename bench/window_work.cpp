// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "window_work.h"

#include "bare_odbc.h"
#include "edit_words_funcs.h"
#include "entry_scheme.h"
#include "error.h"
#include "find_work.h"
#include "frm_main.h"
#include "library.h"
#include "list_view.h"
#include "paste.h"
#include "reload.h"
#include "report.h"
#include "shared_objects.h"
#include "statements.h"
#include "tree_view.h"

#include <QAbstractEventDispatcher>
#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QInputMethodEvent>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace {

constexpr qint32 kFlatWords = 100000;
constexpr qint32 kDoomedWords = 20000;
constexpr qint32 kDefaultNames = 20000;
constexpr qint32 kNestedWords = 5000;
constexpr double kHandlerBound = 16;
constexpr double kBareBound = 3;
constexpr int kRepeats = 3;

// Knows how long the longest delivery of one event took.
class TimedApplication : public QApplication {
 public:
  using QApplication::QApplication;

  bool notify(QObject* receiver, QEvent* event) override {
    if (std::exchange(delivering_, true)) return QApplication::notify(receiver, event);
    bool result = false;
    longest_ =
        std::max(longest_, MillisecondsOf([&] { result = QApplication::notify(receiver, event); }));
    delivering_ = false;
    return result;
  }
  double TakeLongest() { return std::exchange(longest_, 0); }

 private:
  bool delivering_ = false;
  double longest_ = 0;
};

// Until nothing is left to be done, painting included.
void Settle() {
  while (QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents)) {
  }
}

double Best(const std::function<double()>& measure) {
  double best = measure();
  for (int i = 1; i < kRepeats; ++i) best = std::min(best, measure());
  return best;
}

class WindowWork {
 public:
  WindowWork(TimedApplication& application, const WorkCategories& categories, Report& report);

  void Find() { MeasureFind(tree_, report_); }
  void Handlers();
  void Click();
  void NewWord();
  void DeleteCategory();
  void DeleteNestedWords();
  void DefaultName();
  void Rename();
  void Paste() { MeasurePaste(tree_, Category(categories_.flat), report_); }

 private:
  Node& Root() { return tree_.Nodes().Item(kRootKey); }
  Node& Category(qint32 gid);
  void ClickOn(Node& node);
  void Choose(const char* command);
  double Delete(Node& node);
  void AddRatio(const QString& work, double program, double bare);
  void Handler(const QString& work, const std::function<void()>& action);
  void Wheel(QWidget* viewport);

  TimedApplication& application_;
  const WorkCategories& categories_;
  Report& report_;
  frmMain window_;
  TreeView& tree_;
  ListView& list_;
};

WindowWork::WindowWork(TimedApplication& application, const WorkCategories& categories,
                       Report& report)
    : application_(application),
      categories_(categories),
      report_(report),
      tree_(*window_.findChild<TreeView*>(QStringLiteral("tvTreeView"))),
      list_(*window_.findChild<ListView*>(QStringLiteral("lvListView"))) {
  window_.Form_Load();
  window_.show();
  if (!QTest::qWaitForWindowActive(&window_))
    throw Error(QStringLiteral("the window is not active"));
  window_.resize(900, 700);
  QTest::qWait(300);
  tree_.SetExpanded(Root(), true);
  Settle();
}

// The root's children stand in the order of their numbers.
Node& WindowWork::Category(qint32 gid) {
  Node* category = Root().Child();
  while (--gid > 0) category = category->Next();
  return *category;
}

void WindowWork::ClickOn(Node& node) {
  tree_.EnsureVisible(node);
  Settle();
  QTest::mouseClick(tree_.viewport(), Qt::LeftButton, Qt::NoModifier,
                    tree_.LabelRect(node).center());
  if (tree_.SelectedItem() != &node) throw Error(QStringLiteral("a click has selected nothing"));
}

void WindowWork::Choose(const char* command) {
  window_.findChild<QAction*>(QLatin1String(command))->trigger();
}

// From the answer to the question until the window is painted.
double WindowWork::Delete(Node& node) {
  ClickOn(node);
  Settle();
  QElapsedTimer timer;
  QTimer::singleShot(0, &application_, [&timer] {
    const auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr) return;
    timer.start();
    QTest::keyClick(static_cast<QWidget*>(box->defaultButton()), Qt::Key_Space);
  });
  Choose("mnuEditDelete");
  Settle();
  if (!timer.isValid()) throw Error(QStringLiteral("no question before the deletion"));
  return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

void WindowWork::Click() {
  Node& flat = Category(categories_.flat);
  report_.Add(QStringLiteral("click on a node with 100,000 children until the list shows them"),
              Best([&] {
                ClickOn(Root());
                Settle();
                tree_.EnsureVisible(flat);
                Settle();
                const double time = MillisecondsOf([&] {
                  ClickOn(flat);
                  Settle();
                });
                if (list_.model()->rowCount() != kFlatWords) {
                  throw Error(QStringLiteral("the list does not show the words"));
                }
                return time;
              }),
              250, QStringLiteral("ms"));
}

void WindowWork::NewWord() {
  Node& flat = Category(categories_.flat);
  report_.Add(QStringLiteral("new word in a category of 100,000 until the editor is open"),
              Best([&] {
                tree_.SetExpanded(flat, false);
                ClickOn(Root());
                ClickOn(flat);
                Settle();
                const double time = MillisecondsOf([&] {
                  Choose("mnuEditNewWord");
                  Settle();
                });
                if (!tree_.IsEditing()) throw Error(QStringLiteral("the editor is not open"));
                tree_.CancelLabelEdit();
                Settle();
                return time;
              }),
              400, QStringLiteral("ms"));
  tree_.SetExpanded(flat, false);
}

void WindowWork::DeleteCategory() {
  report_.Add(QStringLiteral("delete of a category with 20,000 words"),
              Delete(Category(categories_.doomed)), 500, QStringLiteral("ms"));
  report_.Add(QStringLiteral("taking that back"), MillisecondsOf([&] {
                QTest::keyClick(&tree_, Qt::Key_Z, Qt::ControlModifier);
                Settle();
              }),
              1000, QStringLiteral("ms"));
  if (Category(categories_.doomed).Children() != kDoomedWords) {
    throw Error(QStringLiteral("not taken back"));
  }
  Delete(Category(categories_.doomed));
}

void WindowWork::DeleteNestedWords() {
  // Category() counts the categories, of which one is deleted by now.
  Node& nested = *Category(categories_.nested - 1).Child();
  const double program = Delete(nested);
  const BareOdbc odbc;
  const double bare = MillisecondsOf([&] {
    for (qint32 id = 1; id <= kNestedWords + 1; ++id) {
      odbc.Execute(Statement::DeleteWord(categories_.nestedTwin, id).remove(u'*'));
    }
  });
  AddRatio(QStringLiteral("delete of a word with 5,000 below it"), program, bare);
}

void WindowWork::DefaultName() {
  const double program = Best([&] {
    return MillisecondsOf([&] { TheEditFuncs().TreeWordNewName(categories_.defaults); });
  });
  const BareOdbc odbc;
  const double bare = Best([&] {
    return MillisecondsOf([&] { odbc.ReadBound(Statement::SearchWords(categories_.defaults)); });
  });
  AddRatio(QStringLiteral("default name when 20,000 are taken"), program, bare);
}

// The answer to the end of label editing, against the two statements that it sends.
void WindowWork::Rename() {
  constexpr int kRenames = 10;
  ClickOn(*Category(1).Child());
  Settle();
  qint32 number = 0;
  const auto nextName = [&number] { return QStringLiteral("另名%1").arg(++number); };
  const BareOdbc odbc;
  double program = 0;
  double bare = 0;
  for (int i = 0; i < kRenames; ++i) {
    const QString name = nextName();
    program += MillisecondsOf([&] {
      qint16 cancel = 0;
      Q_EMIT tree_.AfterLabelEdit(cancel, name);
    });
    const QString bareName = nextName();
    bare += MillisecondsOf([&] {
      odbc.ReadBound(Statement::SelectWordNamed(bareName, 1));
      odbc.Execute(Statement::RenameWord(bareName, 1, 1));
    });
  }
  AddRatio(QStringLiteral("rename of a word"), program / kRenames, bare / kRenames);
}

void WindowWork::AddRatio(const QString& work, double program, double bare) {
  report_.Add(work + QStringLiteral(", of the bare statements"), program / bare, kBareBound,
              QStringLiteral("x"));
  report_.Note(QStringLiteral("%1 ms, bare %2 ms").arg(program, 0, 'f', 2).arg(bare, 0, 'f', 2));
}

void WindowWork::Handler(const QString& work, const std::function<void()>& action) {
  report_.Add(QStringLiteral("handler: ") + work, Best([&] {
                application_.TakeLongest();
                action();
                Settle();
                return application_.TakeLongest();
              }),
              kHandlerBound, QStringLiteral("ms"));
}

void WindowWork::Wheel(QWidget* viewport) {
  for (const int angle : {-120, -120, -120, 120}) {
    const QPointF position = viewport->rect().center();
    QWheelEvent event(position, viewport->mapToGlobal(position), QPoint(), QPoint(0, angle),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(viewport, &event);
    Settle();
  }
}

// The list shows 100,000 words, the tree has 20,000 unfolded.
void WindowWork::Handlers() {
  const auto keys = [this](std::initializer_list<Qt::Key> pressed) {
    for (const Qt::Key key : pressed) {
      QTest::keyClick(&tree_, key);
      Settle();
    }
  };
  Node& doomed = Category(categories_.doomed);
  Handler(QStringLiteral("a category of 20,000 words unfolded and folded by the mouse"), [&] {
    tree_.EnsureVisible(doomed);
    for (int i = 0; i < 2; ++i) {
      const QRect item = tree_.visualRect(tree_.Nodes().IndexOf(&doomed));
      QTest::mouseClick(tree_.viewport(), Qt::LeftButton, Qt::NoModifier,
                        QPoint(item.left() - tree_.indentation() / 2, item.center().y()));
      if (tree_.Expanded(doomed) != (i == 0)) throw Error(QStringLiteral("not unfolded"));
      Settle();
    }
  });
  tree_.SetExpanded(doomed, true);
  Settle();
  Handler(QStringLiteral("arrow keys, Home and End, page by page"), [&] {
    ClickOn(Root());
    Settle();
    application_.TakeLongest();
    keys({Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Up, Qt::Key_Right, Qt::Key_Right,
          Qt::Key_Down, Qt::Key_PageDown, Qt::Key_PageUp, Qt::Key_Left, Qt::Key_End, Qt::Key_Up,
          Qt::Key_Home});
  });
  Handler(QStringLiteral("type-ahead in Chinese"), [&] {
    for (const QString& text : {doomed.Child()->Next()->Text(), QStringLiteral("㐀㐀㐀")}) {
      QInputMethodEvent event;
      event.setCommitString(text);
      QApplication::sendEvent(&tree_, &event);
      Settle();
    }
  });
  Click();
  Handler(QStringLiteral("wheel over the tree and the list"), [&] {
    Wheel(tree_.viewport());
    Wheel(list_.viewport());
  });
  Handler(QStringLiteral("pointer over the tree and the list"), [&] {
    for (int x = 5; x < 200; x += 20) {
      QTest::mouseMove(tree_.viewport(), QPoint(x, x));
      QTest::mouseMove(list_.viewport(), QPoint(x, x));
      Settle();
    }
  });
  Handler(QStringLiteral("step of resizing the window"), [&] {
    for (const int width : {20, -20}) {
      window_.resize(window_.width() + width, window_.height() + width);
      QTest::qWait(200);  // the window manager answers, the views lay themselves out
    }
  });
  Handler(QStringLiteral("drag of the splitter"), [&] {
    auto* grip = window_.findChild<QWidget*>(QStringLiteral("picShowSplitter"));
    QTest::mousePress(grip, Qt::LeftButton, Qt::NoModifier, QPoint(2, 50));
    for (int x = 0; x < 40; x += 10) QTest::mouseMove(grip, QPoint(x, 50));
    QTest::mouseRelease(grip, Qt::LeftButton, Qt::NoModifier, QPoint(30, 50));
    QTest::qWait(200);
  });
  tree_.SetExpanded(doomed, false);
  Settle();
}

}  // namespace

WorkCategories::WorkCategories(Library& library)
    : flat(library.AddCategory(QStringLiteral("十万词"), kFlatWords,
                               [&](qint32) {
                                 return Library::Word{0, library.RandomName()};
                               })),
      doomed(library.AddCategory(QStringLiteral("二万词"), kDoomedWords,
                                 [&](qint32) {
                                   return Library::Word{0, library.RandomName()};
                                 })),
      defaults(library.AddCategory(QStringLiteral("默认名"), kDefaultNames, [](qint32 id) {
        return Library::Word{
            0, QStringLiteral("新加词") + (id == 1 ? QString() : QString::number(id))};
      })) {
  const auto nestedWord = [&](qint32 id) {
    constexpr qint32 kFanOut = 8;
    return Library::Word{id == 1 ? 0 : (id - 2) / kFanOut + 1, library.RandomName()};
  };
  nested = library.AddCategory(QStringLiteral("多层词"), kNestedWords + 1, nestedWord);
  nestedTwin = library.AddCategory(QStringLiteral("多层词又"), kNestedWords + 1, nestedWord);
}

void MeasureWindowWork(int argc, char** argv, const WorkCategories& categories, Report& report) {
  TimedApplication application(argc, argv);
  {
    WindowWork work(application, categories, report);
    work.Handlers();
    work.NewWord();
    work.DeleteCategory();
    work.DeleteNestedWords();
    work.DefaultName();
    work.Rename();
    work.Find();
    work.Paste();
  }
  MeasureReload(categories.defaults, report);
}
