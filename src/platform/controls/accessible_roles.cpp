// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "accessible_roles.h"

#include "glyph_button.h"
#include "picture_button.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QAccessibleWidget>
#include <QAction>
#include <QLineEdit>
#include <QMenu>
#include <QTimer>

#include <functional>
#include <utility>

namespace {

// A view tells of its items only. What it opens on itself to type in or to press, and the menus
// that belong to the pane, are told of by the pane, behind its own controls.
class PaneInterface : public QAccessibleWidget {
 public:
  explicit PaneInterface(QWidget* pane) : QAccessibleWidget(pane) {}

  QAccessible::Role role() const override {
    return childCount() > 0 ? QAccessible::Pane : QAccessible::Graphic;
  }

  int childCount() const override {
    return QAccessibleWidget::childCount() + static_cast<int>(Opened().size());
  }

  QAccessibleInterface* child(int index) const override {
    const int own = QAccessibleWidget::childCount();
    return index < own ? QAccessibleWidget::child(index)
                       : QAccessible::queryAccessibleInterface(Opened().value(index - own));
  }

  int indexOfChild(const QAccessibleInterface* child) const override {
    const qsizetype opened = Opened().indexOf(qobject_cast<QWidget*>(child->object()));
    return opened < 0 ? QAccessibleWidget::indexOfChild(child)
                      : QAccessibleWidget::childCount() + static_cast<int>(opened);
  }

 private:
  QWidgetList Opened() const {
    QWidgetList opened;
    for (QWidget* part : widget()->findChildren<QWidget*>()) {
      const bool isInput = qobject_cast<QLineEdit*>(part) != nullptr ||
                           qobject_cast<QAbstractButton*>(part) != nullptr;
      if (isInput && part->isVisible() && part->parentWidget() != widget()) opened.append(part);
    }
    for (const QAction* action : widget()->actions()) {
      QMenu* const menu = action->menu();
      if (menu != nullptr && menu->isVisible()) opened.append(menu);
    }
    return opened;
  }
};

class ButtonInterface : public QAccessibleWidget {
 public:
  ButtonInterface(QWidget& button, std::function<void()> press)
      : QAccessibleWidget(&button, QAccessible::Button), press_(std::move(press)) {}

  // Whatever it stands on, the pane tells of it.
  QAccessibleInterface* parent() const override {
    for (QWidget* above = widget()->parentWidget(); above != nullptr;
         above = above->parentWidget()) {
      if (qobject_cast<PictureBox*>(above) != nullptr) {
        return QAccessible::queryAccessibleInterface(above);
      }
    }
    return QAccessibleWidget::parent();
  }

  QStringList actionNames() const override {
    return QStringList(pressAction()) + QAccessibleWidget::actionNames();
  }

  // What is pressed may open a box, for whose end the asking tool is not kept waiting.
  void doAction(const QString& name) override {
    if (name == pressAction()) {
      QTimer::singleShot(0, widget(), press_);
    } else {
      QAccessibleWidget::doAction(name);
    }
  }

 private:
  std::function<void()> press_;
};

QAccessibleInterface* InterfaceOf(const QString& className, QObject* object) {
  static const QHash<QString, QAccessible::Role> kRoles = {
      {QStringLiteral("BandContainer"), QAccessible::Grouping},
      {QStringLiteral("StatusBar"), QAccessible::StatusBar},
      {QStringLiteral("ToolBar"), QAccessible::ToolBar},
      {QStringLiteral("VerticalLabel"), QAccessible::StaticText},
  };
  auto* widget = qobject_cast<QWidget*>(object);
  if (widget == nullptr) return nullptr;
  if (auto* const picture = qobject_cast<PictureButton*>(widget)) {
    return new ButtonInterface(*picture, [picture] { Q_EMIT picture->Click(); });
  }
  if (auto* const glyph = qobject_cast<GlyphButton*>(widget)) {
    return new ButtonInterface(*glyph, [glyph] { glyph->click(); });
  }
  if (className == QStringLiteral("PictureBox")) return new PaneInterface(widget);
  const auto role = kRoles.constFind(className);
  return role == kRoles.cend() ? nullptr : new QAccessibleWidget(widget, role.value());
}

}  // namespace

void InstallAccessibleRoles() {
  QAccessible::installFactory(&InterfaceOf);
}
