# shellcheck shell=bash disable=SC2012,SC2015
# SPDX-FileCopyrightText: 2026 The HCWordLib authors
# SPDX-License-Identifier: MIT
#
# Private database servers for the tests; to be sourced by bash.
#
#   start_servers   starts a PostgreSQL and a MariaDB server that nobody else can reach, on sockets
#                   in a temporary folder, and makes two empty databases in each and two empty
#                   SQLite files. Fails with a message when a server does not start.
#   stop_servers    stops both and removes the folder. Harmless when nothing was started.
#
# Works as root and as an ordinary user. start_servers exports
#
#   ODBCINI               an odbc.ini with the six data sources
#   HCW_TEST_SQLITE       the name of each engine's first data source; the second's has a 2 behind it
#   HCW_TEST_POSTGRESQL
#   HCW_TEST_MARIADB
#
# A caller sets "trap stop_servers EXIT" before it starts them.

# PostgreSQL refuses to run as root.
_as_postgres() {
  if [ "$(id -u)" = 0 ]; then (cd / && runuser -u postgres -- "$@"); else "$@"; fi
}

_start_postgresql() {
  local folder=$1 log=$1/postgresql.log bin
  bin=$(ls -d /usr/lib/postgresql/*/bin 2>/dev/null | sort -V | tail -n 1)
  [ -n "$bin" ] || { echo "servers: PostgreSQL is not installed" >&2; return 1; }
  mkdir "$folder/pg" && chmod 700 "$folder/pg" || return 1
  if [ "$(id -u)" = 0 ]; then chown postgres "$folder/pg" || return 1; fi
  _servers_pg_ctl=$bin/pg_ctl
  _as_postgres "$bin/initdb" -D "$folder/pg/data" -U hcw -A trust -E UTF8 --locale=C.UTF-8 -N \
    >"$log" 2>&1 &&
    _as_postgres "$bin/pg_ctl" -D "$folder/pg/data" -w -t 60 -l "$folder/pg/server.log" start \
      -o "-c listen_addresses='' -c unix_socket_directories='$folder/pg' -c fsync=off" \
      >>"$log" 2>&1 &&
    _as_postgres "$bin/createdb" -h "$folder/pg" -U hcw hcw >>"$log" 2>&1 &&
    _as_postgres "$bin/createdb" -h "$folder/pg" -U hcw hcw2 >>"$log" 2>&1 && return
  echo "servers: PostgreSQL did not start:" >&2
  cat "$log" "$folder/pg/server.log" >&2
  return 1
}

_start_mariadb() {
  local folder=$1 log=$1/mariadb.log user left=600
  user=$(id -un)
  command -v mariadb-install-db >/dev/null ||
    { echo "servers: MariaDB is not installed" >&2; return 1; }
  mkdir -m 700 "$folder/maria" &&
    mariadb-install-db --no-defaults --user="$user" --datadir="$folder/maria/data" \
      --auth-root-authentication-method=normal --skip-test-db >"$log" 2>&1 || {
    echo "servers: MariaDB did not make its data folder:" >&2
    cat "$log" >&2
    return 1
  }
  "$(PATH=$PATH:/usr/sbin command -v mariadbd)" --no-defaults --user="$user" \
    --datadir="$folder/maria/data" --socket="$folder/maria/socket" \
    --pid-file="$folder/maria/pid" --skip-networking --innodb-flush-log-at-trx-commit=0 \
    --character-set-server=utf8mb4 >>"$log" 2>&1 </dev/null &
  _servers_mariadb_pid=$!
  until mariadb --no-defaults --socket="$folder/maria/socket" --user=root \
    -e "create database if not exists hcw; create database if not exists hcw2" >>"$log" 2>&1; do
    if ! kill -0 "$_servers_mariadb_pid" 2>/dev/null || [ $((left -= 1)) = 0 ]; then
      echo "servers: MariaDB did not start:" >&2
      cat "$log" >&2
      return 1
    fi
    sleep 0.1
  done
}

start_servers() {
  local folder number
  folder=$(mktemp -d "${TMPDIR:-/tmp}/hcw-servers.XXXXXX") && chmod 711 "$folder" || return 1
  _servers_folder=$folder
  _servers_pg_ctl=
  _servers_mariadb_pid=
  _start_postgresql "$folder" && _start_mariadb "$folder" || return 1
  for number in '' 2; do
    : >"$folder/library$number.db"
    cat <<EOF
[HCWTestSQLite$number]
Driver=SQLite3
Database=$folder/library$number.db
NoCreat=1
JournalMode=WAL
SyncPragma=FULL

[HCWTestPostgreSQL$number]
Driver=PostgreSQL Unicode
Servername=$folder/pg
Database=hcw$number
Username=hcw

[HCWTestMariaDB$number]
Driver=MariaDB Unicode
SOCKET=$folder/maria/socket
DATABASE=hcw$number
USER=root

EOF
  done >"$folder/odbc.ini"
  export ODBCINI=$folder/odbc.ini
  export HCW_TEST_SQLITE=HCWTestSQLite
  export HCW_TEST_POSTGRESQL=HCWTestPostgreSQL
  export HCW_TEST_MARIADB=HCWTestMariaDB
}

stop_servers() {
  [ -n "${_servers_folder:-}" ] || return 0
  if [ -n "$_servers_mariadb_pid" ]; then
    kill "$_servers_mariadb_pid" 2>/dev/null || true
    wait "$_servers_mariadb_pid" 2>/dev/null || true
  fi
  if [ -n "$_servers_pg_ctl" ] && [ -e "$_servers_folder/pg/data/postmaster.pid" ]; then
    _as_postgres "$_servers_pg_ctl" -D "$_servers_folder/pg/data" -w -m immediate stop >/dev/null || true
  fi
  rm -rf "$_servers_folder"
  _servers_folder=
}
