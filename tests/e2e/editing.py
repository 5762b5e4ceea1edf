# SPDX-FileCopyrightText: 2026 The HCWordLib authors
# SPDX-License-Identifier: MIT
"""A session of somebody who maintains the library: create, be refused, rename, delete, start again."""

import contextlib
import sqlite3
import unittest

import desktop
from desktop import wait_until

WORDS = "select FatherID, ID, NodeName from Items join Dictionary on GID = SortID where SortName = ? order by ID"


class Editing(desktop.WindowTest):
    outline = "车削\n\t粗车外圆\n\t车端面\n"

    def name(self, text):
        """Types a name into the editor. What is typed waits its turn, so the editor need not be open yet."""
        self.type(text)
        self.key("Return")

    def command(self, *keys):
        """Runs the item of the Edit menu that these keys lead to."""
        wait_until(lambda: self.is_active(self.window), "the main window has the keyboard")
        self.key("alt+e")
        self.wait_for_menu(self.process)
        self.key(*keys, "Return")

    def refusal(self):
        """The text of the message box, which is confirmed."""
        box = self.window_id(desktop.BOX_TITLE)
        wait_until(lambda: self.is_active(box), "the message box has the keyboard")
        text = "".join(item.get_name() for item in self.items(self.process, "label") if item.get_name().endswith("。"))
        self.key("Return")
        wait_until(lambda: box not in self.windows(), "the message box is gone")
        wait_until(lambda: self.is_active(self.window), "the main window has the keyboard again")
        return text

    def words(self, category):
        with contextlib.closing(sqlite3.connect(self.library)) as connection:
            return connection.execute(WORDS, (category,)).fetchall()

    def wait_for_words(self, category, expected):
        wait_until(lambda: self.words(category) == expected, f"{category}: {expected}, not {self.words(category)}")

    def shown(self):
        return [item.get_name() for item in self.items(self.process, "table cell")]

    def test_session(self):
        self.process, self.window = self.open()
        self.command()  # 新条目
        wait_until(lambda: self.rows("select SortName, Position from Dictionary order by GID") ==
                   [("车削", 1), ("新建条目", 2)], "the category is stored under its default name")
        self.name("电加工")
        wait_until(lambda: self.rows("select SortName from Dictionary where Position = 2") == [("电加工",)], "renamed")

        branch = []
        for word in ("线切割", "慢走丝", "慢走丝切割，表面粗糙度Ra0.8"):  # each below the one before
            self.command("Down")
            self.wait_for_words("电加工", branch + [(len(branch), len(branch) + 1, "新加词")])
            self.name(word)
            branch.append((len(branch), len(branch) + 1, word))
            self.wait_for_words("电加工", branch)

        self.key("F2")
        self.name("线切割")
        self.assertEqual(self.refusal(), "有相同名称的分类词。")
        self.key("ctrl+a", "BackSpace", "Return")
        self.assertEqual(self.refusal(), "分类词不能为空字符。")
        self.name("快走丝's 100% \\ \"引号\"")
        branch[2] = (2, 3, "快走丝's 100% \\ \"引号\"")
        self.wait_for_words("电加工", branch)

        # A command stores what is being typed; Escape then keeps that.
        self.command("Down")
        self.wait_for_words("电加工", branch + [(3, 4, "新加词")])
        self.type("穿丝孔")
        self.command("Up")  # 重命名.
        branch.append((3, 4, "穿丝孔"))
        self.wait_for_words("电加工", branch)
        self.key("Escape")

        self.click_item(self.item(self.process, "table cell", "慢走丝"), button=3, dx=desktop.LABEL)
        self.wait_for_menu(self.process)
        self.key("Up", "Return")  # 删除
        box = self.window_id(desktop.BOX_TITLE)
        self.item(self.process, "label", "确定要删除选中的内容？")
        wait_until(lambda: self.is_active(box), "the question has the keyboard")
        self.key("alt+y")
        self.wait_for_words("电加工", branch[:1])
        wait_until(lambda: self.shown() == ["衡川词句库", "车削", "电加工", "线切割"], "the branch is gone from the tree")

        self.assertEqual(self.close(self.process, self.window), 0)
        self.assertEqual(self.admin("export"), "车削\n\t粗车外圆\n\t车端面\n电加工\n\t线切割\n")
        self.process, self.window = self.open()
        self.assertEqual(self.shown(), ["衡川词句库"])
        self.key("Right", "Down", "Down", "Right")
        wait_until(lambda: self.shown() == ["衡川词句库", "车削", "电加工", "线切割"], "the library is loaded as it was left")
        self.assertEqual([item.get_name() for item in self.items(self.process, "list item")], ["线切割"])
        self.assertEqual(self.close(self.process, self.window), 0)


if __name__ == "__main__":
    unittest.main(verbosity=2)
