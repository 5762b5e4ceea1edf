# SPDX-FileCopyrightText: 2026 The HCWordLib authors
# SPDX-License-Identifier: MIT
#
# Makes a manual page of a help text of data/help; -v version=... Chinese lines break where the help
# breaks them: they have no blanks at which a formatter could.
#
# A help text is its usage, a line that says what the program is, perhaps more paragraphs, then sections:
# a heading that ends with a colon, indented by 2 the entries, "term  text", and paragraphs; the lines that
# go on with an entry's text are indented deeper.

function roff(text) {
  gsub(/\\/, "\\e", text)
  gsub(/-/, "\\-", text)
  sub(/^[.']/, "\\\\\\&&", text)
  return text
}

function line(text) {
  if (open && chinese) print ".br"
  print roff(text)
  open = 1
}

function begin(request) {
  print request
  open = entry = 0
}

NR == 1 {
  chinese = $0 !~ /^Usage/
  sub(/^(Usage: |用法：)/, "")
  name = $1
  synopsis = $0
  next
}

NR == 3 {
  summary = $0
  sub(/。$/, "", summary)
  print ".TH " toupper(name) " 1 \"\" \"hcwordlib " version "\""
  print ".nh\n.ad l"
  begin(chinese ? ".SH 名称" : ".SH NAME")
  line(name)
  print "\\- " roff(summary)
  begin(chinese ? ".SH 概述" : ".SH SYNOPSIS")
  line(synopsis)
  next
}

/^[^ ].*(:|：)$/ {
  sub(/(:|：)$/, "")
  begin(".SH " toupper($0))
  described = 1
  next
}

/^$/ { paragraph = 1; next }

/^[^ ]/ && !described {
  begin(chinese ? ".SH 描述" : ".SH DESCRIPTION")
  described = 1
}

paragraph && open { begin(".PP") }
{ paragraph = 0 }

/^  [^ ]/ && match(substr($0, 3), /  +[^ ]/) {
  term = substr($0, 3, RSTART - 1)
  begin(".TP")
  print ".B " roff(term)
  line(substr($0, 1 + RSTART + RLENGTH))
  entry = 1
  next
}

entry && /^  [^ ]/ { begin(".PP") }

{
  sub(/^ +/, "")
  line($0)
}

END {
  other = name == "hcwordlib" ? "hcwordlib\\-admin" : "hcwordlib"
  print (chinese ? ".SH 另见" : ".SH SEE ALSO")
  print ".BR " other " (1),"
  print (chinese ? "以及 " : "and ") "/usr/share/doc/hcwordlib/docs"
}
