# SPDX-FileCopyrightText: 2026 The HCWordLib authors
# SPDX-License-Identifier: MIT
"""The window as assistive tools read it, and its way round with the keyboard alone."""

import unittest

import desktop
from desktop import role, wait_until

MENUS = {
    "文件(F)": ["关闭(C)"],
    "编辑(E)": ["新条目", "新词", "-", "删除", "重命名."],
    "视图(V)": ["工具栏(T) *", "状态栏(B) *"],
    "帮助(H)": ["关于(A) "],
}
TOOL_TIPS = ["新条目", "新词", "删除", "重命名"]


def children(item):
    return [item.get_child_at_index(number) for number in range(item.get_child_count())]


def checked(item):
    from gi.repository import Atspi
    return item.get_state_set().contains(Atspi.StateType.CHECKED)


class Accessibility(desktop.WindowTest):
    def focused(self):
        from gi.repository import Atspi
        for item in self.items(self.process):
            if item.get_state_set().contains(Atspi.StateType.FOCUSED) and role(item) not in ("frame", "application"):
                return role(item), item.get_name()
        return None

    def choose(self, menu, *keys):
        self.key(menu)
        self.wait_for_menu(self.process)
        self.key(*keys)

    def test_texts_and_keyboard(self):
        self.process, window = self.open()
        menu_bar = self.item(self.process, "menu bar")
        found = {menu.get_name(): [
            "-" if role(item) == "separator" else item.get_name() + (" *" if checked(item) else "")
            for popup in children(menu) for item in children(popup)] for menu in children(menu_bar)}
        self.assertEqual(found, MENUS)
        tool_bar = self.item(self.process, "tool bar", "工具栏")
        buttons = [item for item in children(tool_bar) if role(item) == "push button"]
        self.assertEqual([button.get_description() for button in buttons], TOOL_TIPS)
        panels = children(self.item(self.process, "status bar"))
        self.assertEqual([panel.get_description() for panel in panels], ["状态", "日期", "时间"])
        self.assertEqual(panels[0].get_name(), "状态")

        # The tree has the focus; from there to the list and the tool bar.
        self.key("Right", "Down")
        wait_until(lambda: panels[0].get_name() == "分类条目", "the panel shows the node's kind")
        self.assertEqual([item.get_name() for item in self.items(self.process, "list item")], ["粗车外圆", "车端面"])
        self.assertEqual([item.get_name() for item in self.items(self.process, "table column header")], [desktop.TITLE])
        self.key("F2")
        self.item(self.process, "text", "名称")
        self.key("Escape", "shift+F10")
        self.item(self.process, "popup menu", "弹出菜单")
        for keys in ("Escape", "Tab", "Tab"), ("shift+Tab", "shift+Tab", "ctrl+f", "Tab", "Tab"):
            self.key(*keys)
            wait_until(lambda: self.focused() == ("push button", "新条目"), f"Tab leads to the tool bar, not {self.focused()}")

        self.key("Tab", "Tab", "Tab", "Tab")
        wait_until(lambda: self.focused() == ("push button", "关于"), f"Tab leads to the picture, not {self.focused()}")
        self.key("Return")
        box = self.window_id("关于 HCWordLib")
        texts = [item.get_name() for item in self.items(self.process, "label")]
        for text in (desktop.TITLE, "版本:2011"):
            self.assertIn(text, texts)
        buttons = {item.get_name() for item in self.items(self.process, "push button")}
        self.assertLessEqual({"系统信息(S)...", "确定"}, buttons)
        wait_until(lambda: self.is_active(box), "the about box has the keyboard")
        self.key("Escape")
        wait_until(lambda: box not in self.windows(), "the about box is closed")
        wait_until(lambda: self.is_active(window), "the main window has the keyboard again")
        self.choose("alt+f", "Return")
        self.assertEqual(self.end(self.process), 0)


if __name__ == "__main__":
    unittest.main(verbosity=2)
