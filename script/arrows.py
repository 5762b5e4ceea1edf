#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The HCWordLib authors
# SPDX-License-Identifier: MIT
"""Holds the arrows between the folders of src/ against docs/architecture.md: every one points down.

    script/arrows.py GRAPH      GRAPH is what `cmake --graphviz=GRAPH` wrote

Prints what is wrong, a line each; the exit status is 1 then.
"""

import pathlib
import re
import subprocess
import sys

# From the top; a target links only what stands in a line below its own.
LAYERS = [
    "app",
    "ui_main",
    "ui_dialogs",
    "shared_objects ui_guard",
    "engine",
    "model store",
    "controls database components settings windows registry artwork artwork_objects",
    "text",
    "base",
]
# What the window asks of the library goes through store and engine.
FORBIDDEN = {folder: ["recordset.h", "statements.h", "connection.h", "component.h"]
             for folder in ("src/ui/", "src/app/frm_main_life_cycle.cpp", "src/app/for_tree.cpp")}
# Not of src/: what tests and random sessions share.
OUTSIDE = {"hcw_test_support", "hcw_audit"}
MOST_LINES = 400


def wrong_arrows(graph):
    layer = {"hcw_" + name: number for number, names in enumerate(LAYERS) for name in names.split()}
    arrows = set(re.findall(r"// (hcw_\w+) -> (hcw_\w+)", graph))
    if not arrows:
        yield "the graph has no arrows"
    for source, target in sorted(arrows):
        if {source, target} & OUTSIDE:
            continue
        unknown = [name for name in (source, target) if name not in layer]
        if unknown:
            yield f"{unknown[0]}: give it a place among the layers of script/arrows.py"
        elif layer[source] >= layer[target]:
            yield f"{source} -> {target}: does not point down"


def circles(graph):
    below = {}
    for source, target in re.findall(r"// (\S+) -> (\S+)", graph):
        below.setdefault(source, set()).add(target)
    done = set()

    def visit(name, path):
        if name in path:
            yield "a circle: " + " -> ".join(path[path.index(name):] + [name])
        elif name not in done:
            for target in sorted(below.get(name, ())):
                yield from visit(target, path + [name])
            done.add(name)

    for name in sorted(below):
        yield from visit(name, [])


def wrong_files():
    files = subprocess.run(["git", "ls-files", "-co", "--exclude-standard", "*.h", "*.cpp", "*.py"],
                           check=True, text=True, stdout=subprocess.PIPE).stdout.split()
    for file in files:
        path = pathlib.Path(file)
        if not path.exists():
            continue
        text = path.read_text(encoding="utf-8")
        lines = text.count("\n")
        if lines > MOST_LINES:
            yield f"{file}: {lines} lines, and {MOST_LINES} are the most"
        for folder, headers in FORBIDDEN.items():
            for header in headers:
                if file.startswith(folder) and f'#include "{header}"' in text:
                    yield f"{file}: includes {header}"


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    graph = pathlib.Path(sys.argv[1]).read_text(encoding="utf-8")
    faults = [*circles(graph), *wrong_arrows(graph), *wrong_files()]
    for fault in faults:
        print("arrows:", fault, file=sys.stderr)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
