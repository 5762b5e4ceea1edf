# SPDX-FileCopyrightText: 2026 The HCWordLib authors
# SPDX-License-Identifier: MIT
"""Starting, starting again and starting twice."""

import signal
import unittest

import desktop
from desktop import wait_until

TWIPS_PER_PIXEL = 15


class StartUp(desktop.WindowTest):
    def test_first_start_takes_the_default_place(self):
        process, window = self.open()
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

    def check_restart(self, scale):
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

    def test_restart_takes_the_same_place(self):
        self.check_restart(1)

    def test_restart_takes_the_same_place_at_200_percent(self):
        self.check_restart(2)

    def test_second_instance_restores_the_first(self):
        first, window = self.open()
        self.minimise(window)
        self.assertEqual(self.end(self.start()), 0)
        wait_until(lambda: not self.is_minimised(window) and self.is_active(window), "the window came back")
        self.assertEqual(list(self.windows().values()), [desktop.TITLE])

        # A minimised window is closed without a trace in the settings.
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

    def test_a_place_outside_the_screen_is_not_taken(self):
        config = self.home / "XDG_CONFIG_HOME"
        config.mkdir(exist_ok=True)
        (config / "HCWordLib.conf").write_text("[Settings]\nMainLeft=900000\nMainTop=-90000\n", encoding="utf-8")
        process, window = self.open()
        left, top, _, _ = self.geometry(window)
        self.assertTrue(0 <= left < 1600 and 0 <= top < 1200, (left, top))
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

    def test_start_after_a_kill(self):
        process, _ = self.open()
        process.send_signal(signal.SIGKILL)
        self.end(process)
        wait_until(lambda: not self.windows(), "the window is gone")
        process, window = self.open()
        self.assertEqual(self.close(process, window), 0)


if __name__ == "__main__":
    unittest.main(verbosity=2)
