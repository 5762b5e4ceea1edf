# SPDX-FileCopyrightText: 2026 The HCWordLib authors
# SPDX-License-Identifier: MIT
"""Pictures of the program at work, in light and dark, at 100, 150 and 200 %, in a Chinese and an English
locale: FOLDER/<variant>/<name>.png."""

import itertools
import pathlib
import sys
import unittest

import desktop
from desktop import wait_until

DARK = """[General]
widgetStyle=fusion
[Colors:Window]
BackgroundNormal=42,46,50
ForegroundNormal=252,252,252
[Colors:Button]
BackgroundNormal=49,54,59
ForegroundNormal=252,252,252
[Colors:View]
BackgroundNormal=27,30,32
BackgroundAlternate=35,38,41
ForegroundNormal=252,252,252
ForegroundLink=29,153,243
ForegroundVisited=155,89,182
[Colors:Selection]
BackgroundNormal=61,174,233
ForegroundNormal=252,252,252
[Colors:Tooltip]
BackgroundNormal=49,54,59
ForegroundNormal=252,252,252
"""


class Screenshots(desktop.WindowTest):
    outline = (desktop.ROOT / "data" / "sample" / "sample.outline").read_text(encoding="utf-8")

    def take(self, colors, percent, language):
        self.setUp()
        folder = pathlib.Path(FOLDER) / f"{colors}-{percent}-{language}"
        folder.mkdir(parents=True, exist_ok=True)
        scale = percent / 100
        extra = {"QT_SCALE_FACTOR": str(scale), "LANG": "zh_CN.UTF-8" if language == "zh" else "en_US.UTF-8", "LC_CTYPE": "C.UTF-8"}
        del self.env["LC_ALL"]
        if colors == "dark":
            (self.home / "XDG_CONFIG_HOME" / "kdeglobals").write_text(DARK, encoding="utf-8")
            extra |= {"XDG_CURRENT_DESKTOP": "KDE", "KDE_SESSION_VERSION": "5"}
        self.process, window = self.open(**extra)
        self.move(window, *(round(scale * length) for length in (20, 20, 760, 560)))

        self.click_item(self.cell(desktop.TITLE), dx=desktop.LABEL)
        self.key("Right")
        self.click_item(self.cell("车削"), dx=desktop.LABEL)
        self.key("Right", "Down", "Right", "Up")
        self.cell("粗车外圆")
        self.picture(folder / "main-window.png", window)

        self.key("ctrl+f")
        self.type("cwy")
        self.item(self.process, "list item", "车细长轴外圆")
        self.picture(folder / "find.png", window)
        self.key("Escape", "Up")

        self.click_item(self.cell("车削"), button=3, dx=desktop.LABEL)
        wait_until(lambda: self.items(self.process, "popup menu"), "the pop-up menu")
        self.picture(folder / "popup.png", window, of_screen=True)
        self.key("Escape")

        # As a spreadsheet would leave it in the clipboard.
        column = self.home / "column"
        column.write_text("粗车外圆，双边留精车余量 1 mm\n粗车外圆，切削深度 2～3 mm\n粗车外圆至图示尺寸\n", encoding="utf-8")
        self.desktop.spawn("xclip", "-selection", "clipboard", column).wait(desktop.PATIENCE)
        self.click_item(self.cell("车外圆"), dx=desktop.LABEL)
        self.key("ctrl+v")
        self.cell("粗车外圆至图示尺寸")
        self.picture(folder / "paste.png", window, of_screen=True)

        for name in "查找", "恢复最近一次删除的内容":
            self.hover(self.item(self.process, "push button", name))
        self.item(self.process, "tool tip", name + "（Ctrl+Z）")
        self.picture(folder / "corner.png", window, of_screen=True)

        self.click_item(self.cell("车削"), dx=desktop.LABEL)
        self.click_item(self.item(self.process, "push button", "新词"))
        self.item(self.process, "text", "名称")
        self.item(self.process, "tool tip", "按 Ctrl+Enter 保存并接着新建下一个")
        self.picture(folder / "editing.png", window, of_screen=True)
        self.key("Escape")

        self.key("alt+h", "Return")
        about = self.window_id("关于 HCWordLib")
        self.picture(folder / "about.png", about)
        self.key("Escape")
        self.assertEqual(self.close(self.process, window), 0)

    def cell(self, name):
        return self.item(self.process, "table cell", name)

    def picture(self, file, window, of_screen=False):
        """Waits until the window stands still, but for a caret that blinks, and writes its picture."""
        if not of_screen:
            desktop.run("xdotool", "mousemove", 1599, 1199)  # nothing is under the pointer
        def take():
            self.screenshot(file, None if of_screen else window)
            if of_screen:
                x, y, width, height = self.geometry(window)
                desktop.run("mogrify", "-crop", f"{width}x{height}+{x}+{y}", "+repage", file)
            return desktop.run("identify", "-format", "%#", file)  # tells pictures apart by their pixels
        taken = set()
        wait_until(lambda: (picture := take()) in taken or taken.add(picture), f"{file.name} stands still")

    def test_every_variant(self):
        for variant in itertools.product(("light", "dark"), (100, 150, 200), ("zh", "en")):
            with self.subTest(variant):
                self.take(*variant)


if __name__ == "__main__":
    FOLDER = sys.argv.pop(1)
    unittest.main()
