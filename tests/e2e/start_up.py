# SPDX-FileCopyrightText: 2026 The HCWordLib authors
# SPDX-License-Identifier: MIT
"""Starting, starting again and starting twice."""

import unittest

import desktop
from desktop import wait_until

TWIPS_PER_PIXEL = 15


class StartUp(desktop.WindowTest):
    def test_first_start_takes_the_default_place(self):
        (self.home / "HCWordLib.conf").write_text("[Settings]\nMainLeft=6000\n", encoding="utf-8")  # not the user's own
        process, window = self.open(XDG_CONFIG_DIRS=str(self.home))
        place = self.geometry(window)
        for pixels, twips in zip(place, (1000, 1000, 6500, 6500)):
            self.assertAlmostEqual(pixels, twips / TWIPS_PER_PIXEL, delta=1, msg=str(place))
        self.assertEqual(self.close(process, window), 0)
        self.check_stored(place, 1)

    def check_stored(self, place, scale):
        stored = self.stored()
        for name, pixels in zip(("MainLeft", "MainTop", "MainWidth", "MainHeight"), place):
            self.assertAlmostEqual(float(stored.pop(name)), pixels * TWIPS_PER_PIXEL / scale, delta=15, msg=name)
        self.assertEqual(stored, {})

    def test_restart_takes_the_same_place(self):
        for scale in (1, 2):
            extra = {"QT_SCALE_FACTOR": str(scale)}
            process, window = self.open(**extra)
            place = self.move(window, 180, 90, 1100, 1011)
            self.assertEqual(self.close(process, window), 0)
            self.check_stored(place, scale)
            first = self.stored()
            for _ in range(3):
                process, window = self.open(**extra)
                # Where the scale is 2, a frame of an odd width can put the window one pixel off, once.
                wait_until(lambda: all(abs(a - b) < scale for a, b in zip(self.geometry(window), place)),
                           "the window is where it was")
                self.assertEqual(self.close(process, window), 0)
                self.assertEqual(self.stored(), first)

    def test_a_window_that_is_dragged_too_small_jumps_back(self):
        process, window = self.open()
        x, y, width, height = self.move(window, 100, 100, 500, 500)
        desktop.run("xdotool", "mousemove", x + width - 3, y + height - 3, "mousedown", 1)
        wait_until(lambda: desktop.run("xdotool", "mousemove_relative", "--", -9, -9) or
                   self.geometry(window)[2] < width, "the window follows the pointer")
        desktop.run("xdotool", "mousemove", x + 150, y + 150)
        wait_until(lambda: self.geometry(window)[2] < 334, "the window is too small or has jumped back already")
        desktop.run("xdotool", "mouseup", 1)
        wait_until(lambda: self.geometry(window)[2:] == (333, 333), "the window has the least size")
        self.assertEqual(self.close(process, window), 0)

    def test_second_instance_restores_the_first(self):
        first, window = self.open()
        self.minimise(window)
        self.assertEqual(self.end(self.start()), 0)
        wait_until(lambda: not self.is_minimised(window) and self.is_active(window), "the window came back")
        self.assertEqual(list(self.windows().values()), [desktop.TITLE])

        # After a kill the next one starts. It is closed while minimised, without a trace in the settings.
        first.kill()
        self.end(first)
        wait_until(lambda: not self.windows(), "the window is gone")
        first, window = self.open()
        self.minimise(window)
        self.assertEqual(self.close(first, window), 0)
        self.assertEqual(self.stored(), {})

    def test_two_at_once_leave_one(self):
        for _ in range(5):
            both = [self.start(), self.start()]
            wait_until(lambda: any(process.poll() is not None for process in both), "one gave way")
            loser, winner = sorted(both, key=lambda process: process.poll() is None)
            self.assertEqual(loser.returncode, 0)
            window = self.window_id(process=winner)
            self.assertEqual(len(self.windows()), 1)
            self.assertEqual(self.close(winner, window), 0)

    def test_an_impossible_place_becomes_the_nearest_possible(self):
        for stored, place in (("900000 -90000 6500 6500", (1500, 0, 433, 433)),
                              ("-6450 2000 6500 6500", (-333, 133, 433, 433)),
                              ("1000 1000 1e30 -1e30", (67, 67, 1600, 333)),
                              ("nan 1e30 0 inf", (67, 1155, 333, 433))):
            lines = map("Main{}={}\n".format, ("Left", "Top", "Width", "Height"), stored.split())
            (self.home / "XDG_CONFIG_HOME/HCWordLib.conf").write_text("[Settings]\n" + "".join(lines), encoding="utf-8")
            process, window = self.open()
            # At the bottom the window manager may push a window that it frames by a pixel or two.
            wait_until(lambda: all(abs(a - b) <= 2 for a, b in zip(self.geometry(window), place)),
                       f"{stored} has become {place}")
            self.assertEqual(self.close(process, window), 0)

    def test_end_by_the_system(self):
        process, window = self.open()
        place = self.move(window, 180, 90, 1100, 1011)
        self.key("alt+h")
        self.wait_for_menu(process)
        self.key("Return")
        self.window_id("关于 HCWordLib")
        process.terminate()
        self.assertEqual(self.end(process), 0)
        self.check_stored(place, 1)


if __name__ == "__main__":
    unittest.main(verbosity=2)
