// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "component.h"

#include "component_factory.h"
#include "error.h"
#include "log.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QPluginLoader>

namespace {

// The library's place: beside the program, as in a build tree, or in the installation's folder.
QString FindLibrary(const QString& progId) {
  const QDir program(QCoreApplication::applicationDirPath());
  const QString name = QStringLiteral("lib%1.so").arg(progId);
  for (const QString& folder : {program.path(), program.filePath(HCW_COMPONENT_FOLDER)}) {
    const QFileInfo library(QDir(folder), name);
    if (library.isFile()) return library.canonicalFilePath();
  }
  return {};
}

}  // namespace

QString CannotCreateObjectText() {
  return QStringLiteral("ActiveX 部件不能创建对象");
}

std::unique_ptr<GUIDGen> CreateComponent(const QString& progId) {
  const QString path = FindLibrary(progId);
  if (path.isEmpty()) {
    qCWarning(lcHCWordLib, "没有部件 %s", qUtf8Printable(progId));
    throw Error(CannotCreateObjectText());
  }
  QPluginLoader loader(path);
  const auto* factory = qobject_cast<ComponentFactory*>(loader.instance());
  std::unique_ptr<GUIDGen> component = factory ? factory->Create() : nullptr;
  if (!component) {
    qCWarning(lcHCWordLib, "部件 %s 不能使用：%s", qUtf8Printable(path),
              loader.isLoaded() ? "不是部件库" : qUtf8Printable(loader.errorString()));
    throw Error(CannotCreateObjectText());
  }
  return component;
}
