// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "window_user.h"

#include "branch.h"
#include "entry_scheme.h"
#include "message_box.h"
#include "shared_objects.h"
#include "tree_view.h"
#include "word_tree.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QTest>
#include <QToolButton>
#include <QToolTip>

namespace {

// The words of the branch as the journal has them: ID NAME ID NAME ...
QStringList IdsAndNames(const Node& top) {
  QStringList fields;
  const TreePrptys& words = TheWordTree().colTreePrptys();
  for (const EntryKey key : BranchOf(top)) {
    const TreePrpty& word = words.Item(key);
    fields << QString::number(word.ID()) << word.NodeName();
  }
  return fields;
}

qint32 CategoryOf(const Node& node) {
  return node.Tag() == kCategoryTag ? TheWordTree().colDictPrptys().Item(node.Key()).DicID()
                                    : TheWordTree().colTreePrptys().Item(node.Key()).DicID();
}

}  // namespace

WindowUser::WindowUser(const QString& name, quint32 seed) : random_(seed), name_(name) {
  SetMsgBoxTwin([this](const QString& text, MsgBoxButtons buttons, MsgBoxIcon icon,
                       const QString& /*title*/) {
    if (buttons == MsgBoxButtons::kYesNo) return MsgBoxResult::kYes;
    told_ += text;
    // The program ends behind it.
    if (icon == MsgBoxIcon::kCritical) journal_.Refused(text);
    return MsgBoxResult::kOk;
  });
  window_.Form_Load();
  window_.show();
  window_.activateWindow();
  tree_ = window_.findChild<TreeView*>(QStringLiteral("tvTreeView"));
  tree_->setFocus();
  QApplication::processEvents();
}

WindowUser::~WindowUser() {
  SetMsgBoxTwin({});
}

void WindowUser::Act() {
  if (tree_->IsEditing()) PressKey(Qt::Key_Escape);
  told_.clear();
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    if (widget->inherits("QTipLabel")) widget->close();
  }
  const int kind = Below(20);
  if (kind == 0) return PressKey(Qt::Key_F5);
  SelectAny();
  const EntryTag tag = tree_->SelectedItem()->Tag();
  if (tag == kRootTag) return;
  if (kind < 12) return AddWord();
  if (kind < 16 && tag == kWordTag) return Rename();
  if (kind == 16 || (kind < 19 && tag == kWordTag)) return Delete();
  if (kind == 19) {
    journal_.Try({QStringLiteral("restore")});
    PressKey(Qt::Key_Z, Qt::ControlModifier);
    if (told_.isEmpty()) {
      journal_.Done();
    } else {
      journal_.Refused(told_);
    }
  }
}

// Walks down from the root, and clicks where that ends.
void WindowUser::SelectAny() {
  Node* node = &tree_->Nodes().Item(kRootKey);
  while (node->Child() != nullptr && (node->Tag() == kRootTag || Below(3) != 0)) {
    Node* child = node->Child();
    for (int steps = Below(40); steps > 0 && child->Next() != nullptr; --steps)
      child = child->Next();
    node = child;
  }
  tree_->EnsureVisible(*node);
  QTest::mouseClick(tree_->viewport(), Qt::LeftButton, {}, tree_->LabelRect(*node).center());
  if (tree_->IsEditing()) PressKey(Qt::Key_Escape);
}

void WindowUser::AddWord() {
  const Node* const parent = tree_->SelectedItem();
  const QString name = FreshName();
  const bool isTop = parent->Tag() == kCategoryTag;
  const qint32 fatherId = isTop ? 0 : TheWordTree().colTreePrptys().Item(parent->Key()).ID();
  journal_.Try({QStringLiteral("create"), QString::number(CategoryOf(*parent)),
                QString::number(fatherId), name});
  Press("新词");
  const Node* const added = tree_->SelectedItem();
  if (added == parent || !NameIt(name)) return journal_.Refused(Told());
  journal_.Done(TheWordTree().colTreePrptys().Item(added->Key()).ID());
}

void WindowUser::Rename() {
  const TreePrpty& word = TheWordTree().colTreePrptys().Item(tree_->SelectedItem()->Key());
  const QString name = FreshName();
  journal_.Try({QStringLiteral("rename"), QString::number(word.DicID()), QString::number(word.ID()),
                word.NodeName(), name});
  PressKey(Qt::Key_F2);
  if (!NameIt(name)) return journal_.Refused(Told());
  journal_.Done();
}

void WindowUser::Delete() {
  const Node& node = *tree_->SelectedItem();
  const EntryKey key = node.Key();
  const bool isCategory = node.Tag() == kCategoryTag;
  // Few, so that there is always something to work on.
  if (isCategory && (Below(4) != 0 || tree_->Nodes().Item(kRootKey).Child()->Next() == nullptr))
    return;
  QStringList fields{isCategory ? QStringLiteral("drop") : QStringLiteral("delete"),
                     QString::number(CategoryOf(node))};
  if (isCategory) {
    fields += node.Text();
  } else {
    fields += IdsAndNames(node);
  }
  journal_.Try(fields);
  Press("删除");
  // A branch that went in part has left the tree, too.
  const QString told = Told();
  if (tree_->Nodes().Find(key) != nullptr || !told.isEmpty()) return journal_.Refused(told);
  journal_.Done();
}

void WindowUser::Press(const char* button) {
  auto* const found = window_.findChild<QToolButton*>(QString::fromUtf8(button));
  QTest::mouseClick(found, Qt::LeftButton);
  QApplication::processEvents();
}

void WindowUser::PressKey(Qt::Key key, Qt::KeyboardModifiers modifiers) {
  QTest::keyClick(window_.windowHandle(), key, modifiers);
  QApplication::processEvents();
}

bool WindowUser::NameIt(const QString& name) {
  auto* const editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
  if (!tree_->IsEditing() || editor == nullptr) return false;
  editor->selectAll();
  QInputMethodEvent typed;
  typed.setCommitString(name);
  QApplication::sendEvent(editor, &typed);
  PressKey(Qt::Key_Return);
  return tree_->SelectedItem()->Text() == name;
}

QString WindowUser::FreshName() {
  return QStringLiteral("词'%%{?}😀-%1-%2").arg(name_).arg(++names_);
}

// What a command did not do is told in a box, or in a tip at its button.
QString WindowUser::Told() {
  return told_ + (QToolTip::isVisible() ? QToolTip::text() : QString());
}
