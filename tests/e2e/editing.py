# SPDX-FileCopyrightText: 2026 The HCWordLib authors
# SPDX-License-Identifier: MIT
"""A session of somebody who maintains the library: create, be refused, rename, delete."""

import contextlib
import sqlite3
import unittest

import desktop
from desktop import wait_until


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

    def shown(self):
        return [item.get_name() for item in self.items(self.process, "table cell")]

    def wait_for_nodes(self, *names):
        wait_until(lambda: self.shown() == [desktop.TITLE, "车削", *names], f"the tree ends in {names}")

    def test_session(self):
        self.process, self.window = self.open()
        self.command()  # 新条目
        self.wait_for_nodes("新建条目")
        self.name("电加工")
        branch = ["电加工"]
        for word in ("线切割", "慢走丝", "慢走丝切割，表面粗糙度Ra0.8"):  # each below the one before
            self.wait_for_nodes(*branch)
            self.command("Down")
            self.wait_for_nodes(*branch, "新加词")
            self.name(word)
            branch.append(word)
        self.wait_for_nodes(*branch)

        self.key("F2")
        self.name("线切割")
        self.assertEqual(self.refusal(), "有相同名称的分类词。")
        self.key("ctrl+a", "BackSpace", "Return")
        self.assertEqual(self.refusal(), "分类词不能为空字符。")
        self.name("快走丝's 100% \\ \"引号\"")
        self.wait_for_nodes(*branch[:3], "快走丝's 100% \\ \"引号\"")

        self.click_item(self.item(self.process, "table cell", "慢走丝"), button=3, dx=desktop.LABEL)
        self.wait_for_menu(self.process)
        self.key("Up", "Return")  # 删除
        box = self.window_id(desktop.BOX_TITLE)
        self.item(self.process, "label", "确定要删除选中的内容？")
        wait_until(lambda: self.is_active(box), "the question has the keyboard")
        self.key("alt+y")
        self.wait_for_nodes("电加工", "线切割")
        self.assertEqual(self.close(self.process, self.window), 0)
        self.assertEqual(self.admin("export"), "车削\n\t粗车外圆\n\t车端面\n电加工\n\t线切割\n")

    def test_a_word_below_thirty_thousand_others(self):
        with contextlib.closing(sqlite3.connect(self.library)) as library:
            library.executemany("insert into Items (SortID,ID,FatherID,NodeName) values (1,?,?,?)",
                                ((number, number - 1, f"深{number}") for number in range(3, 30_003)))
            library.commit()
        process, window = self.open()
        wait_until(lambda: self.is_active(window), "the window has the keyboard")
        self.key("ctrl+f")
        self.type("30002")
        self.key("Escape", "F2")
        self.name("最深")
        wait_until(lambda: self.rows("select NodeName from Items where ID = 30002") == [("最深",)], "it was found and renamed")
        self.assertEqual(self.close(process, window), 0)


if __name__ == "__main__":
    unittest.main(verbosity=2)
