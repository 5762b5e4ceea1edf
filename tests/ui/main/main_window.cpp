// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "main_window.h"

#include "audit.h"
#include "entry_scheme.h"
#include "settings.h"
#include "shared_objects.h"
#include "status_bar.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QInputMethodEvent>
#include <QLineEdit>

#include <algorithm>

namespace {

void MakeLibrary() {
  Connection connection;
  connection.SetConnectionString(QStringLiteral("DSN=HCWordLib"));
  connection.Open();
  MakeEmptyLibrary(TestedEngine(), connection);
  for (const char* rows :
       {"GUIDLists (GUIDField1,GUIDField2,GUIDField3,GUIDField4) values (1,2,3,4),(1,2,3,4),"
        "(1,2,3,4),(1,2,3,4),(1,2,3,4),(1,2,3,4),(1,2,3,4),(1,2,3,4),(1,2,3,4),(1,2,3,4),"
        "(1,2,3,4),(1,2,3,4)",  // 1 to 12
        "Dictionary (GID,SortName,Position) values (7,'车削',1),(9,'热处理',2),(12,'空类',4)",
        "Items (SortID,ID,FatherID,NodeName) values (7,1,0,'粗车'),(7,2,1,'粗车外圆'),"
        "(7,3,1,'粗车端面'),(7,4,2,'粗车外圆至φ50'),(7,5,0,'精车'),(9,1,0,'淬火'),(9,2,0,'粗车'"
        ")"}) {
    connection.Execute(QStringLiteral("insert into ") + QString::fromUtf8(rows));
  }
}

QLineEdit* FocusedEditor() {
  return qobject_cast<QLineEdit*>(QApplication::focusWidget());
}

}  // namespace

const Engine& TestedEngine() {
  const QByteArray name = qgetenv("HCW_TEST_ENGINE");
  for (const Engine& engine : kEngines) {
    if (engine.name == name) return engine;
  }
  return kEngines[0];
}

MainWindowTest::MainWindowTest() {
  SetMsgBoxTwin([this](const auto&... asked) { return Answer(asked...); });
  OpenWindow();
}

void MainWindowTest::OpenWindow(bool fresh) {
  CloseWindow();
  if (fresh) MakeLibrary();
  for (const char* size : {"MainWidth", "MainHeight"}) {
    SaveSetting(QStringLiteral("HCWordLib"), QStringLiteral("Settings"), QLatin1String(size),
                QStringLiteral("9000"));
  }
  window_ = std::make_unique<frmMain>();
  window_->Form_Load();
  window_->show();
  window_->activateWindow();
  tvTreeView = Find<TreeView>("tvTreeView");
  lvListView = Find<ListView>("lvListView");
  for (QAbstractItemModel* model : {tvTreeView->model(), lvListView->model()}) {
    new QAbstractItemModelTester(model, QAbstractItemModelTester::FailureReportingMode::Fatal,
                                 window_.get());
  }
  tvTreeView->setFocus();
  if (!QTest::qWaitFor([this] { return tvTreeView->hasFocus(); })) ADD_FAILURE() << "no focus";
}

void MainWindowTest::CloseWindow() {
  if (window_ != nullptr) window_->close();
  window_.reset();
}

Node& MainWindowTest::At(const std::string& path) const {
  Node* node = &tvTreeView->Nodes().Item(kRootKey);
  for (const QString& name : QString::fromStdString(path).split(u'/', Qt::SkipEmptyParts)) {
    for (node = node->Child(); node != nullptr && node->Text() != name;) node = node->Next();
    if (node == nullptr) throw std::runtime_error("no node " + path);
  }
  return *node;
}

std::string MainWindowTest::Selected() const {
  QStringList path;
  for (const Node* node = tvTreeView->SelectedItem(); node->Parent() != nullptr;
       node = node->Parent()) {
    path.prepend(node->Text());
  }
  return path.join(u'/').toStdString();
}

std::string MainWindowTest::Tree(const Node& parent) const {
  std::string texts;
  for (const Node* node = parent.Child(); node != nullptr; node = node->Next()) {
    const std::string below = Tree(*node);
    if (!texts.empty()) texts += ' ';
    texts += node->Text().toStdString();
    if (!below.empty()) texts.append("(").append(below).append(")");
  }
  return texts;
}

std::string MainWindowTest::List() const {
  QStringList texts;
  for (int i = 1; i <= lvListView->Items().Count(); ++i)
    texts += lvListView->Items().Item(i).Text();
  return texts.join(u' ').toStdString();
}

std::string MainWindowTest::Panel() const {
  return Find<StatusBar>("sbStatusBar")->PanelText().toStdString();
}

QPoint MainWindowTest::Label(const char* path) const {
  tvTreeView->EnsureVisible(At(path));
  return tvTreeView->viewport()->mapTo(window_.get(), tvTreeView->LabelRect(At(path)).center());
}

bool MainWindowTest::WaitForEditor() const {
  return QTest::qWaitFor([this] { return tvTreeView->IsEditing() && FocusedEditor() != nullptr; });
}

std::string MainWindowTest::SelectedText() const {
  return WaitForEditor() ? FocusedEditor()->selectedText().toStdString() : "no editor";
}

void MainWindowTest::Type(const char* text, int key) {
  ASSERT_TRUE(WaitForEditor());
  QLineEdit* editor = FocusedEditor();
  editor->selectAll();
  QTest::keyClick(editor, Qt::Key_Delete);
  QInputMethodEvent committed;
  committed.setCommitString(QString::fromUtf8(text));
  QApplication::sendEvent(editor, &committed);
  if (key != 0) QTest::keyClick(editor, Qt::Key(key));
}

MsgBoxResult MainWindowTest::Answer(const QString& text, MsgBoxButtons buttons, MsgBoxIcon icon,
                                    const QString& title) {
  const bool isQuestion = buttons == MsgBoxButtons::kYesNo;
  const char* const shown = icon == MsgBoxIcon::kNone          ? "none"
                            : icon == MsgBoxIcon::kInformation ? "information"
                                                               : "critical";
  messages_ +=
      (title + u'|' + text + u'|').toStdString() + shown + (isQuestion ? "|yes|no\n" : "|ok\n");
  if (!isQuestion) return MsgBoxResult::kOk;
  if (!meanwhile_) return MsgBoxResult::kNo;
  std::exchange(meanwhile_, {})();
  return MsgBoxResult::kYes;
}

void MainWindowTest::Audit(bool allowsOrphans) const {
  const Library stored = StoredLibrary(TheConn());
  Touched hidden;
  if (allowsOrphans) hidden.entries = Orphans(stored);
  CompareLibraries(ShownLibrary(*tvTreeView, hidden), stored, hidden);
  AuditList(*lvListView);
  AuditEditor(*tvTreeView);
}
