# SPDX-FileCopyrightText: 2026 The HCWordLib authors
# SPDX-License-Identifier: MIT
"""What a person sees when the program cannot start."""

import pathlib
import shutil
import subprocess
import unittest

import desktop
from desktop import wait_until


class Failures(desktop.WindowTest):
    def end_with_message(self, process, *others):
        """Confirms the message box: (the texts that show, the exit status). Only `others` may be up beside it."""
        box = self.window_id(desktop.BOX_TITLE, process)
        self.assertEqual(sorted(self.windows().values()), sorted([desktop.BOX_TITLE, *others]))
        text = " ".join(item.get_name() for item in self.items(process, "label"))
        wait_until(lambda: self.is_active(box), "the message box has the keyboard")
        self.key("Return")
        status = self.end(process)
        wait_until(lambda: not self.windows(), "no window is left")
        return text, status

    def test_generator_missing(self):
        alone = self.home / "hcwordlib"
        shutil.copy(desktop.BUILD / "hcwordlib", alone)
        text, _ = self.end_with_message(self.start(alone))
        self.assertEqual(text.strip(), "发生致命错误，结束程序。")

    def test_generator_missing_for_a_new_category(self):
        program = shutil.copy(desktop.BUILD / "hcwordlib", self.home)
        generator = shutil.copy(next(desktop.BUILD.glob("*GUIDGen.so")), self.home)
        process, window = self.open(program=program)
        pathlib.Path(generator).unlink()
        wait_until(lambda: self.is_active(window), "the window has the keyboard")
        self.key("alt+e")
        self.wait_for_menu(process)
        self.key("Return")  # 新条目
        text, status = self.end_with_message(process, desktop.TITLE)
        self.assertIn("发生致命错误，关闭程序。", text)
        self.assertGreater(status, 0)
        self.assertEqual(self.rows("select * from Dictionary where SortName = '新建条目'"), [])

    def test_library_file_missing(self):
        self.library.unlink()
        text, status = self.end_with_message(self.start())
        self.assertRegex(text, "打不开数据源所写的数据库文件.*\nconnect failed")
        self.assertGreater(status, 0)
        self.assertFalse(self.library.exists())

    def test_command_line_without_a_display(self):
        self.env.pop("DISPLAY")
        for arguments, status, text in (([], 1, "显示"), (["-style", "fusion", "--version"], 0, "hcwordlib 1."),
                                        (["--help"], 0, "用法"), (["--bogus"], 2, "--bogus"), (["file"], 2, "file")):
            done = subprocess.run([desktop.BUILD / "hcwordlib", *arguments], env=self.env, check=False, text=True,
                                  stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
            self.assertEqual(done.returncode, status, done.stdout)
            self.assertIn(text, done.stdout.splitlines()[0])


if __name__ == "__main__":
    unittest.main(verbosity=2)
