# shellcheck shell=bash
# SPDX-FileCopyrightText: 2026 The HCWordLib authors
# SPDX-License-Identifier: MIT
#
# Sourced by the scripts that test and measure: a home, settings, data sources and temporary files of
# their own in one folder, $isolated, that goes with the script; nothing of the user's desktop shines
# through. A script that has more to end defines its own end_more.

isolated=$(mktemp -d)
end_more() { :; }
end_isolation() {
  local status=$?
  trap - EXIT
  end_more || true
  rm -rf "$isolated"
  exit "$status"
}
trap end_isolation EXIT
trap 'exit 129' HUP
trap 'exit 130' INT
trap 'exit 143' TERM

# Servers that run as users of their own pass through here.
chmod 711 "$isolated"
mkdir -m 700 "$isolated"/{home,config,data,cache,run}
mkdir -m 1777 "$isolated/tmp"
export HOME=$isolated/home XDG_CONFIG_HOME=$isolated/config XDG_DATA_HOME=$isolated/data
export XDG_CACHE_HOME=$isolated/cache XDG_RUNTIME_DIR=$isolated/run TMPDIR=$isolated/tmp
export ODBCINI=$isolated/odbc.ini
unset LANG "${!LC_@}"
export LC_ALL=C.UTF-8
unset DISPLAY WAYLAND_DISPLAY XAUTHORITY DBUS_SESSION_BUS_ADDRESS XDG_CURRENT_DESKTOP

# The machine's drivers, but none of its data sources; Debian lets one driver write a log to /tmp for
# each process.
mkdir "$isolated/drivers"
sed 's/^CommLog *=.*/CommLog=0/' "$(odbcinst -j | sed -n 's/^DRIVERS\.*: *//p')" >"$isolated/drivers/odbcinst.ini"
export ODBCSYSINI=$isolated/drivers
for name in $(compgen -e QT_); do unset "$name"; done

# How the sanitizers report, for programs of the preset asan.
use_sanitizers() {
  export UBSAN_OPTIONS=print_stacktrace=1
  export LSAN_OPTIONS=suppressions=$PWD/tests/support/lsan.supp:print_suppressions=0
  # A driver brings in the installer library and takes it along when it is unloaded; kept loaded, what
  # it caches is not taken for lost.
  export ASAN_OPTIONS=detect_leaks=1:verify_asan_link_order=0 LD_PRELOAD=libodbcinst.so.2
}
