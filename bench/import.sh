# shellcheck shell=bash
# SPDX-FileCopyrightText: 2026 The HCWordLib authors
# SPDX-License-Identifier: MIT
#
# Measures the import of an outline against the engine's own bulk load of the same rows into the same
# tables; to be sourced by bash after start_servers of script/servers.sh.
#
#   measure_import   prints a line for each engine. Fails when one is slower than its bound.

# make_words OUTLINE ROWS CATEGORIES WORDS: categories of so many words each, four levels deep, each name
# of 4 to 10 Chinese characters: the lines of the outline and the rows of the table.
make_words() {
  awk -v outline="$1" -v rows="$2" -v categories="$3" -v words="$4" 'BEGIN {
    srand(1)
    for (i = 0; i < 400; ++i) c[i] = sprintf("%c%c%c", 228 + int(i / 64) % 5, 184 + i % 4, 128 + i % 64)
    for (gid = 1; gid <= categories; ++gid) {
      print "分类" gid >outline
      delete children
      for (id = 1; id <= words; ++id) {
        name = id
        for (i = 4 + int(rand() * 7); i > 0; --i) name = name c[int(rand() * 400)]
        father = id <= 12 ? 0 : int((id - 1) / 12)
        names[id] = name
        children[father] = children[father] " " id
      }
      written = 0
      write(gid, 0, "")
    }
  }
  # Depth first, as the words are numbered.
  function write(gid, father, number, indent, list, count, i) {
    indent = indents(number)
    count = split(children[father], list, " ")
    for (i = 1; i <= count; ++i) {
      ++written
      print indent names[list[i]] >outline
      print gid "\t" written "\t" (number == "" ? 0 : number) "\t" names[list[i]] >rows
      at[written] = number == "" ? 1 : at[number] + 1
      write(gid, list[i], written)
    }
  }
  function indents(number, depth, text) {
    depth = number == "" ? 1 : at[number] + 1
    for (text = ""; depth > 0; --depth) text = text "\t"
    return text
  }'
}

_seconds_of() {
  local start=$EPOCHREALTIME
  "$@" >/dev/null || return 1
  awk -v a="$start" -v b="$EPOCHREALTIME" 'BEGIN { printf "%.3f", b - a }'
}

# The engine's tool, running a statement.
_sql() {
  local folder
  folder=$(dirname "$ODBCINI")
  case $1 in
    SQLite) sqlite3 "$folder/library.db" "${@:2}" ;;
    PostgreSQL) psql -q -h "$folder/pg" -U hcw hcw -c "$2" ;;
    MariaDB) mariadb --no-defaults --socket="$folder/maria/socket" --user=root --local-infile \
      --default-character-set=utf8mb4 hcw -e "$2" ;;
  esac
}

_load() {
  case $1 in
    SQLite) _sql SQLite '.mode tabs' ".import $2 Items" ;;
    PostgreSQL) _sql PostgreSQL "\\copy Items from '$2'" ;;
    MariaDB) _sql MariaDB "load data local infile '$2' into table Items" ;;
  esac
}

_empty() {
  if [ "$1" = SQLite ]; then _sql SQLite 'delete from Items'; else _sql "$1" 'truncate table Items'; fi
}

measure_import() {
  local folder engine import load best_import best_load status=0 admin=build/release/hcwordlib-admin
  folder=$(dirname "$ODBCINI")
  make_words "$folder/words.outline" "$folder/words.tsv" 12 10000
  for engine in SQLite PostgreSQL MariaDB; do
    best_import=1000 best_load=1000
    for _ in 1 2; do
      "$admin" --dsn "HCWTest$engine" init
      import=$(_seconds_of "$admin" --dsn "HCWTest$engine" import "$folder/words.outline")
      _empty "$engine"
      load=$(_seconds_of _load "$engine" "$folder/words.tsv")
      best_import=$(printf '%s\n' "$best_import" "$import" | sort -n | head -n 1)
      best_load=$(printf '%s\n' "$best_load" "$load" | sort -n | head -n 1)
      _sql "$engine" 'drop table Items; drop table Dictionary; drop table GUIDLists'
    done
    awk -v engine="$engine" -v import="$best_import" -v load="$best_load" -v bound=3 'BEGIN {
      exceeded = import > load * bound
      work = "import of 120,000 words, of what " engine " takes to load them"
      printf "%-64s %8.2f x   %6.2f x   %s\n", work, import / load, bound, exceeded ? "EXCEEDED" : ""
      printf "  %.0f ms and %.0f ms, the best of two each\n", import * 1000, load * 1000
      exit exceeded
    }' || status=1
  done
  return "$status"
}
