// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "main_window.h"

#include "entry_scheme.h"
#include "rows.h"
#include "settings.h"
#include "shared_objects.h"
#include "status_bar.h"
#include "word_tree.h"

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
  const QString numbers = QStringLiteral(",(1,2,3,4)").repeated(12).mid(1);  // 1 to 12
  connection.Execute(
      QStringLiteral(
          "insert into GUIDLists (GUIDField1,GUIDField2,GUIDField3,GUIDField4) values ") +
      numbers);
  connection.Execute(
      QStringLiteral("insert into Dictionary (GID,SortName,Position) values "
                     "(7,'车削',1),(9,'热处理',2),(12,'空类',4)"));
  connection.Execute(
      QStringLiteral("insert into Items (SortID,ID,FatherID,NodeName) values (7,1,0,'粗车'),"
                     "(7,2,1,'粗车外圆'),(7,3,1,'粗车端面'),(7,4,2,'粗车外圆至φ50'),"
                     "(7,5,0,'精车'),(9,1,0,'淬火'),(9,2,0,'粗车')"));
}

QLineEdit* FocusedEditor() {
  return qobject_cast<QLineEdit*>(QApplication::focusWidget());
}

// A row as rows.h has it.
template <class... Values>
std::string Row(const Values&... values) {
  QStringList row = {QVariant(values).toString()...};
  return row.join(u'|').toStdString() + '\n';
}

}  // namespace

const Engine& TestedEngine() {
  const QByteArray name = qgetenv("HCW_TEST_ENGINE");
  const auto* const found = std::find_if(std::begin(kEngines), std::end(kEngines),
                                         [&](const Engine& engine) { return engine.name == name; });
  return found == std::end(kEngines) ? kEngines[0] : *found;
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

void MainWindowTest::Audit(Orphans orphans) const {
  WordTree& records = TheWordTree();
  std::string categories;
  std::vector<std::string> words;
  const auto auditNode = [](const Node& node, const auto& record, EntryTag tag, int image) {
    EXPECT_EQ(record.NodeKey(), node.Key());
    EXPECT_EQ(record.NodeName(), node.Text());
    EXPECT_EQ(node.Tag(), tag);
    EXPECT_EQ(node.Image(), image);
  };
  const std::function<void(const Node&, qint32, qint32)> auditWords =
      [&](const Node& parent, qint32 dicId, qint32 fatherId) {
        qint32 before = 0;
        for (const Node* node = parent.Child(); node != nullptr; node = node->Next()) {
          const TreePrpty& word = records.colTreePrptys().Item(node->Key());
          auditNode(*node, word, kWordTag, 3);
          EXPECT_EQ(word.Tag(), kWordTag);
          EXPECT_EQ(word.FatherKey(), parent.Key());
          EXPECT_EQ(word.FatherID(), fatherId);
          EXPECT_EQ(word.DicID(), dicId);
          EXPECT_GT(word.ID(), std::exchange(before, word.ID()));
          words.push_back(Row(dicId, word.ID(), fatherId, node->Text()));
          auditWords(*node, dicId, word.ID());
        }
      };
  for (const Node* node = At("").Child(); node != nullptr; node = node->Next()) {
    const DictPrpty& category = records.colDictPrptys().Item(node->Key());
    auditNode(*node, category, kCategoryTag, 2);
    EXPECT_EQ(category.Tag(), EntryTag());
    categories += Row(category.DicID(), node->Text(), category.Position());
    auditWords(*node, category.DicID(), 0);
  }
  EXPECT_EQ(records.colDictPrptys().Count(), At("").Children());
  EXPECT_EQ(categories, Categories(TheConn()));
  std::string stored = Words(TheConn());
  for (const std::string& word : words) {
    const size_t at = stored.find(word);
    EXPECT_TRUE(at != std::string::npos) << word;
    if (at != std::string::npos) stored.erase(at, word.size());
  }
  EXPECT_TRUE(stored.empty() || orphans == Orphans::kAllowed) << stored;

  ListItems& items = lvListView->Items();
  EXPECT_EQ(records.colListPrptys().Count(), items.Count());
  for (int i = 1; i <= items.Count(); ++i) {
    const ListItem& item = items.Item(i);
    const ListPrpty& record = records.colListPrptys().Item(item.Key());
    const bool category = item.Tag() == kCategoryTag;
    EXPECT_EQ(record.NodeKey(), item.Key());
    EXPECT_EQ(record.NodeName(), item.Text());
    EXPECT_EQ(record.Tag(), category ? EntryTag() : kWordTag);
    EXPECT_EQ(item.Icon(), category ? 2 : 3);
  }
}
