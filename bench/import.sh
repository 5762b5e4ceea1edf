# shellcheck shell=bash
# SPDX-FileCopyrightText: 2026 The HCWordLib authors
# SPDX-License-Identifier: MIT
#
# Measures the import of an outline against the engine's own bulk load of the same rows into the same
# tables; to be sourced by bash after start_servers of script/servers.sh.
#
#   measure_import   prints two lines for each engine: the import, and what the guards of the tables cost
#                    that bulk load. Fails when one is slower than its bound.

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

_drop_guards() {
  local on=
  if [ "$1" = PostgreSQL ]; then on=' on Items'; fi
  _sql "$1" "drop trigger ItemsInserted$on"
}

# _least A B: the smaller number.
_least() { printf '%s\n' "$@" | sort -n | head -n 1; }

# _print_ratio WORK SECONDS BASE BOUND: a line of the report; fails when the bound is exceeded.
_print_ratio() {
  awk -v work="$1" -v seconds="$2" -v base="$3" -v bound="$4" 'BEGIN {
    exceeded = seconds > base * bound
    printf "%-64s %8.2f x   %6.2f x   %s\n", work, seconds / base, bound, exceeded ? "EXCEEDED" : ""
    printf "  %.0f ms and %.0f ms, the best of two each\n", seconds * 1000, base * 1000
    exit exceeded
  }'
}

measure_import() {
  local folder engine import load bare best_import best_load best_bare status=0
  local admin=build/release/hcwordlib-admin
  folder=$(dirname "$ODBCINI")
  make_words "$folder/words.outline" "$folder/words.tsv" 12 10000
  for engine in SQLite PostgreSQL MariaDB; do
    best_import=1000 best_load=1000 best_bare=1000
    for _ in 1 2; do
      "$admin" --dsn "HCWTest$engine" init
      import=$(_seconds_of "$admin" --dsn "HCWTest$engine" import "$folder/words.outline")
      _empty "$engine"
      load=$(_seconds_of _load "$engine" "$folder/words.tsv")
      _empty "$engine"
      _drop_guards "$engine"
      bare=$(_seconds_of _load "$engine" "$folder/words.tsv")
      best_import=$(_least "$best_import" "$import")
      best_load=$(_least "$best_load" "$load")
      best_bare=$(_least "$best_bare" "$bare")
      _sql "$engine" 'drop table Items; drop table Dictionary; drop table GUIDLists'
    done
    _print_ratio "import of 120,000 words, of what $engine takes to load them" \
      "$best_import" "$best_load" 3 || status=1
    _print_ratio "$engine's load of them with guards, of that without" "$best_load" "$best_bare" 5 || status=1
  done
  return "$status"
}
