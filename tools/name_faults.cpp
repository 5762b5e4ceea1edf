// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "name_faults.h"

#include "characters.h"
#include "outline.h"

namespace {

// What keeps a name from being shown, exported and imported as it is; empty where nothing does.
QString Obstacle(const QString& name) {
  if (name.contains(QChar(u'\0'))) return QStringLiteral("名称中有空字符");
  if (!name.isValidUtf16() || name.contains(QChar(QChar::ReplacementCharacter))) {
    return QStringLiteral("名称中有损坏的字符");
  }
  if (Characters(name) > kMostCharacters) {
    return QStringLiteral("名称有 %1 个字符，最多 %2 个")
        .arg(Characters(name))
        .arg(kMostCharacters);
  }
  return QString();
}

}  // namespace

QString Shown(const QString& name) {
  constexpr qsizetype kMostUnits = 40;
  QString text = name.left(kMostUnits);
  if (!text.isEmpty() && text.back().isHighSurrogate()) text.chop(1);
  QByteArray line;
  AppendOutlineLine(line, 0, text);
  line.chop(1);
  if (text.size() < name.size()) line += "…";
  return QStringLiteral("“%1”").arg(QString::fromUtf8(line));
}

QString FreeName(const QString& name, QHash<QString, int>& numbers,
                 const std::function<bool(const QString&)>& isTaken) {
  int& number = numbers.insert(name, std::max(numbers.value(name), 1)).value();
  QString numbered;
  do {
    numbered = name + QString::number(++number);
  } while (isTaken(numbered));
  return Characters(numbered) > kMostCharacters ? QString() : numbered;
}

std::vector<QString> Names::Settle(const std::vector<QString>& names, const QString& defaultName,
                                   const std::function<QString(size_t)>& labelOf, Faults& faults) {
  std::vector<QString> newNames(names.size());
  std::vector<size_t> again;
  taken_.reserve(taken_.size() + static_cast<qsizetype>(names.size()));
  for (size_t i = 0; i < names.size(); ++i) {
    if (const QString why = Obstacle(names[i]); !why.isEmpty()) {
      faults.push_back({labelOf(i) + why + QStringLiteral("，请在程序中改名"), QString()});
    }
    const qsizetype before = taken_.size();
    if (!names[i].isEmpty()) taken_.insert(names[i]);
    if (taken_.size() == before) again.push_back(i);
  }
  const auto isTaken = [this](const QString& name) { return taken_.contains(name); };
  for (const size_t i : again) {
    const bool isEmpty = names[i].isEmpty();
    const QString fault =
        labelOf(i) + (isEmpty ? QStringLiteral("没有名称") : QStringLiteral("与前面的一个重名"));
    const QString name = isEmpty && !taken_.contains(defaultName) ? defaultName
                         : !Obstacle(names[i]).isEmpty()
                             ? QString()
                             : FreeName(isEmpty ? defaultName : names[i], numbers_, isTaken);
    if (!name.isNull()) taken_.insert(name);
    newNames[i] = name;
    faults.push_back(name.isNull() ? Fault{fault + QStringLiteral("，请在程序中改名"), QString()}
                                   : Fault{fault, QStringLiteral("改名为") + Shown(name)});
  }
  return newNames;
}
