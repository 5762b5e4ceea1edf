// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "entry_key.h"
#include "frm_main.h"
#include "journal.h"

#include <QRandomGenerator>

class Node;
class TreeView;

// A user with the real main window, who works by mouse and keyboard like everybody else of the
// team.
class WindowUser {
 public:
  WindowUser(const QString& name, quint32 seed);
  ~WindowUser();

  // One change, or another look at the library.
  void Act();

 private:
  void SelectAny();
  void AddWord();
  void Rename();
  void Delete();
  void Press(const char* button);
  void PressKey(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
  bool NameIt(const QString& name);
  QString FreshName();
  QString Told();
  int Below(int count) { return static_cast<int>(random_.bounded(count)); }

  QRandomGenerator random_;
  const QString name_;
  int names_ = 0;
  frmMain window_;
  TreeView* tree_ = nullptr;
  Journal journal_;
  QString told_;  // by message boxes, since it was last asked
};
