#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The HCWordLib authors
# SPDX-License-Identifier: MIT
"""A team at work on one library: writers and windows, some of them killed, and what is left of it all.

    soak/team.py BUILD ENGINE [--seconds N] [--writers N] [--windows N] [--seed N]

BUILD holds the programs; the engine's data source is the one that script/servers.sh made. At the end
nothing but the words below a word that a colleague deleted at the same time may be wrong with the library;
`hcwordlib-admin check --repair` gives them a home, and then nothing is. What was confirmed to a client and
nobody touched again is there, what was deleted is gone, and whatever was refused was told.
"""

import argparse
import collections
import os
import pathlib
import random
import re
import shutil
import subprocess
import sys
import tempfile
import time

FIRST_NAME = re.compile("新加词[0-9]*")
GUARDS = "分类条目或上级词刚刚被另一个用户删除，没有保存"
# What stays wrong after clients were at work at the same time: a word was put below another one that was just
# being deleted, row by row; two windows chose the same name for a new word.
KNOWN = re.compile("上级 FatherID=[0-9]+ 不存在|^分类词“新加词[0-9]*”.*重名")


class Fields(list):
    def __init__(self, fields, time_):
        super().__init__(fields)
        self.time = time_


class Client:
    def __init__(self, team, kind, number):
        self.name = f"{kind[0]}{number}"
        self.kind = kind
        self.journal = team.folder / f"{self.name}.journal"
        self.errors = team.folder / f"{self.name}.errors"
        with open(self.journal, "wb") as journal, open(self.errors, "wb") as errors:
            self.process = subprocess.Popen([team.build / "hcwordlib-team", kind, self.name, str(team.seed + number)],
                                            stdin=subprocess.PIPE, stdout=journal, stderr=errors, env=team.env)

    def acts(self):
        """What was tried, each with what came of it: "done", "refused" or nothing when it was killed."""
        tried = None
        # The last line is whole or was never written.
        for line in self.journal.read_text(encoding="utf-8", errors="replace").splitlines():
            time_, *fields = line.split("\t")
            fields = Fields(fields, int(time_))
            if fields[0] in ("done", "refused"):
                if tried:
                    yield tried, fields
                tried = None
            else:
                if tried:
                    yield tried, Fields(["killed", ""], fields.time)
                tried = fields
        if tried:
            yield tried, Fields(["killed", ""], float("inf"))


class Team:
    def __init__(self, options):
        self.build = pathlib.Path(options.build).resolve()
        self.seed = options.seed
        self.random = random.Random(options.seed)
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="team"))
        self.env = dict(os.environ, QT_QPA_PLATFORM="offscreen", ODBCINI=str(self.folder / "odbc.ini"),
                        XDG_CONFIG_HOME=str(self.folder))
        source = os.environ["HCW_TEST_" + options.engine.upper()]
        sources = pathlib.Path(os.environ["ODBCINI"]).read_text(encoding="utf-8")
        (self.folder / "odbc.ini").write_text(sources.replace(f"[{source}]", "[HCWordLib]"), encoding="utf-8")
        self.clients = []
        self.faults = []

    def admin(self, *words):
        done = subprocess.run([self.build / "hcwordlib-admin", *words], env=self.env, check=False, text=True,
                              capture_output=True, timeout=600)
        if done.returncode:
            raise SystemExit(f"hcwordlib-admin {' '.join(words)}: {done.returncode}\n{done.stdout}{done.stderr}")
        return done.stdout

    def check(self, *words):
        """The faults that are left, a line each."""
        done = subprocess.run([self.build / "hcwordlib-admin", "check", *words], env=self.env, check=False, text=True,
                              capture_output=True, timeout=600)
        if done.returncode not in (0, 1):
            raise SystemExit(f"check: {done.returncode}\n{done.stdout}{done.stderr}")
        return done.stdout.splitlines() if done.returncode == 1 else []

    def prepare(self, engine):
        subprocess.run([self.build / "hcwordlib-team", "empty", engine, "0"], env=self.env, check=True, timeout=60)
        outline = self.folder / "library.outline"
        outline.write_text("".join(f"条目{i}\n" + "".join(f"\t词{i}-{j}\n\t\t下{i}-{j}\n" for j in range(10))
                                   for i in range(20)), encoding="utf-8")
        self.admin("import", outline)

    def end(self):
        for client in self.clients:
            if client.process.poll() is None:
                client.process.kill()
                client.process.wait()
        shutil.rmtree(self.folder)

    def mend(self):
        """Repairs what is known to go wrong; the number of these faults."""
        wrong = self.check()
        self.faults += [line for line in wrong if not KNOWN.search(line)]
        if wrong:
            self.faults += self.check("--repair") + self.check()
        return len(wrong)

    def start(self, kind):
        client = Client(self, kind, len(self.clients))
        self.clients.append(client)
        return client

    def work(self, options):
        at_work = [self.start("writer") for _ in range(options.writers)]
        at_work += [self.start("window") for _ in range(options.windows)]
        end = time.monotonic() + options.seconds
        kills = 0
        while time.monotonic() < end:
            time.sleep(self.random.uniform(0.2, 1.5))
            for i, client in enumerate(at_work):
                status = client.process.poll()
                if status is not None:
                    self.ended(client, status)
                    at_work[i] = self.start(client.kind)
            # A window takes its time to load.
            client = self.random.choice(at_work[:options.writers] * 3 + at_work[options.writers:])
            i = at_work.index(client)
            client.process.kill()
            client.process.wait()
            kills += 1
            at_work[i] = self.start(client.kind)
        for client in at_work:
            client.process.stdin.close()
        for client in at_work:
            self.ended(client, client.process.wait(timeout=60))
        return kills

    def ended(self, client, status):
        """A window that told an uncaught error has ended as it has to."""
        last = ""
        for _, outcome in client.acts():
            last = outcome[0]
        if status != 0 and not (client.kind == "window" and status == 1 and last == "refused"):
            self.faults.append(f"{client.name} ended with {status}: {client.errors.read_text(encoding='utf-8')}")

    def judge(self):
        figures = collections.Counter()
        born, owner = {}, {}
        renamed = collections.defaultdict(set)  # old name: its new names
        dead, may_be_back = set(), set()  # categories and names
        dropped, may_be_dropped, categories_back = set(), set(), set()
        hits = collections.defaultdict(int)  # changes of a row: those by its name and those by its number
        for client in self.clients:
            acts = list(client.acts())
            # What a window deleted may be back, with all that colleagues had put there, whoever deletes it again.
            restores = any(tried[0] == "restore" for tried, _ in acts)
            for tried, outcome in acts:
                what, done = tried[0], outcome[0] == "done"
                figures[f"{what} {outcome[0]}"] += 1
                if outcome[0] == "refused" and not outcome[1].strip():
                    self.faults.append(f"{client.name}: {tried} was refused and nothing was told")
                if what == "create" and done:
                    gid, number, name = int(tried[1]), int(outcome[1]), tried[3]
                    born[name] = gid or number
                    owner[name] = (gid, number) if gid else None
                elif what == "rename":
                    row, old, new = (int(tried[1]), int(tried[2])), tried[3], tried[4]
                    hits[row, old] += 1
                    if done:
                        renamed[old].add(new)
                        born.setdefault(new, row[0])
                        owner[new] = row
                elif what == "delete":
                    for i in range(2, len(tried) - 1, 2):
                        hits[(int(tried[1]), int(tried[i])), tried[i + 1]] += 1
                        (dead if done and not restores else may_be_back).add((int(tried[1]), tried[i + 1]))
                elif what == "drop":
                    may_be_dropped.add(int(tried[1]))
                    (dropped if done and not restores else categories_back).add(int(tried[1]))
        self.judge_parents(figures)
        by_row = collections.Counter()
        for (row, _), count in hits.items():
            by_row[row] += count
        names = {line.strip("\t").replace("\\\\", "\\") for line in self.admin("export").splitlines()}
        for name, gid in born.items():
            row = owner[name]
            untouched = gid not in may_be_dropped and (row is None or by_row[row] == 0)
            if row and by_row[row] == 1 and any(name in news for news in renamed.values()):
                untouched = gid not in may_be_dropped
            if untouched and name not in names:
                self.faults.append(f"{name} was confirmed and nobody touched it, but it is not there")
            figures["confirmed and untouched"] += untouched
            if gid in dropped - categories_back and name in names:
                self.faults.append(f"{name} is there, but its category {gid} was deleted")
        # The name that a new word has at first tells nothing: there may be several.
        dead = {name for gid, name in dead - may_be_back
                if gid not in categories_back and not FIRST_NAME.fullmatch(name)}
        for name in dead & names:
            self.faults.append(f"{name} is there, but it was deleted")
        figures["deleted"] = len(dead)
        return figures

    def judge_parents(self, figures):
        """A word was confirmed although its parent had been deleted before."""
        acts = [act for client in self.clients for act in client.acts()]
        gone = collections.defaultdict(list)  # row: when its delete was confirmed, and when it was tried
        for tried, outcome in acts:
            if tried[0] == "delete" and outcome[0] == "done":
                for i in range(2, len(tried) - 1, 2):
                    gone[int(tried[1]), int(tried[i])].append((outcome.time, tried.time))
        # When a row may have come, from and to: with the number that was told, or with one that was not.
        come, unknown = collections.defaultdict(list), collections.defaultdict(list)
        for tried, outcome in acts:
            if tried[0] == "create" and outcome[0] == "done":
                come[int(tried[1]), int(outcome[1])].append((tried.time, outcome.time))
            elif tried[0] == "create":
                unknown[int(tried[1])].append((tried.time, outcome.time))
        # What a window deleted may be back.
        back, categories_back = set(), set()
        for client in self.clients:
            for tried, _ in client.acts() if client.kind == "window" else ():
                if tried[0] == "drop":
                    categories_back.add(int(tried[1]))
                elif tried[0] == "delete":
                    back.update((int(tried[1]), int(tried[i])) for i in range(2, len(tried) - 1, 2))
        for tried, outcome in acts:
            if tried[0] != "create":
                continue
            gid, row = int(tried[1]), (int(tried[1]), int(tried[2]))
            figures["refused by the guards"] += GUARDS in outcome[1]
            before = max((times for times in gone[row] if times[0] < tried.time), default=None) if row[1] else None
            if before is None or row in back or gid in categories_back:
                continue
            # A branch is deleted row by row: the number may be given again before the whole is confirmed.
            if any(first < outcome.time and last > before[1] for first, last in come[row] + unknown[gid]):
                continue
            if outcome[0] == "done":
                self.faults.append(f"{tried[3]} was put below {row}, which had been deleted")
        if not figures["refused by the guards"]:
            self.faults.append("the guards refused nothing")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("build")
    parser.add_argument("engine", choices=("sqlite", "postgresql", "mariadb"))
    parser.add_argument("--seconds", type=float, default=600)
    parser.add_argument("--writers", type=int, default=8)
    parser.add_argument("--windows", type=int, default=2)
    parser.add_argument("--seed", type=int, default=1)
    options = parser.parse_args()
    if "HCW_TEST_" + options.engine.upper() not in os.environ:
        print(f"the data source of {options.engine} is not there")
        return 77
    team = Team(options)
    try:
        team.prepare(options.engine)
        kills = team.work(options)
        wrong = team.mend()
        figures = team.judge()
    finally:
        team.end()
    for fault in team.faults:
        print("FAULT", fault)
    told = ", ".join(f"{what} {count}" for what, count in sorted(figures.items()))
    print(f"{options.engine}: {len(team.clients)} clients, {kills} killed; {wrong} words or names of known kinds "
          f"repaired; {told}; {len(team.faults)} faults")
    return 1 if team.faults else 0


if __name__ == "__main__":
    sys.exit(main())
