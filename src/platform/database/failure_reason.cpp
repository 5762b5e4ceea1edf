// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "failure_reason.h"

#include <QRegularExpression>

namespace {

struct Reason {
  // Matches the beginning of "SQLSTATE code message".
  const char* pattern;
  const char* sentence;
};

// The first that matches holds. MariaDB's codes have four digits, and SQLSTATEs that say little;
// SQLite's driver has HY000 for everything; PostgreSQL's has 08001 and 101 for whatever keeps it
// from connecting, so only the server's words tell more, when they are English. Everything here was
// met but for what a comment names: that is from the engine's manual.
constexpr Reason kReasons[] = {
    {"IM002|01000 .*Can't open lib",
     "没有这个数据源，或者它所写的驱动程序没有安装。一人使用时，用命令“hcwordlib-admin new”"
     "建立词句库和数据源。"},
    {"HY000 14 \\[SQLite\\]", "打不开数据源所写的数据库文件：它不存在，或者没有读写它的权限。"},
    {"HY000 (11|26) \\[SQLite\\]",
     "数据源所写的文件已经损坏，或者不是 SQLite 数据库；请不要再写入，用备份恢复。"},
    // All of it: SQLITE_IOERR, io_error, data_corrupted, index_corrupted.
    {"HY000 10 \\[SQLite\\]|58030|XX00[12]",
     "读写数据库文件时出错，可能是磁盘故障；请先备份，再检查磁盘。"},
    // invalid_password, ER_HOST_NOT_PRIVILEGED, ER_ACCESS_DENIED_NO_PASSWORD_ERROR, and PostgreSQL
    // about peers, roles and pg_hba.conf.
    {"28|..... (1045|1130|1698) |08001 .*(authentication failed|FATAL:  (role|no pg_hba.conf))",
     "数据库服务器拒绝登录；请检查数据源中的用户名和密码。"},
    {"3D000|..... 1049 |08001 .*FATAL:  database ", "服务器上没有数据源所写的数据库。"},
    // too_many_connections, ER_TOO_MANY_USER_CONNECTIONS, ER_USER_LIMIT_REACHED, and PostgreSQL
    // about reserved slots and a role's limit.
    {"53300|..... (1040|1203|1226) |08001 .*(too many (clients|connections)|connection slots)",
     "数据库服务器的连接已经用完；请稍后再试。"},
    // cannot_connect_now, and PostgreSQL that is starting up.
    {"57P03|..... 1047 |08001 .*the database system is ",
     "数据库服务器现在不能使用：它正在启动或停止，或者与其他服务器失去了联系；请稍后再试。"},
    // SQLITE_PERM, SQLITE_AUTH, ER_COLUMNACCESS_DENIED_ERROR, ER_SPECIFIC_ACCESS_DENIED_ERROR,
    // ER_PROCACCESS_DENIED_ERROR.
    {"42501|..... (1044|1142|1143|1227|1370|1419) |HY000 (3|23) \\[SQLite\\]|"
     "08001 .*permission denied for ",
     "数据库帐号没有这项操作的权限；请与管理员联系。"},
    // ER_READ_ONLY_MODE.
    {"25006|..... (1036|1792|1836) |..... 1290 .*read-only|HY000 8 \\[SQLite\\]|"
     "08001 .*session is read-only",
     "数据库是只读的，不能保存改动；请与管理员联系。"},
    // ER_DISK_FULL, and MariaDB naming the system's code: EE_DISK_FULL, ER_ERROR_ON_WRITE,
    // ER_GET_ERRNO.
    {"53100|..... (1021|1114) |HY000 (14 \\[ma-|.*([Ee]rror|Errcode:) 28 )|HY000 13 \\[SQLite\\]",
     "数据库所在的磁盘已满，改动没有保存；请与管理员联系。"},
    {"HY000 (1105|1180) .*(writeset size|wsrep_max_ws_rows)",
     "一次写入的内容超过了服务器集群的限度，改动没有保存；请与管理员联系。"},
    // SQLITE_LOCKED, ODBC's own time-out.
    {"55P03|HYT00|..... 1205 |HY000 [56] \\[SQLite\\]",
     "数据库正被另一个用户占用，等待超时，这一步没有完成；请稍后再试。"},
    {"40001|40P01|..... 1213 ", "与另一个用户同时的改动冲突，这一步没有完成；请再试一次。"},
    // ER_QUERY_INTERRUPTED.
    {"57014|..... (1317|1969) ", "数据库服务器中断了这一步，没有完成；请稍后再试。"},
    // CR_CONN_HOST_ERROR, ODBC's own time-out.
    {"08001|HYT01|..... (2002|2003|2005|2026) |08S01 2013 .*handshake",
     "连接不上数据库服务器；请检查网络、服务器和数据源。"},
    // crash_shutdown, idle_session_timeout, ER_SERVER_SHUTDOWN, ER_CONNECTION_KILLED,
    // CR_SERVER_GONE_ERROR, CR_SERVER_LOST_EXTENDED, CR_ERR_NET_READ.
    {"08|57P0[125]|..... (1053|1927|2006|2013|2055|501[34]) ",
     "与数据库服务器的连接断开了；重新打开程序，看最后一步改动是否已经保存。"},
    {"42P01|42S02|HY000 1 \\[SQLite\\]no such table",
     "数据库中没有词句库的表；新的词句库先用“hcwordlib-admin init”建表。"},
};

}  // namespace

QString FailureReason(const QString& sqlState, int nativeCode, const QString& message) {
  const QString failure = QStringLiteral("%1 %2 %3").arg(sqlState).arg(nativeCode).arg(message);
  for (const Reason& reason : kReasons) {
    const QRegularExpression pattern(QStringLiteral("\\A(?:%1)").arg(QLatin1String(reason.pattern)),
                                     QRegularExpression::DotMatchesEverythingOption);
    if (pattern.match(failure).hasMatch()) return QString::fromUtf8(reason.sentence);
  }
  return QString();
}
