// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

// Kills clients in the middle of a delete, at random instants, and looks at what is left: of a
// category all or nothing, of a word's branch what `hcwordlib-admin check --repair` brings back
// without losing a word.

#include "branch.h"
#include "bulk_writer.h"
#include "data_base_funcs.h"
#include "engines.h"
#include "entry_scheme.h"
#include "error.h"
#include "keyed_collections.h"
#include "transaction.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>

#include <signal.h>
#include <unistd.h>
#include <algorithm>
#include <cstdio>
#include <random>

namespace {

constexpr int kSkipped = 77;  // what ctest takes for skipped
constexpr int kTimeout = 60'000;
constexpr qint32 kGid = 1;
constexpr qint32 kCategoryWords = 5000;
constexpr qint32 kBranchWords = 200;

const Engine* EngineNamed(const QString& name) {
  for (const Engine& engine : kEngines) {
    if (name == QLatin1String(engine.name)) return &engine;
  }
  return nullptr;
}

[[noreturn]] void Fault(const QString& text) {
  throw Error(QStringLiteral("FAULT ") + text);
}

// The client: what the window does to the database when a category, or the branch of the word 1, is
// deleted.
int DeleteAsClient(Connection& connection, bool isCategory) {
  TreePrptys words;
  std::vector<EntryKey> branch;
  for (qint32 id = 1; id <= kBranchWords; ++id) {
    branch.push_back(EntryKey::Numbered(id));
    words.Add(kGid, id, id / 4, QString(), branch.back(), kWordTag, EntryKey(), branch.back());
  }
  DataBaseFuncs funcs(connection);
  const auto tell = [](const char* text) {
    std::puts(text);
    std::fflush(stdout);
  };
  tell("ready");
  std::getchar();
  tell("begun");
  if (isCategory) {
    funcs.DeleteItem(kSelCategory, kGid);
  } else {
    bool hasBegun = false;
    if (const auto failure = DeleteBranch(branch, words, funcs, hasBegun)) {
      std::rethrow_exception(failure);
    }
  }
  tell("done");
  return EXIT_SUCCESS;
}

class Kills {
 public:
  Kills(const Engine& engine, bool isCategory, quint32 seed)
      : engine_(engine), isCategory_(isCategory), random_(seed) {
    connection_.SetConnectionString(ConnectionStringOf(engine));
    connection_.Open();
  }

  void Run(int wanted);

 private:
  void Fill();
  // Kills a client `microseconds` after it began to delete, or has it delete everything. Whether it
  // was at work when it was killed.
  bool RunClient(qint64 microseconds);
  void AwaitEndOfSessions();
  void LookAtCategory();
  void LookAtBranch();
  int Admin(const QStringList& arguments);
  QStringList Column(const QString& statement);

  const Engine& engine_;
  const bool isCategory_;
  std::mt19937 random_;
  Connection connection_;
  qint64 longest_ = 0;  // a whole delete, in microseconds
  int hits_ = 0, untouched_ = 0, whole_ = 0, broken_ = 0;
  qsizetype broughtBack_ = 0;
};

void Kills::Run(int wanted) {
  for (int i = 0; i < 3; ++i) {
    Fill();
    RunClient(-1);
  }
  int kills = 0;
  for (; hits_ < wanted; ++kills) {
    if (kills == wanted * 50) Fault(QStringLiteral("too few kills hit a client at work"));
    Fill();
    const bool wasAtWork = RunClient(std::uniform_int_distribution<qint64>(0, longest_)(random_));
    AwaitEndOfSessions();
    if (!wasAtWork) continue;
    if (isCategory_) {
      LookAtCategory();
    } else {
      LookAtBranch();
    }
  }
  std::printf("%s, %s: %d kills, %d of them ", engine_.name, isCategory_ ? "category" : "branch",
              kills, hits_);
  if (isCategory_) {
    std::printf("during the delete: all left %d, nothing left %d, half left 0\n", untouched_,
                whole_);
  } else {
    std::printf(
        "left a part of the branch, %d words without a parent among it: %lld words found"
        " again by check --repair, none lost\n",
        broken_, static_cast<long long>(broughtBack_));
  }
  std::fflush(stdout);
}

void Kills::Fill() {
  MakeEmptyLibrary(engine_, connection_);
  Transaction transaction(connection_, Transaction::Use::kWrite);
  connection_.Execute(
      QStringLiteral("insert into Dictionary (GID,SortName,Position) values (1,'车削',1),"
                     "(2,'铣削',2)"));
  connection_.Execute(QStringLiteral(
      "insert into GUIDLists (GUIDField1,GUIDField2,GUIDField3,GUIDField4) values (1,1,1,1),"
      "(2,2,2,2)"));
  BulkWriter rows(connection_, QStringLiteral("Items"),
                  QStringLiteral("SortID,ID,FatherID,NodeName"));
  rows.Add({2, 1, 0, QStringLiteral("立铣")});
  for (qint32 id = 1; id <= (isCategory_ ? kCategoryWords : 2 * kBranchWords); ++id) {
    // In a branch four words hang on each; another one stands beside it.
    const qint32 first = id > kBranchWords && !isCategory_ ? kBranchWords : 0;
    const qint32 parent = (id - first) / 4;
    rows.Add({kGid, id, parent == 0 ? 0 : first + parent, QStringLiteral("词%1").arg(id)});
  }
  rows.Finish();
  transaction.Commit();
}

bool Kills::RunClient(qint64 microseconds) {
  QProcess client;
  client.start(QCoreApplication::applicationFilePath(),
               {QStringLiteral("--engine"), QLatin1String(engine_.name), QStringLiteral("--client"),
                isCategory_ ? QStringLiteral("category") : QStringLiteral("branch")});
  const auto await = [&](const char* word) {
    while (!client.canReadLine() || client.readLine().trimmed() != word) {
      if (!client.canReadLine() && !client.waitForReadyRead(kTimeout)) {
        Fault(QStringLiteral("a client did not get to work: ") + client.errorString());
      }
    }
  };
  await("ready");
  client.write("\n");
  await("begun");
  QElapsedTimer clock;
  clock.start();
  if (microseconds < 0) {
    await("done");
    longest_ = std::max(longest_, clock.nsecsElapsed() / 1000);
  } else {
    while (clock.nsecsElapsed() < microseconds * 1000) {
    }
    ::kill(static_cast<pid_t>(client.processId()), SIGKILL);
  }
  if (!client.waitForFinished(kTimeout)) Fault(QStringLiteral("a client does not end"));
  return client.exitStatus() == QProcess::CrashExit &&
         !client.readAllStandardOutput().contains("done");
}

void Kills::AwaitEndOfSessions() {
  // A server goes on with the statement of a client that is no more.
  const QString engine = QLatin1String(engine_.name);
  if (engine == u"sqlite") return;
  const QString others =
      engine == u"mariadb"
          ? QStringLiteral(
                "select id from information_schema.processlist"
                " where db=database() and id<>connection_id()")
          : QStringLiteral(
                "select pid as id from pg_stat_activity where pid<>pg_backend_pid()"
                " and datname=current_database() and backend_type='client backend'");
  QElapsedTimer clock;
  clock.start();
  while (!Column(others).isEmpty()) {
    if (clock.elapsed() > kTimeout) Fault(QStringLiteral("a dead client's session does not end"));
  }
}

void Kills::LookAtCategory() {
  ++hits_;
  const bool hasRow = !Column(QStringLiteral("select GID from Dictionary where GID=1")).isEmpty();
  const auto left = Column(QStringLiteral("select ID from Items where SortID=1")).size();
  if (left != (hasRow ? kCategoryWords : 0)) {
    Fault(QStringLiteral("the category is %1, and %2 of its words are left")
              .arg(hasRow ? QStringLiteral("there") : QStringLiteral("gone"))
              .arg(left));
  }
  ++(hasRow ? untouched_ : whole_);
}

void Kills::LookAtBranch() {
  const QString all = QStringLiteral("select NodeName from Items order by NodeName");
  const QStringList before = Column(all);
  const qsizetype gone = 2 * kBranchWords + 1 - before.size();
  if (gone == 0 || gone == kBranchWords) return;
  ++hits_;
  const auto orphans = Column(
      QStringLiteral("select ID from Items where FatherID<>0 and not exists (select 1 from Items p"
                     " where p.SortID=Items.SortID and p.ID=Items.FatherID)"));
  broken_ += static_cast<int>(orphans.size());
  if (Admin({QStringLiteral("check")}) != (orphans.isEmpty() ? 0 : 1)) {
    Fault(QStringLiteral("check does not tell %1 words without a parent").arg(orphans.size()));
  }
  if (Admin({QStringLiteral("check"), QStringLiteral("--repair")}) != 0 ||
      Admin({QStringLiteral("check")}) != 0) {
    Fault(QStringLiteral("check --repair leaves faults"));
  }
  if (Column(all) != before) Fault(QStringLiteral("check --repair changed the words"));
  broughtBack_ += Column(QStringLiteral("select ID from Items where SortID not in (1,2)")).size();
}

int Kills::Admin(const QStringList& arguments) {
  QProcess admin;
  admin.setStandardOutputFile(QProcess::nullDevice());
  admin.start(QStringLiteral(ADMIN_PROGRAM),
              QStringList{QStringLiteral("--dsn"), ConnectionStringOf(engine_).section(u'=', 1)} +
                  arguments);
  return admin.waitForFinished(kTimeout) && admin.exitStatus() == QProcess::NormalExit
             ? admin.exitCode()
             : -1;
}

QStringList Kills::Column(const QString& statement) {
  Recordset rows;
  rows.Open(statement, connection_);
  QStringList values;
  for (; !rows.IsEof(); rows.MoveNext()) values += rows.FieldText(size_t{0});
  return values;
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  QCommandLineParser parser;
  parser.setApplicationDescription(
      QStringLiteral("Kills clients that delete a category or a word's branch."));
  parser.addHelpOption();
  QCommandLineOption client(QStringLiteral("client"), QString(), QStringLiteral("what"));
  client.setFlags(QCommandLineOption::HiddenFromHelp);
  parser.addOption(client);
  parser.addOptions({
      {QStringLiteral("engine"), QStringLiteral("sqlite, postgresql or mariadb"),
       QStringLiteral("name"), QStringLiteral("sqlite")},
      {QStringLiteral("seed"), QStringLiteral("of the instants"), QStringLiteral("number"),
       QStringLiteral("1")},
      {QStringLiteral("hits"), QStringLiteral("how many kills are to hit each delete"),
       QStringLiteral("number"), QStringLiteral("200")},
  });
  parser.process(application);
  const Engine* engine = EngineNamed(parser.value(QStringLiteral("engine")));
  if (engine == nullptr) parser.showHelp(2);
  if (ConnectionStringOf(*engine).isEmpty()) return kSkipped;
  try {
    if (parser.isSet(client)) {
      Connection connection;
      connection.SetConnectionString(ConnectionStringOf(*engine));
      connection.Open();
      return DeleteAsClient(connection, parser.value(client) == u"category");
    }
    for (const bool isCategory : {true, false}) {
      Kills(*engine, isCategory, parser.value(QStringLiteral("seed")).toUInt())
          .Run(parser.value(QStringLiteral("hits")).toInt());
    }
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s: %s\n", engine->name, error.what());
    return EXIT_FAILURE;
  }
  return EXIT_SUCCESS;
}
