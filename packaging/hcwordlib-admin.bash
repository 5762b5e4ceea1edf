# SPDX-FileCopyrightText: 2026 The HCWordLib authors
# SPDX-License-Identifier: MIT
# shellcheck shell=bash
#
# Completes the words behind hcwordlib-admin. The commands and the options are those of its help.

_hcwordlib_admin() {
  local cur prev words cword
  _init_completion -s || return
  case $prev in
    --dsn | --to)
      mapfile -t COMPREPLY < <(compgen -W "$(odbcinst -q -s 2>/dev/null | tr -d '[]')" -- "$cur")
      return
      ;;
    --duplicates)
      mapfile -t COMPREPLY < <(compgen -W 'refuse skip number' -- "$cur")
      return
      ;;
  esac
  local known word
  known=$(hcwordlib-admin --help 2>/dev/null | grep -oE '^  (--)?[a-z]+')
  for word in "${words[@]:1:cword-1}"; do
    # Behind the command: options and files.
    if [[ $word != -* ]] && grep -qFx "  $word" <<<"$known"; then
      if [[ $cur != -* ]]; then
        _filedir
        return
      fi
    fi
  done
  mapfile -t COMPREPLY < <(compgen -W "$known" -- "$cur")
} && complete -F _hcwordlib_admin hcwordlib-admin
