// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "tree_find.h"

#include "find_field.h"
#include "pinyin.h"
#include "tree_corner.h"
#include "tree_view.h"

#include <QBoxLayout>
#include <QKeyEvent>
#include <QScrollBar>
#include <QShortcut>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace {

const Node* After(const Node* node) {
  if (node->Child() != nullptr) return node->Child();
  while (node != nullptr && node->Next() == nullptr) node = node->Parent();
  return node == nullptr ? nullptr : node->Next();
}

// The rows that lead to the node: in the order of these, the nodes are in the tree's order.
std::vector<int> WayTo(const TreeNodes& nodes, const Node& node) {
  std::vector<int> rows;
  for (const Node* level = &node; level != nullptr; level = level->Parent()) {
    rows.push_back(nodes.IndexOf(level).row());
  }
  std::reverse(rows.begin(), rows.end());
  return rows;
}

// The horizontal scroll bar, whose room is the tree's lower edge. It asks for room for an open
// field, too, which then stands above it, and goes itself where there is nothing to scroll.
class BarAboveField : public QScrollBar {
 public:
  BarAboveField(FindField& field, QWidget* parent)
      : QScrollBar(Qt::Horizontal, parent), field_(field) {
    setMaximumHeight(QScrollBar::sizeHint().height());
  }

  QSize sizeHint() const override {
    QSize size = QScrollBar::sizeHint();
    if (!field_.isHidden()) {
      size.setHeight(field_.sizeHint().height() + (minimum() < maximum() ? size.height() : 0));
    }
    return size;
  }

 private:
  FindField& field_;
};

}  // namespace

TreeFind::TreeFind(TreeView& tree) : tree_(tree), field_(new FindField(&tree)) {
  tree_.setHorizontalScrollBar(new BarAboveField(*field_, &tree_));
  tree_.addScrollBarWidget(field_, Qt::AlignRight);
  field_->hide();
  field_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  if (auto* room = qobject_cast<QBoxLayout*>(field_->parentWidget()->layout())) {
    room->setDirection(QBoxLayout::TopToBottom);
  }

  const auto key = [this, &tree](const QKeySequence& keys, auto action) {
    new QShortcut(keys, &tree, this, action, Qt::WindowShortcut);
  };
  key(Qt::CTRL | Qt::Key_F, [this] { Open(); });
  key(Qt::Key_F3, [this] { Go(true); });
  key(Qt::SHIFT | Qt::Key_F3, [this] { Go(false); });
  const GlyphButton& lens = tree_.Corner().Add(GlyphButton::Glyph::kLens, QStringLiteral("查找"),
                                               QStringLiteral("Ctrl+F"));
  connect(&lens, &QToolButton::clicked, this, &TreeFind::Open);

  connect(field_, &FindField::TextChanged, this, &TreeFind::TextChanged);
  connect(field_, &FindField::Next, this, [this] { Go(true); });
  connect(field_, &FindField::Previous, this, [this] { Go(false); });
  connect(field_, &FindField::Closed, this, &TreeFind::Close);

  connect(tree_.selectionModel(), &QItemSelectionModel::currentChanged, this, &TreeFind::ShowFound);
  const TreeNodes* const nodes = &tree_.Nodes();
  connect(nodes, &QAbstractItemModel::rowsInserted, this, &TreeFind::Outdate);
  connect(nodes, &QAbstractItemModel::rowsAboutToBeRemoved, this, &TreeFind::Outdate);
  connect(nodes, &QAbstractItemModel::dataChanged, this, &TreeFind::Outdate);
  connect(nodes, &QAbstractItemModel::modelAboutToBeReset, this, &TreeFind::Outdate);
  tree_.installEventFilter(this);
  connect(tree_.horizontalScrollBar(), &QScrollBar::rangeChanged, this, [this](int from, int to) {
    if (!field_->isHidden()) tree_.horizontalScrollBar()->setVisible(from < to);
  });
}

void TreeFind::Open() {
  if (!tree_.EndLabelEdit()) return;
  if (field_->isHidden()) {
    field_->show();
    QScrollBar* const bar = tree_.horizontalScrollBar();
    bar->setVisible(bar->minimum() < bar->maximum());
    tree_.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    Collect();
    PrepareReadings();
    if (Node* selected = tree_.SelectedItem()) tree_.EnsureVisible(*selected);
  }
  field_->Activate();
}

// Behind the first picture of the field, in two steps of less than a tenth of a second each, so
// that the first key need not wait for it.
void TreeFind::PrepareReadings() {
  if (std::exchange(hasReadings_, true)) return;
  QTimer::singleShot(0, this, [this] {
    PreparePinyin();
    QTimer::singleShot(0, this, [this] {
      for (const Node* node = First(); node != nullptr; node = After(node)) {
        for (const QChar c : node->TextView()) PinyinOf(c.unicode());
      }
    });
  });
}

void TreeFind::Close() {
  if (field_->isHidden()) return;
  tree_.setFocus(Qt::OtherFocusReason);
  field_->hide();
  tree_.setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  tree_.horizontalScrollBar()->show();
  matches_ = {};
}

void TreeFind::Outdate() {
  if (outdated_ || field_->isHidden()) return;
  outdated_ = true;
  QTimer::singleShot(0, this, [this] {
    if (outdated_) Collect();
  });
}

void TreeFind::Collect() {
  outdated_ = false;
  matches_.clear();
  const Node* node = pattern_.IsEmpty() ? nullptr : First();
  for (; node != nullptr; node = After(node)) {
    if (pattern_.IsPartOf(node->TextView())) matches_.push_back(node->Key());
  }
  ShowFound();
}

const Node* TreeFind::First() const {
  return tree_.Nodes().NodeAt(tree_.model()->index(0, 0));
}

void TreeFind::TextChanged() {
  const QString text = field_->Text();
  if (text == searched_) return;
  const bool isLonger = !outdated_ && !searched_.isEmpty() && text.startsWith(searched_);
  searched_ = text;
  pattern_ = NamePattern(searched_);
  if (isLonger) {  // nothing is found that was not found before
    std::erase_if(matches_, [this](EntryKey match) {
      return !pattern_.IsPartOf(tree_.Nodes().Item(match).TextView());
    });
    ShowFound();
  } else {
    Collect();
  }
  const Node* const selected = tree_.SelectedItem();
  if (!matches_.empty()) Select(selected == nullptr ? 0 : PlaceOf(*selected));
}

size_t TreeFind::PlaceOf(const Node& node) const {
  const TreeNodes& nodes = tree_.Nodes();
  const std::vector<int> way = WayTo(nodes, node);
  const auto place = std::partition_point(matches_.begin(), matches_.end(), [&](EntryKey match) {
    return WayTo(nodes, nodes.Item(match)) < way;
  });
  return static_cast<size_t>(place - matches_.begin());
}

void TreeFind::Go(bool forward) {
  if (field_->isHidden()) return Open();
  if (!tree_.EndLabelEdit()) return;
  if (outdated_) Collect();
  if (matches_.empty()) return;
  const Node* const selected = tree_.SelectedItem();
  size_t place = selected == nullptr ? matches_.size() : PlaceOf(*selected);
  if (!forward) {
    place += matches_.size() - 1;
  } else if (place < matches_.size() && selected != nullptr && matches_[place] == selected->Key()) {
    ++place;
  }
  Select(place);
}

// Round at the ends.
void TreeFind::Select(size_t place) {
  tree_.SelectAsKeyboard(tree_.Nodes().Item(matches_[place % matches_.size()]));
}

void TreeFind::ShowFound() {
  if (field_->isHidden() || outdated_) return;
  const Node* const selected = tree_.SelectedItem();
  size_t number = 0;
  if (selected != nullptr) {
    const size_t place = PlaceOf(*selected);
    if (place < matches_.size() && matches_[place] == selected->Key()) number = place + 1;
  }
  field_->ShowFound(static_cast<qsizetype>(number), static_cast<qsizetype>(matches_.size()));
}

bool TreeFind::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress && !field_->isHidden() &&
      static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
    Close();
    return true;
  }
  return QObject::eventFilter(watched, event);
}
