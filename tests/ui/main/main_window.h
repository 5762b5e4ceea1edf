// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "engines.h"
#include "frm_main.h"
#include "list_view.h"
#include "message_box.h"
#include "tree_view.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QTest>
#include <QToolButton>

#include <functional>
#include <memory>
#include <string>

// The engine that HCW_TEST_ENGINE names, else SQLite: the one that this process runs on.
const Engine& TestedEngine();

enum class Orphans { kNone, kAllowed };

// The main window over a fresh library of its own:
//   车削 (7)      粗车 (1) > 粗车外圆 (2) > 粗车外圆至φ50 (4)
//                         > 粗车端面 (3)
//                 精车 (5)
//   热处理 (9)    淬火 (1), 粗车 (2)
//   空类 (12)
// Nodes are named by their path: "车削/粗车", "" for the root. A twin answers the message boxes, as
// Escape would unless the test wants another answer.
class MainWindowTest : public testing::Test {
 protected:
  MainWindowTest();
  ~MainWindowTest() override {
    CloseWindow();
    SetMsgBoxTwin({});
  }

  // Loads the library, a fresh one if wanted, into a new window of 600 by 600 pixels.
  void OpenWindow(bool fresh = true);
  void CloseWindow();

  Node& At(const std::string& path) const;
  void Select(const char* path) { tvTreeView->SetSelectedItem(At(path)); }
  std::string Selected() const;  // its path
  // The texts below the node, "车削(粗车(...) 精车) ...".
  std::string Tree(const Node& parent) const;
  std::string Tree() const { return Tree(At("")); }
  std::string List() const;  // the texts of its items
  std::string Panel() const;

  // The middle of the node's label in the window; scrolls it into view.
  QPoint Label(const char* path) const;
  void Click(const char* path, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseClick(window_->windowHandle(), button, Qt::NoModifier, Label(path));
  }
  void PressKey(Qt::Key key) { QTest::keyClick(window_->windowHandle(), key); }
  // Chooses a menu item, presses a tool-bar button.
  void Choose(const std::string& item) { Find<QAction>(item.c_str())->trigger(); }
  void PressButton(const char* key) { Find<QToolButton>(key)->click(); }
  bool WaitForEditor() const;
  // The text that is selected in the editor, which is waited for.
  std::string SelectedText() const;
  // Replaces the text in the editor and presses the key, if any.
  void Type(const char* text, int key = Qt::Key_Return);

  // The next question is answered with yes, after `meanwhile` was called.
  void AnswerYes(std::function<void()> meanwhile = [] {}) { meanwhile_ = std::move(meanwhile); }
  // The messages since the last call, a line each: title|text|icon|buttons.
  std::string Messages() { return std::exchange(messages_, {}); }

  // Holds the tree, the database's rows, the records and the list against each other. Orphans are
  // words in the database that no node shows.
  void Audit(Orphans orphans = Orphans::kNone) const;

  template <class T>
  T* Find(const char* name) const {
    T* found = window_->findChild<T*>(QString::fromUtf8(name));
    if (found == nullptr) throw std::runtime_error(std::string("no ") + name);
    return found;
  }

  std::unique_ptr<frmMain> window_;
  TreeView* tvTreeView = nullptr;
  ListView* lvListView = nullptr;

 private:
  MsgBoxResult Answer(const QString& text, MsgBoxButtons buttons, MsgBoxIcon icon,
                      const QString& title);

  std::function<void()> meanwhile_;
  std::string messages_;
};
