// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "accessible_roles.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QWidget>

namespace {

QAccessibleInterface* InterfaceOf(const QString& className, QObject* object) {
  static const QHash<QString, QAccessible::Role> kRoles = {
      {QStringLiteral("BandContainer"), QAccessible::Grouping},
      {QStringLiteral("PictureBox"), QAccessible::Graphic},
      {QStringLiteral("StatusBar"), QAccessible::StatusBar},
      {QStringLiteral("ToolBar"), QAccessible::ToolBar},
      {QStringLiteral("VerticalLabel"), QAccessible::StaticText},
  };
  auto* widget = qobject_cast<QWidget*>(object);
  const auto role = kRoles.constFind(className);
  if (widget == nullptr || role == kRoles.cend()) return nullptr;
  return new QAccessibleWidget(widget, role.value());
}

}  // namespace

void InstallAccessibleRoles() {
  QAccessible::installFactory(&InterfaceOf);
}
