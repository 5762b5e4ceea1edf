// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "library.h"

#include "bulk_writer.h"
#include "recordset.h"
#include "statements.h"
#include "transaction.h"

Library::Library() {
  connection_.SetConnectionString(QStringLiteral("DSN=HCWordLib"));
  connection_.Open();
  Recordset categories;
  categories.Open(Statement::SelectCategories(), connection_);
  categories_ = categories.RecordCount();
}

qint32 Library::AddCategory(const QString& name, qint32 words,
                            const std::function<Word(qint32 id)>& wordOf) {
  ++categories_;
  Transaction transaction(connection_, Transaction::Use::kWrite);
  connection_.Execute(
      QStringLiteral("insert into GUIDLists (ID,GUIDField1,GUIDField2,GUIDField3,GUIDField4) "
                     "values (%1,%1,%1,%1,%1)")
          .arg(categories_));
  connection_.Execute(QStringLiteral("insert into Dictionary (GID,SortName,Position) "
                                     "values (%1,'%2',%1)")
                          .arg(categories_)
                          .arg(name));
  BulkWriter rows(connection_, QStringLiteral("Items"),
                  QStringLiteral("SortID,ID,FatherID,NodeName"));
  for (qint32 id = 1; id <= words; ++id) {
    const Word word = wordOf(id);
    rows.Add({categories_, id, word.fatherId, word.name});
  }
  rows.Finish();
  transaction.Commit();
  return categories_;
}

// Of as many different characters as the common ones of the national standard are.
QString Library::RandomName() {
  constexpr unsigned kFirstCharacter = 0x4E00;
  constexpr unsigned kCharacters = 3755;
  constexpr unsigned kDistance = 5;
  QString name(static_cast<qsizetype>(4 + random_() % 7), Qt::Uninitialized);
  for (QChar& c : name) {
    c = QChar(static_cast<char16_t>(kFirstCharacter + random_() % kCharacters * kDistance));
  }
  return name;
}
