#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The HCWordLib authors
# SPDX-License-Identifier: MIT
#
# Copies the sample and a library of 665,245 words between each pair of engines, the same ones included,
# and has the engines' own tools tell whether every row came through byte by byte. Also whether the next
# category gets an identifier that never existed. Prints how long each copy took and its peak memory;
# the exit status is 0 when all libraries are the same. Takes some minutes; build the program first.
set -euo pipefail
cd "$(dirname "$0")/.."

source script/isolate.sh
source script/servers.sh
source bench/import.sh
end_more() { stop_servers; }
start_servers
folder=$(dirname "$ODBCINI")
admin=build/release/hcwordlib-admin

# engine_tool ENGINE NUMBER STATEMENT: runs it in the engine's first (empty NUMBER) or second database.
engine_tool() {
  case $1 in
    SQLite) sqlite3 -separator $'\t' "$folder/library$2.db" "$3" ;;
    PostgreSQL) psql -qAt -F $'\t' -h "$folder/pg" -U hcw "hcw$2" -c "$3" ;;
    MariaDB) mariadb --no-defaults --quick -N --socket="$folder/maria/socket" --user=root \
      --default-character-set=utf8mb4 "hcw$2" -e "$3" ;;
  esac
}

# All rows in the order of their keys, the names' bytes as hexadecimal digits.
dump() {
  local sort_name='hex(SortName)' node_name='hex(NodeName)'
  if [ "$1" = PostgreSQL ]; then
    sort_name="upper(encode(convert_to(SortName, 'UTF8'), 'hex'))"
    node_name="upper(encode(convert_to(NodeName, 'UTF8'), 'hex'))"
  fi
  engine_tool "$1" "$2" "select GID, Position, $sort_name from Dictionary order by GID"
  engine_tool "$1" "$2" "select SortID, ID, FatherID, $node_name from Items order by SortID, ID"
  engine_tool "$1" "$2" "select ID, GUIDField1, GUIDField2, GUIDField3, GUIDField4 from GUIDLists order by ID"
}

drop_library() {
  engine_tool "$1" "$2" 'drop table if exists Items; drop table if exists Dictionary;
    drop table if exists GUIDLists' 2>/dev/null
}

# What a library has at the most, by what a person can type and a file can bring.
odd_names() {
  printf '难写的名称\n'
  # shellcheck disable=SC1003
  printf '\t%s\n' "'单''双\"%_;--/*?{}" '{ts x} {fn' ' 前后有空格 ' '制表\t换行\n回车\r' '反斜杠\\' '\u001b\u0001' \
    '\ufeff头' 'e'$'\xCC\x81' $'\xC3\xA9' '👩‍🔧' 'שלום' '\e' '高滚毛糙' 'ＮＵＬＬ' "$1"
  printf '\t\t%s\n' 'NULL'
}

# copy_all LIBRARY: from each engine, whose first database has it, into the second one of each.
copy_all() {
  local from to expected=$folder/expected copied=$folder/copied
  for from in SQLite PostgreSQL MariaDB; do
    dump "$from" '' >"$expected"
    for to in SQLite PostgreSQL MariaDB; do
      drop_library "$to" 2
      # shellcheck disable=SC2016
      /usr/bin/python3 -B -c '
import resource, subprocess, sys, time
start = time.monotonic()
status = subprocess.call(sys.argv[3:], stdout=subprocess.DEVNULL)
used = resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss / 1024
print(f"{sys.argv[1]:32} {sys.argv[2]:26} {time.monotonic() - start:7.2f} s {used:6.0f} MB", end="  ", flush=True)
sys.exit(status)' "$1" "$from -> $to" "$admin" copy --dsn "HCWTest$from" --to "HCWTest${to}2"
      dump "$to" 2 >"$copied"
      cmp "$expected" "$copied"
      "$admin" --dsn "HCWTest${to}2" import "$folder/new.outline" >"$folder/report"
      if [ "$(engine_tool "$to" 2 "select max(GID) from Dictionary")" -le "$last" ]; then
        echo "the identifier $last was given again"
        return 1
      fi
      echo "$(wc -l <"$expected") rows the same"
    done
  done
}

# fill OUTLINE...: the library in each engine's first database; its last category is deleted again, so
# that the register alone knows the last identifier.
fill() {
  local engine file
  for engine in SQLite PostgreSQL MariaDB; do
    drop_library "$engine" ''
    "$admin" --dsn "HCWTest$engine" init
    for file in "$@" "$folder/new.outline"; do
      "$admin" --dsn "HCWTest$engine" import "$file" >"$folder/report"
    done
    last=$(engine_tool "$engine" '' 'select max(ID) from GUIDLists')
    engine_tool "$engine" '' "delete from Dictionary where GID = $last;
      delete from GUIDLists where ID = $last"
  done
}

printf '新条目\n' >"$folder/new.outline"
fill data/sample/sample.outline
copy_all 'sample'
make_words "$folder/words.outline" "$folder/words.tsv" 31 21459
odd_names "$(printf '𠮷%.0s' {1..4000})" >"$folder/odd.outline"
fill "$folder/words.outline" "$folder/odd.outline"
copy_all '665,245 words'
