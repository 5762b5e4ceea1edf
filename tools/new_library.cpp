// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "new_library.h"

#include "connection.h"
#include "data_source.h"
#include "file_descriptor.h"
#include "library_tasks.h"

#include <fcntl.h>
#include <pwd.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <cerrno>
#include <cstring>

namespace {

[[noreturn]] void RefuseFile(const QString& file, const QString& reason) {
  throw Error(QStringLiteral("“%1”%2，没有建立任何内容。").arg(file, reason));
}

FileDescriptor OpenFolder(const QString& folder) {
  if (!QDir().mkpath(folder)) RefuseFile(folder, QStringLiteral("不能建立"));
  FileDescriptor descriptor(
      open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!descriptor)
    RefuseFile(folder, QStringLiteral("不能打开：") + QString::fromLocal8Bit(std::strerror(errno)));
  return descriptor;
}

// A missing file is an error, not a new empty library; what is committed survives a power cut.
DataSourceEntries EntriesOf(const QString& file) {
  return {{QStringLiteral("Driver"), QStringLiteral("SQLite3")},
          {QStringLiteral("Description"), QStringLiteral("词句库")},
          {QStringLiteral("Database"), file},
          {QStringLiteral("NoCreat"), QStringLiteral("1")},
          {QStringLiteral("JournalMode"), QStringLiteral("WAL")},
          {QStringLiteral("SyncPragma"), QStringLiteral("FULL")}};
}

void Connect(Connection& connection, const QString& file) {
  QString text;
  for (const auto& [key, value] : EntriesOf(file)) text += key + u'=' + value + u';';
  connection.SetConnectionString(text);
  connection.Open();
}

// Fills the empty file `file`; returns what the library holds.
QString FillLibrary(const QString& file, bool withSample) {
  Connection connection;
  Connect(connection, file);
  CreateTables(connection);
  Imported imported;
  if (withSample) {
    QFile sample(QStringLiteral(":/sample/sample.outline"));
    if (!sample.open(QIODevice::ReadOnly)) throw Error(sample.errorString());
    imported = ImportLibrary(connection, ParseOutline(sample.readAll()), Duplicates::kRefuse);
  }
  connection.Close();
  return withSample ? QStringLiteral("示例：%1 个分类条目、%2 个分类词")
                          .arg(imported.categories)
                          .arg(imported.words)
                    : QStringLiteral("没有内容");
}

// Makes the library aside and gives it its name as the last step.
QString MakeLibrary(const QFileInfo& place, int folder, bool withSample) {
  const QString file = place.absoluteFilePath();
  QTemporaryDir aside(place.absolutePath() + QStringLiteral("/.hcwordlib-XXXXXX"));
  if (!aside.isValid()) RefuseFile(file, QStringLiteral("不能建立：") + aside.errorString());
  const QString made = aside.filePath(QStringLiteral("new.sqlite"));
  QFile empty(made);
  if (!empty.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
    RefuseFile(file, QStringLiteral("不能建立：") + empty.errorString());
  }
  QString content = FillLibrary(made, withSample);
  if (fsync(empty.handle()) != 0 || !empty.rename(file) || fsync(folder) != 0) {
    RefuseFile(file, QStringLiteral("不能建立：") + empty.errorString());
  }
  return content;
}

// unixODBC makes the user's file of data sources when it is first asked for one, for everybody to
// read; a password may come into it.
void MakeEmptySourcesPrivate() {
  QByteArray file = qgetenv("ODBCINI");
  if (const passwd* user = getpwuid(getuid()); file.isEmpty() && user != nullptr) {
    file = QByteArray(user->pw_dir) + "/.odbc.ini";
  }
  struct stat status {};
  if (stat(file.constData(), &status) == 0 && S_ISREG(status.st_mode) && status.st_size == 0) {
    chmod(file.constData(), S_IRUSR | S_IWUSR);
  }
}

bool IsLibrary(const QString& file) {
  try {
    Connection connection;
    Connect(connection, file);
    return TablesExist(connection);
  } catch (const Error&) {
    return false;
  }
}

}  // namespace

QString MakeEmbeddedLibrary(const QString& dsn, const QString& file, bool withSample) {
  umask(S_IRWXG | S_IRWXO);
  const QFileInfo place(
      file.isEmpty() ? QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                           QStringLiteral("/hcwordlib/library.sqlite")
                     : QDir::cleanPath(QFileInfo(file).absoluteFilePath()));
  const QString path = place.absoluteFilePath();
  for (const QChar character : path) {
    // A connection string and the file of data sources know no way to write these.
    if (QStringLiteral(";{}").contains(character) || character.isNull() || !character.isPrint()) {
      RefuseFile(path, QStringLiteral("中有不能写进数据源的字符"));
    }
  }
  const FileDescriptor folder = OpenFolder(place.absolutePath());
  flock(folder.Get(), LOCK_EX);  // of two who start at the same time one finds the other's library

  if (DataSourceExists(dsn)) {
    throw Error(QStringLiteral("数据源“%1”已经存在（驱动程序“%2”，数据库“%3”），没有建立任何内容。")
                    .arg(dsn, DataSourceValue(dsn, QStringLiteral("Driver")),
                         DataSourceValue(dsn, QStringLiteral("Database"))));
  }
  const bool isThere = place.exists() || place.isSymLink();
  if (isThere && !file.isEmpty()) RefuseFile(path, QStringLiteral("已经存在"));
  if (isThere && !IsLibrary(path)) RefuseFile(path, QStringLiteral("已经存在，而且不是词句库"));
  for (const char* rest : {"-wal", "-journal"}) {
    // SQLite would take what is in it for part of the new library.
    if (const QString name = path + QLatin1String(rest); !isThere && QFile::exists(name)) {
      RefuseFile(name, QStringLiteral("已经存在，它属于原来的词句库"));
    }
  }

  const QString content = isThere ? QStringLiteral("早已建立，内容没有改动")
                                  : MakeLibrary(place, folder.Get(), withSample);
  MakeEmptySourcesPrivate();
  try {
    WriteDataSource(dsn, EntriesOf(path));
  } catch (const Error&) {
    if (!isThere) QFile::remove(path);
    throw;
  }
  return QStringLiteral("词句库：%1（%2）\n数据源：%3\n").arg(path, content, dsn);
}
