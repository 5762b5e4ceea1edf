// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "statements.h"

#include "dialect.h"

#include <QStringList>

namespace {

QString Number(qint32 number) {
  return QString::number(number);
}

}  // namespace

namespace Statement {

QString SelectCategories() {
  return QStringLiteral("select * from Dictionary ");
}

QString SelectWords(qint32 DictID) {
  return QStringLiteral("select * from Items where SortID=") + Number(DictID) +
         QStringLiteral(" Order by ID,FatherID");
}

QString SearchCategories() {
  return QStringLiteral("Select * from Dictionary ");
}

QString SearchWords(qint32 DictID) {
  return QStringLiteral("Select * from Items where SortID=") + Number(DictID);
}

QString CategoryCriterion(const QString& SortName) {
  return QStringLiteral("SortName=") + Quoted(SortName);
}

QString WordCriterion(const QString& NodeName) {
  return QStringLiteral("NodeName=") + Quoted(NodeName);
}

QString SelectCategoryNamed(const QString& SortName) {
  return QStringLiteral("select * from Dictionary where SortName=") + Quoted(SortName);
}

QString SelectWordNamed(const QString& NodeName, qint32 DictID) {
  return QStringLiteral("select * from Items where NodeName=") + Quoted(NodeName) +
         QStringLiteral(" And SortID=") + Number(DictID);
}

QString SelectCategory(qint32 DictID) {
  return QStringLiteral("select * from Dictionary where GID=") + Number(DictID);
}

QString SelectWordsNumbered(qint32 DictID, const std::vector<qint32>& IDs) {
  QStringList numbers;
  for (const qint32 ID : IDs) numbers += Number(ID);
  return QStringLiteral("select * from Items where SortID=") + Number(DictID) +
         QStringLiteral(" And ID in (") + numbers.join(u',') + u')';
}

QString SelectRegister(const QString& TableName) {
  return QStringLiteral("select * from ") + TableName;
}

QString SelectCategoriesByPosition() {
  return QStringLiteral("select * from Dictionary order by Position");
}

QString SelectWordsByID(qint32 DictID) {
  return QStringLiteral("select * from Items where  SortID=") + Number(DictID) +
         QStringLiteral(" order by ID");
}

QString RenameCategory(const QString& NewName, qint32 DictID) {
  return QStringLiteral("update Dictionary set  SortName=") + Quoted(NewName) +
         QStringLiteral(" where GID=") + Number(DictID);
}

QString RenameWord(const QString& NewName, qint32 DictID, qint32 ID) {
  return QStringLiteral("update Items set  NodeName=") + Quoted(NewName) +
         QStringLiteral(" where SortID=") + Number(DictID) + QStringLiteral(" And ID=") +
         Number(ID);
}

QString HangWord(qint32 FatherID, qint32 DictID, qint32 ID) {
  return QStringLiteral("update Items set FatherID=") + Number(FatherID) +
         QStringLiteral(" where SortID=") + Number(DictID) + QStringLiteral(" And ID=") +
         Number(ID);
}

QString DeleteCategory(qint32 DictID) {
  return QStringLiteral("delete * from  Dictionary  where GID=") + Number(DictID);
}

QString DeleteWordsOfCategory(qint32 DictID) {
  return QStringLiteral("delete * from Items  where SortID=") + Number(DictID);
}

QString DeleteWord(qint32 DictID, qint32 ID) {
  return QStringLiteral("delete * from Items  where SortID=") + Number(DictID) +
         QStringLiteral(" And ID=") + Number(ID);
}

}  // namespace Statement
