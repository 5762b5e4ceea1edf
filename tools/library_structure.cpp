// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "library_structure.h"

#include "connection.h"
#include "error.h"
#include "recordset.h"
#include "schema.h"

#include <QRegularExpression>

#include <algorithm>

namespace {

// What an engine is asked of its catalogue. A row has a name, and a text where it says so.
struct Catalogue {
  const char* engine;
  const char* triggers;   // of the library's tables, with the text of what they do
  const char* indexes;    // of the library's tables
  const char* encodings;  // of the names, as the text, unless they hold everything; the name says
                          // what has it
  const char* tables;     // without transactions, with their engine as the text
  // As the text the number that the register gave last, empty when it gives none, "?" without the
  // right to know.
  const char* counter;
};

constexpr Catalogue kCatalogues[] = {
    {"sqlite", "select name, sql as text from sqlite_master where type='trigger'",
     "select name from sqlite_master where type='index'", nullptr, nullptr,
     "select cast(max(seq) as text) as text from (select seq from sqlite_sequence"
     " where lower(name)='guidlists' union all select max(ID) from GUIDLists union all select 0)"},
    {"postgresql",
     "select t.tgname::text as name, p.prosrc as text"
     " from pg_trigger t join pg_proc p on p.oid=t.tgfoid where not t.tgisinternal"
     " and t.tgenabled<>'D' and t.tgrelid in ('Dictionary'::regclass,'Items'::regclass)",
     "select c.relname::text as name from pg_index i join pg_class c on c.oid=i.indexrelid"
     " where i.indisvalid and i.indrelid in ('Dictionary'::regclass,'Items'::regclass)",
     "select '数据库' as name, setting as text from pg_settings"
     " where name='server_encoding' and setting<>'UTF8'",
     nullptr,
     "select case when s is null then '' when not has_sequence_privilege(s,'usage,select') then '?'"
     " else coalesce(pg_sequence_last_value(s::regclass),0)::text end as text"
     " from pg_get_serial_sequence('guidlists','id') s"},
    {"mariadb",
     "select trigger_name as name, action_statement as text from information_schema.triggers"
     " where event_object_schema=database()",
     "select distinct index_name as name from information_schema.statistics"
     " where table_schema=database() and lower(table_name) in ('dictionary','items')",
     "select concat('列 ',column_name) as name, collation_name as text"
     " from information_schema.columns where table_schema=database()"
     " and (lower(table_name),lower(column_name)) in "
     "(('dictionary','sortname'),('items','nodename'))"
     " and character_set_name<>'utf8mb4'",
     "select table_name as name, engine as text from information_schema.tables"
     " where table_schema=database() and lower(table_name) in ('dictionary','items','guidlists')"
     " and engine<>'InnoDB'",
     "select coalesce(cast(max(auto_increment) as signed)-1,'') as text"
     " from information_schema.tables"
     " where table_schema=database() and lower(table_name)='guidlists'"},
};

const Catalogue& CatalogueOf(const Connection& connection) {
  const QString engine = connection.EngineName().toLower();
  for (const Catalogue& catalogue : kCatalogues) {
    if (engine == QLatin1String(catalogue.engine)) return catalogue;
  }
  throw Error(QStringLiteral("不能检查数据库引擎“%1”中的词句库。").arg(connection.EngineName()));
}

struct CatalogueRow {
  QString name, text;  // the text without line breaks
};
using CatalogueRows = std::vector<CatalogueRow>;

CatalogueRows Answer(const char* question, Connection& connection) {
  CatalogueRows answer;
  if (question == nullptr) return answer;
  Recordset rows;
  rows.Open(QString::fromUtf8(question), connection);
  const bool hasText = QByteArrayView(question).contains("as text");
  for (; !rows.IsEof(); rows.MoveNext()) {
    answer.push_back(
        {rows.FieldText("name"), hasText ? rows.FieldText("text").simplified() : QString()});
  }
  return answer;
}

// Engines keep names in the case that they were given in, or in lower case.
auto Find(const CatalogueRows& rows, const QString& name) {
  return std::find_if(rows.begin(), rows.end(), [&](const CatalogueRow& row) {
    return row.name.compare(name, Qt::CaseInsensitive) == 0;
  });
}

// "create trigger T ... on Table" taken apart, with the kind trigger, function, index or table.
struct Creation {
  QString kind, name, table, statement;
};

std::vector<Creation> CreationsOf(const Connection& connection) {
  static const QRegularExpression kForm(
      QStringLiteral("^create (?:or replace )?(\\w+) (\\w+)(?:.*? on (\\w+))?"));
  std::vector<Creation> creations;
  for (const QString& statement : SchemaOf(connection)) {
    const QRegularExpressionMatch match = kForm.match(statement);
    creations.push_back({match.captured(1), match.captured(2), match.captured(3), statement});
  }
  return creations;
}

// Without the right to have triggers, MariaDB shows none.
bool MaySeeTriggers(Connection& connection) {
  if (connection.EngineName() != u"MariaDB") return true;
  Recordset rows;
  rows.Open(
      QStringLiteral("select privilege_type from information_schema.user_privileges"
                     " where privilege_type='TRIGGER' union select privilege_type"
                     " from information_schema.schema_privileges where privilege_type='TRIGGER'"
                     " union select privilege_type from information_schema.table_privileges"
                     " where privilege_type='TRIGGER'"),
      connection);
  return !rows.IsEof();
}

void ExamineTriggers(const CatalogueRows& there, const std::vector<Creation>& creations,
                     bool isPostgreSql, Structure& structure) {
  const qsizetype before = static_cast<qsizetype>(structure.faults.size());
  QStringList statements;
  for (const Creation& creation : creations) {
    const bool isTrigger = creation.kind == u"trigger";
    if (!isTrigger && creation.kind != u"function") continue;
    if (isTrigger) {
      statements += QStringLiteral("drop trigger if exists ") + creation.name +
                    (isPostgreSql ? QStringLiteral(" on ") + creation.table : QString());
    }
    statements += creation.statement;
    if (!isTrigger) continue;
    const auto found = Find(there, creation.name);
    if (found == there.end()) {
      structure.faults.push_back(
          {QStringLiteral("触发器 %1 不存在").arg(creation.name), QStringLiteral("建立")});
      continue;
    }
    const bool isOurs = std::any_of(creations.begin(), creations.end(), [&](const Creation& each) {
      return each.name == creation.name &&
             each.statement.simplified().contains(found->text, Qt::CaseInsensitive);
    });
    if (!isOurs) {
      structure.faults.push_back({QStringLiteral("触发器 %1 与本版本的不同").arg(creation.name),
                                  QStringLiteral("换成本版本的")});
    }
  }
  if (static_cast<qsizetype>(structure.faults.size()) > before) structure.statements += statements;
}

}  // namespace

Structure ExamineStructure(Connection& connection) {
  const Catalogue& catalogue = CatalogueOf(connection);
  const std::vector<Creation> creations = CreationsOf(connection);
  Structure structure;
  for (const auto& [name, engine] : Answer(catalogue.tables, connection)) {
    structure.faults.push_back({QStringLiteral("表 %1 的存储引擎 %2 没有事务").arg(name, engine),
                                QStringLiteral("改为 InnoDB")});
    structure.statements += QStringLiteral("alter table %1 engine=InnoDB").arg(name);
  }
  const CatalogueRows indexes = Answer(catalogue.indexes, connection);
  for (const Creation& creation : creations) {
    if (creation.kind != u"index" || Find(indexes, creation.name) != indexes.end()) continue;
    structure.faults.push_back(
        {QStringLiteral("索引 %1 不存在").arg(creation.name), QStringLiteral("建立")});
    structure.statements += creation.statement;
  }
  if (MaySeeTriggers(connection)) {
    ExamineTriggers(Answer(catalogue.triggers, connection), creations,
                    connection.EngineName() == u"PostgreSQL", structure);
  } else {
    structure.faults.push_back(
        {QStringLiteral("帐号没有 TRIGGER 权限，看不到触发器，请换有此权限的帐号检查"), QString()});
  }
  for (const auto& [name, encoding] : Answer(catalogue.encodings, connection)) {
    structure.faults.push_back({QStringLiteral("%1：字符编码 %2 不能保存所有汉字，请用 "
                                               "hcwordlib-admin copy 复制到新的数据库")
                                    .arg(name, encoding),
                                QString()});
  }
  return structure;
}

Register ExamineRegister(Connection& connection) {
  Recordset rows;
  rows.Open(QString::fromUtf8(CatalogueOf(connection).counter), connection);
  const QString text = rows.FieldText("text");
  return {!text.isEmpty(), text != u"?", text.toLongLong()};
}

void AdvanceRegister(Connection& connection, qint64 last) {
  if (connection.EngineName() == u"PostgreSQL") {
    Recordset rows;
    rows.Open(QStringLiteral("select setval(pg_get_serial_sequence('guidlists','id')::regclass,%1)")
                  .arg(last),
              connection);
  } else {
    // The database goes on from the greatest number.
    connection.Execute(
        QStringLiteral("insert into GUIDLists (GUIDField1,GUIDField2,GUIDField3,GUIDField4,ID)"
                       " values (0,0,0,0,%1)")
            .arg(last));
  }
}
