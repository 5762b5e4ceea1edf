// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "tree_view.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

#include <string>
#include <utility>

// A tree in a window that has the focus, above a line to type in:
//   root 词句库 / turning 车削 (rough 粗车, fine 精车), milling 铣削, grinding Grinding
// The subtree of turning is collapsed, root is selected. Mouse and keys reach the window as they
// come from the window system.
class ShownTree : public testing::Test {
 protected:
  ShownTree() {
    QApplication::setDoubleClickInterval(40);
    auto* column = new QVBoxLayout(&window_);
    column->addWidget(tree_);
    column->addWidget(other_);
    Add("", "root", "词句库");
    Add("root", "turning", "车削");
    Add("turning", "rough", "粗车");
    Add("turning", "fine", "精车");
    Add("root", "milling", "铣削");
    Add("root", "grinding", "Grinding");
    window_.resize(400, 400);
    window_.show();
    window_.activateWindow();
    tree_->setFocus();
    Select("root");
    tree_->SetExpanded(At("root"), true);
    QObject::connect(tree_, &TreeView::NodeClick,
                     [this](Node* node) { events_ += "click " + node->Key().toStdString() + " "; });
    QObject::connect(tree_, &TreeView::MouseDown, [this](int button, int, float, float) {
      events_ += "down" + std::to_string(button) + " ";
    });
    QObject::connect(tree_, &TreeView::MouseUp, [this](int button, int, float, float) {
      events_ += "up" + std::to_string(button) + " ";
    });
  }
  void SetUp() override {
    ASSERT_TRUE(QTest::qWaitFor([this] { return tree_->hasFocus(); }));
  }

  void Add(const char* parent, const char* key, const char* text) {
    tree_->Nodes().Add(QString::fromLatin1(parent), Relationship::kChild, QString::fromLatin1(key),
                       QString::fromUtf8(text), 1);
  }
  Node& At(const char* key) const { return tree_->Nodes().Item(QString::fromLatin1(key)); }
  void Select(const char* key) { tree_->SetSelectedItem(At(key)); }
  void Remove(const char* key) { tree_->RemoveNode(QString::fromLatin1(key)); }
  std::string Selected() const { return tree_->SelectedItem()->Key().toStdString(); }
  std::string Text(const char* key) const { return At(key).Text().toStdString(); }

  // Points of the window.
  QPoint InWindow(const QPoint& point) const { return tree_->viewport()->mapTo(&window_, point); }
  QPoint Label(const char* key) const { return InWindow(tree_->LabelRect(At(key)).center()); }
  QPoint LeftOfLabel(const char* key, int distance) const {
    const QRect label = tree_->LabelRect(At(key));
    return InWindow(QPoint(label.left() - distance, label.center().y()));
  }
  QPoint Picture(const char* key) const { return LeftOfLabel(key, 10); }
  QPoint Box(const char* key) const { return LeftOfLabel(key, 21 + tree_->indentation() / 2); }
  QPoint RightOf(const char* key) const { return Label(key) + QPoint(120, 0); }

  void Press(const QPoint& point, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mousePress(window_.windowHandle(), button, Qt::NoModifier, point);
  }
  void Release(const QPoint& point, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseRelease(window_.windowHandle(), button, Qt::NoModifier, point);
  }
  void Click(const QPoint& point, Qt::MouseButton button = Qt::LeftButton) {
    Press(point, button);
    Release(point, button);
  }
  void TypeKey(Qt::Key key) { QTest::keyClick(window_.windowHandle(), key); }

  // What was raised since the last call.
  std::string Events() { return std::exchange(events_, {}); }

  QWidget window_;
  TreeView* tree_ = new TreeView;
  QLineEdit* other_ = new QLineEdit;

 private:
  std::string events_;
};
