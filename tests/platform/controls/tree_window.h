// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "tree_view.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <functional>
#include <map>
#include <string>

// A window with a menu bar, a button and a tree, in which root is selected:
//   root > a > a1 > a11
//            > a2
//        > b
class TreeWindowTest : public testing::Test {
 protected:
  TreeWindowTest() {
    QApplication::setDoubleClickInterval(40);
    window_.resize(400, 300);
    menus_.setGeometry(0, 0, 400, 30);
    menus_.addMenu(QStringLiteral("menu"))->addAction(QStringLiteral("item"));
    button_.setGeometry(310, 40, 80, 30);
    tree_.setGeometry(0, 40, 300, 260);
    for (const auto& [parent, name] : {std::pair("", "root"),
                                       {"root", "a"},
                                       {"a", "a1"},
                                       {"a", "a2"},
                                       {"a1", "a11"},
                                       {"root", "b"}}) {
      Add(parent, QString::fromUtf8(name));
    }
    tree_.SetSelectedItem(At("root"));
    QObject::connect(&tree_, &TreeView::NodeClick, [this](Node* node) { Log(node->Text()); });
    QObject::connect(&tree_, &TreeView::BeforeLabelEdit, [this](qint16& cancel) {
      cancel = tree_.SelectedItem() == &At("root") ? 1 : 0;
    });
    window_.show();
    window_.activateWindow();
    tree_.setFocus();
    if (!QTest::qWaitFor([this] { return tree_.hasFocus(); })) ADD_FAILURE() << "no focus";
  }

  void Add(const std::string& parent, const QString& name) {
    const EntryKey key = EntryKey::Numbered(static_cast<int>(keys_.size()));
    tree_.Nodes().Add(parent.empty() ? EntryKey() : keys_.at(parent), Relationship::kChild, key,
                      name, 1);
    keys_.emplace(name.toStdString(), key);
  }
  // The node that was added under this name.
  Node& At(const std::string& name) { return tree_.Nodes().Item(keys_.at(name)); }
  void Select(const char* name) { tree_.SetSelectedItem(At(name)); }
  std::string Selected() const { return tree_.SelectedItem()->Text().toStdString(); }
  // A point of the tree, the middle of a node's label in the window; scrolls the label into view.
  QPoint InWindow(const QPoint& point) const { return tree_.viewport()->mapTo(&window_, point); }
  QPoint Label(const char* name) {
    tree_.EnsureVisible(At(name));
    return InWindow(tree_.LabelRect(At(name)).center());
  }
  void Click(const QPoint& point, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseClick(window_.windowHandle(), button, {}, point);
  }
  void Click(const char* name) { Click(Label(name)); }
  void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(window_.windowHandle(), key, modifiers);
  }
  void Log(const QString& event) { log_ += event.toStdString() + '.'; }
  // What was logged since the last call, a dot behind each.
  std::string Logged() { return std::exchange(log_, {}); }

  QWidget window_;
  QMenuBar menus_{&window_};
  QPushButton button_{&window_};
  TreeView tree_{&window_};

 private:
  std::map<std::string, EntryKey> keys_;
  std::string log_;
};
