# SPDX-FileCopyrightText: 2026 The HCWordLib authors
# SPDX-License-Identifier: MIT
"""script/run on a machine without a display: the library that it makes, and those that it leaves alone."""

import contextlib
import sqlite3
import stat
import subprocess
import unittest

import desktop


@unittest.skipUnless(desktop.BUILD == desktop.ROOT / "build" / "release", "script/run starts the release build")
class ScriptRun(desktop.WindowTest):
    def make_library(self):
        self.library = self.home / "XDG_DATA_HOME" / "hcwordlib" / "library.sqlite"
        self.source = self.home / "user.ini"
        self.picture = self.home / "window.png"
        self.env.pop("DISPLAY")

    def run_script(self, **extra):
        return subprocess.run([desktop.ROOT / "script" / "run", "--screenshot", self.picture],
                              env={**self.env, **extra}, cwd=self.home, check=False, text=True, timeout=300,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT)

    def test_library_is_made_once(self):
        done = self.run_script()
        self.assertEqual(done.returncode, 0, done.stdout)
        size = desktop.run("identify", "-format", "%wx%h", self.picture)
        self.assertEqual(size, "433x433")
        self.assertGreater(self.rows("select count(*) from Items")[0][0], 800)
        modes = [stat.S_IMODE(path.stat().st_mode) for path in (self.library.parent, self.library, self.source)]
        self.assertEqual(modes, [0o700, 0o600, 0o600])
        source = self.source.read_text(encoding="utf-8")
        for option in ("NoCreat=1", "JournalMode=WAL", "SyncPragma=FULL", f"Database={self.library}"):
            self.assertIn(option + "\n", source)

        with contextlib.closing(sqlite3.connect(self.library)) as library:
            library.execute("delete from Items")
            library.commit()
        done = self.run_script()
        self.assertEqual(done.returncode, 0, done.stdout)
        self.assertEqual(self.rows("select count(*) from Items"), [(0,)])
        self.assertEqual(self.source.read_text(encoding="utf-8"), source)

        # Without its data source a library is taken up again as it is.
        self.source.unlink()
        done = self.run_script()
        self.assertEqual(done.returncode, 0, done.stdout)
        self.assertEqual(self.rows("select count(*) from Items"), [(0,)])

    def test_a_new_library_replaces_nothing(self):
        admin = [desktop.BUILD / "hcwordlib-admin", "--dsn", "Other", "new"]

        def new(*words):
            done = subprocess.run([*admin, *words], env=self.env, cwd=self.home, check=False, text=True,
                                  timeout=60, capture_output=True)
            return done.returncode, done.stderr

        self.source.write_text("[Mine]\nDriver=SQLite3\n", encoding="utf-8")
        stale = self.home / "库.sqlite-wal"
        stale.write_bytes(b"of another")
        for words, reason in ((["库.sqlite"], "-wal”已经存在"), (["a;b"], "不能写进数据源"),
                              (["/proc/x/y"], "不能建立")):
            status, message = new(*words)
            self.assertEqual((status, reason in message), (1, True), message)
        self.assertEqual(self.source.read_text(encoding="utf-8"), "[Mine]\nDriver=SQLite3\n")
        stale.unlink()
        self.assertEqual(new("--empty", "新 建/库.sqlite"), (0, ""))
        self.assertIn("[Mine]", self.source.read_text(encoding="utf-8"))
        self.library = self.home / "新 建" / "库.sqlite"
        self.assertEqual(self.rows("select count(*) from Dictionary"), [(0,)])
        self.assertIn(f"数据库“{self.library}”", new("more.sqlite")[1])
        admin[2] = "Third"
        self.assertIn("已经存在", new(self.library)[1])
        self.assertFalse(list(self.home.glob(".hcwordlib-*")) + list(self.home.glob("more*")))

    def test_broken_data_source_is_left_alone(self):
        text = "[HCWordLib]\nDriver=SQLite3\nDatabase=/nowhere/library.sqlite\nNoCreat=1\n"
        self.source.write_text(text, encoding="utf-8")
        done = self.run_script()
        self.assertGreater(done.returncode, 0, done.stdout)
        self.assertTrue(self.picture.exists(), "the message was shown")
        self.assertEqual(self.source.read_text(encoding="utf-8"), text)
        self.assertFalse(self.library.exists())


if __name__ == "__main__":
    unittest.main(verbosity=2)
