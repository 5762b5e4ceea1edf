// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "library_structure.h"

#include "connection.h"
#include "error.h"
#include "recordset.h"
#include "schema.h"

#include <QRegularExpression>

#include <algorithm>
#include <utility>

namespace {

// What an engine is asked of its catalogue. A row has a name, and a text where it says so.
struct Catalogue {
  const char* engine;
  const char* triggers;    // of the library's tables, with the text that makes them
  const char* indexes;     // of the library's tables, those of keys too, as "create index ..."
  const char* encodings;   // of the names, as the text, unless they hold everything; the name says
                           // what has it
  const char* tables;      // without transactions, with their engine as the text
  const char* collations;  // under which different names are equal, as the text; the name is the
                           // table's
  // As the text the number that the register gave last, empty when it gives none, "?" without the
  // right to know.
  const char* counter;
};

constexpr Catalogue kCatalogues[] = {
    {"sqlite", "select name, sql as text from sqlite_master where type='trigger'",
     "select name, sql as text from sqlite_master where type='index' and sql is not null"
     " union all select 'key', 'create unique index key on '||t||' ('||group_concat(c,', ')||')'"
     " from (select m.name as t, '' as i, p.name as c, p.pk as n"
     " from sqlite_master m, pragma_table_info(m.name) p where m.type='table' and p.pk>0"
     " union all select m.name, l.name, p.name, p.seqno"
     " from sqlite_master m, pragma_index_list(m.name) l, pragma_index_info(l.name) p"
     " where m.type='table' and l.origin='u' order by 1,2,4) group by t, i",
     nullptr, nullptr, nullptr,
     "select cast(max(seq) as text) as text from (select seq from sqlite_sequence"
     " where lower(name)='guidlists' union all select max(ID) from GUIDLists union all select 0)"},
    {"postgresql",
     "select t.tgname::text as name, pg_get_triggerdef(t.oid,true)||' '||p.prosrc as text"
     " from pg_trigger t join pg_proc p on p.oid=t.tgfoid where not t.tgisinternal"
     " and t.tgenabled in ('O','A') and t.tgrelid in ('Dictionary'::regclass,'Items'::regclass)",
     "select c.relname::text as name, pg_get_indexdef(c.oid,0,true) as text"
     " from pg_index i join pg_class c on c.oid=i.indexrelid where i.indisvalid"
     " and i.indrelid in ('Dictionary'::regclass,'Items'::regclass,'GUIDLists'::regclass)",
     "select '数据库' as name, setting as text from pg_settings"
     " where name='server_encoding' and setting<>'UTF8'",
     nullptr, nullptr,
     "select case when s is null then '' when not has_sequence_privilege(s,'usage,select') then '?'"
     " else coalesce(pg_sequence_last_value(s::regclass),0)::text end as text"
     " from pg_get_serial_sequence('guidlists','id') s"},
    {"mariadb",
     "select trigger_name as name, concat('create trigger ',trigger_name,' ',action_timing,' ',"
     "event_manipulation,' on ',event_object_table,' for each row ',action_statement) as text"
     " from information_schema.triggers where event_object_schema=database()",
     "select index_name as name, concat('create ',if(non_unique,'','unique '),"
     "if(index_type='BTREE','',concat(index_type,' ')),'index ',index_name,' on ',table_name,' (',"
     "group_concat(concat(column_name,if(sub_part is null,'',concat('(',sub_part,')')))"
     " order by seq_in_index separator ', '),')') as text from information_schema.statistics"
     " where table_schema=database() and lower(table_name) in ('dictionary','items','guidlists')"
     " group by table_name, index_name, non_unique, index_type",
     "select concat('列 ',column_name) as name, collation_name as text"
     " from information_schema.columns where table_schema=database()"
     " and (lower(table_name),lower(column_name)) in "
     "(('dictionary','sortname'),('items','nodename'))"
     " and character_set_name<>'utf8mb4'",
     "select table_name as name, engine as text from information_schema.tables"
     " where table_schema=database() and lower(table_name) in ('dictionary','items','guidlists')"
     " and engine<>'InnoDB'",
     "select table_name as name, collation_name as text"
     " from information_schema.columns where table_schema=database()"
     " and (lower(table_name),lower(column_name)) in "
     "(('dictionary','sortname'),('items','nodename'))"
     " and character_set_name='utf8mb4' and collation_name<>'utf8mb4_nopad_bin'",
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

// A statement that makes something, as all engines and their versions would put it in lower case.
QString Comparable(const QString& statement) {
  return statement.simplified()
      .toLower()
      .replace(QLatin1String(" execute function "), QLatin1String(" execute procedure "))
      .remove(QLatin1String(" using btree"));
}

// The statement that drops what `creation` makes from `table`, where it is there.
QString Drop(const Creation& creation, const QString& table, const Connection& connection) {
  const bool isOfTable =
      connection.EngineName() == (creation.kind == u"trigger" ? u"PostgreSQL" : u"MariaDB");
  return QStringLiteral("drop %1 if exists ").arg(creation.kind) + creation.name +
         (isOfTable ? QStringLiteral(" on ") + table : QString());
}

// Whether what `creation` makes is there, once, and reads as `text`. If not, it is told as `kind`,
// and what is there in its place is dropped.
bool IsThere(const Creation& creation, const QString& text, const CatalogueRows& there,
             const QString& kind, const Connection& connection, Structure& structure) {
  static const QRegularExpression kTable(QStringLiteral(" on (\\S+)"),
                                         QRegularExpression::CaseInsensitiveOption);
  bool isFound = false;
  QStringList others;
  for (const CatalogueRow& row : there) {
    if (row.name.compare(creation.name, Qt::CaseInsensitive) != 0) continue;
    if (Comparable(row.text) == Comparable(text)) {
      isFound = true;
    } else {
      others += Drop(creation, kTable.match(row.text).captured(1), connection);
    }
  }
  if (isFound && others.isEmpty()) return true;
  const QString label = kind + u' ' + creation.name + u' ';
  structure.faults.push_back(
      isFound || !others.isEmpty()
          ? Fault{label + QStringLiteral("与本版本的不同"), QStringLiteral("换成本版本的")}
          : Fault{label + QStringLiteral("不存在"), QStringLiteral("建立")});
  structure.statements += others;
  return false;
}

void ExamineTriggers(const CatalogueRows& there, const std::vector<Creation>& creations,
                     const Connection& connection, Structure& structure) {
  bool areThere = true;
  QStringList statements;
  QString body;  // of the function that stands before its trigger
  for (const Creation& creation : creations) {
    if (creation.kind == u"function") {
      body = u' ' + creation.statement.section(QStringLiteral("$$"), 1, 1);
      statements += creation.statement;
    } else if (creation.kind == u"trigger") {
      areThere &= IsThere(creation, creation.statement + body, there, QStringLiteral("触发器"),
                          connection, structure);
      statements += {Drop(creation, creation.table, connection), creation.statement};
    }
  }
  if (!areThere) structure.statements += statements;
}

// Rows that cannot be told apart are told with the rows.
void ExamineKeys(const CatalogueRows& indexes, Connection& connection, Structure& structure) {
  constexpr std::pair<const char*, const char*> kKeys[] = {
      {"Dictionary", "GID"}, {"Items", "SortID, ID"}, {"GUIDLists", "ID"}};
  for (const auto& [table, columns] : kKeys) {
    const QString key =
        QStringLiteral(" on %1 (%2)").arg(QLatin1String(table), QLatin1String(columns));
    if (std::any_of(indexes.begin(), indexes.end(), [&](const CatalogueRow& row) {
          const QString text = Comparable(row.text);
          return text.startsWith(u"create unique index ") && text.endsWith(key.toLower());
        })) {
      continue;
    }
    const QString fault = QStringLiteral("表 %1 没有主键 (%2)，编号可以重复")
                              .arg(QLatin1String(table), QLatin1String(columns));
    Recordset rows;
    rows.Open(QStringLiteral("select %2 from %1 group by %2 having count(*)>1")
                  .arg(QLatin1String(table), QLatin1String(columns)),
              connection);
    if (!rows.IsEof()) {
      structure.faults.push_back(
          {fault + QStringLiteral("，请先用数据库的工具改正编号相同的行"), QString()});
      continue;
    }
    structure.faults.push_back({fault, QStringLiteral("建立唯一索引")});
    structure.statements +=
        QStringLiteral("create unique index %1ByNumber").arg(QLatin1String(table)) + key;
  }
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
  for (const auto& [name, collation] : Answer(catalogue.collations, connection)) {
    structure.faults.push_back(
        {QStringLiteral("表 %1 的排序规则 %2 把不同的名称当作相同").arg(name, collation),
         QStringLiteral("改为 utf8mb4_nopad_bin")});
    structure.statements +=
        QStringLiteral("alter table %1 convert to character set utf8mb4 collate utf8mb4_nopad_bin")
            .arg(name);
  }
  const CatalogueRows indexes = Answer(catalogue.indexes, connection);
  ExamineKeys(indexes, connection, structure);
  for (const Creation& creation : creations) {
    if (creation.kind != u"index" || IsThere(creation, creation.statement, indexes,
                                             QStringLiteral("索引"), connection, structure)) {
      continue;
    }
    structure.statements += {Drop(creation, creation.table, connection), creation.statement};
  }
  if (MaySeeTriggers(connection)) {
    ExamineTriggers(Answer(catalogue.triggers, connection), creations, connection, structure);
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
  if (connection.EngineName() == u"SQLite") {
    // The table of the numbers given last is made along with the first table that counts up.
    Recordset table;
    table.Open(QStringLiteral("select name from sqlite_master where type='table'"
                              " and lower(name)='guidlists' and sql like '%autoincrement%'"),
               connection);
    if (table.IsEof()) return {false};
  }
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
