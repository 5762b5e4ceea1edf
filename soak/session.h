// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "audit.h"

#include <QLineEdit>
#include <QList>
#include <QPointer>
#include <QRandomGenerator>
#include <QWidget>

#include <memory>
#include <optional>

class Connection;
class ListView;
class Node;
class QDialog;
class TreeView;
class frmMain;
struct Engine;

// A random session in the real main window, over a small library of hostile names on the data
// source "HCWordLib". Act number i follows from the seed and i alone, so that a session from which
// acts were left out still means the same with the rest.
class Session : public QObject {
 public:
  Session(const Engine& engine, quint32 seed);
  ~Session() override;

  // Does act number `index`, telling what it does on standard output, and audits what it left.
  // Raises Fault. Ends the process where the program ends.
  void Act(int index);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  // What an act may do to the editing that is open when it begins.
  struct Editing {
    EntryId id;
    QString text;
    bool changed = false;
  };

  // How the tree stands, the root as (0, 0): the selected node and those above it, the rows that
  // can be scrolled to, which of them that have children are expanded, the scroll bars' values.
  struct Standing {
    QList<EntryId> selected;
    QList<std::pair<EntryId, QString>> rows;
    std::map<EntryId, bool> expanded;
    QPoint scrolled;
  };

  void OpenWindow();
  void Settle();
  void AnswerBox(QDialog& dialog);
  [[noreturn]] void EndBehind(const QString& message);
  void Audit(const Library& before);
  std::optional<Editing> OpenEditing();

  // Acts.
  void Mouse();
  void Keys();
  void TypeText();
  void Paste();
  void Compose();
  void EditNode();
  void Find();
  void AuditFound(const QWidget& field);
  void Menu();
  void PopUp();
  void ToolBarButtonClicks();
  void Command();
  void OtherWindow();
  void Colleague();
  void Reload();
  void TakeBack();
  void FailingStatement();
  void Window();
  void CloseAndReopen();
  void PasteList();
  void CopyBranch();
  void Corner();
  void NameAnother();

  bool FocusOn(QWidget& control);
  int Below(int count) { return static_cast<int>(random_.bounded(count)); }
  bool OneIn(int count) { return Below(count) == 0; }
  template <class T>
  const T& OneOf(const QList<T>& values) {
    return values.at(Below(static_cast<int>(values.size())));
  }
  // Another point of the window, and what is there.
  std::pair<QPoint, QString> Place();
  QPoint Middle(const QString& name, QPoint offset = {});
  EntryId IdOf(const Node& node) const;
  EntryId IdOrRoot(const Node& node) const;
  Standing Stands() const;
  // Raises Fault unless the tree, which shows `shown`, stands as before as far as that exists, and
  // the list shows the children of one of its nodes.
  void CompareStanding(const Standing& before, const Library& shown);
  QString NastyText();
  // What is being composed with an input method.
  static QString Composed() { return QStringLiteral("组"); }
  void Tell(const QString& what);
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

  QRandomGenerator random_;
  quint32 seed_;
  std::unique_ptr<Connection> colleague_;
  std::unique_ptr<QWidget> otherWindow_;
  std::unique_ptr<frmMain> window_;
  TreeView* tree_ = nullptr;
  ListView* list_ = nullptr;
  Touched touched_;  // since the library was loaded
  QPointer<QLineEdit> composing_;
  QString composedInto_;

  // Of the act that is being done.
  bool dropsText_ = false;
  bool refused_ = false;
  bool unread_ = false;
  bool notTakenBack_ = false;
  bool deleted_ = false;
  std::optional<Editing> editing_;  // as last seen
  std::set<EntryId> edited_;        // all that were seen
  Touched touchedNow_;
  bool faultArmed_ = false;
};
