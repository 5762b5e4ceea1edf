// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <vector>

// The texts of all statements that the program sends, each in one place, and the criteria that it
// searches record sets by. Numbers stand in them as plain decimal text, names between single quotes
// with a single quote inside doubled.
namespace Statement {

// Record sets to read.
QString SelectCategories();
QString SelectWords(qint32 DictID);

// Record sets to search for a free default name, each with its criterion.
QString SearchCategories();
QString SearchWords(qint32 DictID);
QString CategoryCriterion(const QString& SortName);
QString WordCriterion(const QString& NodeName);

// Record sets that tell whether a name is taken.
QString SelectCategoryNamed(const QString& SortName);
QString SelectWordNamed(const QString& NodeName, qint32 DictID);

// Record sets that tell what a delete takes away: a category, and those words of one that have the
// numbers.
QString SelectCategory(qint32 DictID);
QString SelectWordsNumbered(qint32 DictID, const std::vector<qint32>& IDs);

// Record sets to add a row to. The last row is the one with the highest number.
QString SelectRegister(const QString& TableName);
QString SelectCategoriesByPosition();
QString SelectWordsByID(qint32 DictID);

// Statements to execute.
QString RenameCategory(const QString& NewName, qint32 DictID);
QString RenameWord(const QString& NewName, qint32 DictID, qint32 ID);
QString HangWord(qint32 FatherID, qint32 DictID, qint32 ID);
QString DeleteCategory(qint32 DictID);
QString DeleteWordsOfCategory(qint32 DictID);
QString DeleteWord(qint32 DictID, qint32 ID);

}  // namespace Statement
