# SPDX-FileCopyrightText: 2026 The HCWordLib authors
# SPDX-License-Identifier: MIT
"""A desktop, a home folder and a library of their own for a program that is driven as a person drives it.

A test module holds classes derived from WindowTest and ends with unittest.main(). Everything waits for
a condition; whatever was started is ended by its process id.
"""

import configparser
import contextlib
import ctypes
import os
import pathlib
import re
import shutil
import signal
import sqlite3
import subprocess
import sys
import tempfile
import time
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[1]
BUILD = pathlib.Path(os.environ.get("HCWORDLIB_BUILD", ROOT / "build" / "release"))
TITLE = "衡川词句库"
BOX_TITLE = "HCWordLib"
LABEL = 34  # pixels from a tree item's left edge into its label
PATIENCE = 60  # seconds; a failing test waits this long, a passing one never

_libc = ctypes.CDLL(None)
_PR_SET_PDEATHSIG, _PR_SET_CHILD_SUBREAPER = 1, 36


def wait_until(condition, what, seconds=PATIENCE):
    """The first true answer of condition()."""
    end = time.monotonic() + seconds
    while True:
        answer = condition()
        if answer:
            return answer
        if time.monotonic() > end:
            raise AssertionError(f"not within {seconds} s: {what}")
        time.sleep(0.05)  # the one wait: between two looks at a condition


def run(*command, check=True):
    """The output of a small tool."""
    done = subprocess.run([str(part) for part in command], stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                          check=False, text=True, timeout=PATIENCE)
    if check and done.returncode != 0:
        raise AssertionError(f"{command}: {done.returncode}: {done.stdout}{done.stderr}")
    return done.stdout


def role(item):
    """The name of an item's role, as Debian 12 has it; later versions shorten that of a button."""
    name = item.get_role_name()
    return "push button" if name == "button" else name


class Desktop:
    """A display with a window manager, a session bus and, on demand, the accessibility bus."""

    def __init__(self, size="1600x1200"):
        # Services that a bus starts become children of this process, and so can be ended with it.
        _libc.prctl(_PR_SET_CHILD_SUBREAPER, 1)
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="desktop"))
        self.outer = dict(os.environ)
        self.servers = []
        for name in [n for n in os.environ if n.startswith("QT_")]:
            del os.environ[name]
        for name in ("WAYLAND_DISPLAY", "XDG_CURRENT_DESKTOP"):
            os.environ.pop(name, None)
        for name in ("HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR"):
            (self.folder / name).mkdir(mode=0o700)
            os.environ[name] = str(self.folder / name)
        os.environ.update(LC_ALL="C.UTF-8", QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
        try:
            os.environ["DISPLAY"] = ":" + self._spawn_talker(
                "Xvfb", "-displayfd", "{}", "-screen", "0", size + "x24", "-nolisten", "tcp", "-noreset")
            self._plain_keyboard()
            os.environ["DBUS_SESSION_BUS_ADDRESS"] = self._spawn_talker(
                "dbus-daemon", "--session", "--nofork", "--nopidfile", "--print-address={}")
            self.servers.append(self.spawn("openbox", "--sm-disable"))
            wait_until(lambda: "Name: Openbox" in run("wmctrl", "-m", check=False), "the window manager runs")
        except BaseException:
            self.stop()
            raise

    def spawn(self, *command, log=os.devnull, **options):
        def die_with_parent():
            _libc.prctl(_PR_SET_PDEATHSIG, signal.SIGTERM)
        with open(log, "ab") as log:
            return subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=log, stderr=log,
                                    preexec_fn=die_with_parent, **options)

    def _spawn_talker(self, *command):
        """Starts a server that writes its address to a file descriptor; the address."""
        reader, writer = os.pipe()
        self.servers.append(self.spawn(*[part.format(writer) for part in command], pass_fds=[writer]))
        os.close(writer)
        with open(reader, encoding="utf-8") as answer:
            return answer.readline().strip()

    def _plain_keyboard(self):
        """Gives a key that Alt, Control or the like can shift its first symbol alone: where the keyboard's
        description names such a modifier beside the first symbol too, xdotool would press it for F2."""
        file, display = self.folder / "keyboard.xkb", os.environ["DISPLAY"]
        run("xkbcomp", "-w0", display, file)
        keys = re.sub(r'type= *"(?!ALPHABETIC)[^"]+",\s*symbols\[Group1\]= *\[ *([^\s,]+)[^\]]*\]', r"[ \1 ]",
                      file.read_text(encoding="utf-8"))
        file.write_text(keys, encoding="utf-8")
        run("xkbcomp", "-w0", file, display)

    def stop(self):
        for server in reversed(self.servers):
            server.terminate()
            server.wait(timeout=PATIENCE)
        for number in (signal.SIGTERM, signal.SIGKILL):
            for child in _children():
                with contextlib.suppress(ProcessLookupError):
                    os.kill(child, number)
            with contextlib.suppress(AssertionError):
                wait_until(_all_ended, "the buses' services have ended", 10)
        shutil.rmtree(self.folder, ignore_errors=True)
        os.environ.clear()
        os.environ.update(self.outer)


def _all_ended():
    with contextlib.suppress(ChildProcessError):
        while os.waitpid(-1, os.WNOHANG)[0]:
            pass
    return not _children()


def _children():
    found = []
    for stat in pathlib.Path("/proc").glob("[0-9]*/stat"):
        with contextlib.suppress(OSError):
            if int(stat.read_text(encoding="utf-8").rpartition(")")[2].split()[1]) == os.getpid():
                found.append(int(stat.parent.name))
    return found


class WindowTest(unittest.TestCase):
    """Each class has a desktop, each test a home folder with a library that holds `outline`."""

    outline = "车削\n\t粗车外圆\n\t\t粗车外圆，留精车余量0.5mm\n\t车端面\n铣削\n\t铣平面\n检验\n"

    @classmethod
    def setUpClass(cls):
        signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))
        cls.desktop = Desktop()
        cls.addClassCleanup(cls.desktop.stop)

    def setUp(self):
        self.home = pathlib.Path(tempfile.mkdtemp(prefix="home"))
        self.addCleanup(shutil.rmtree, self.home, True)
        self.env = dict(os.environ)
        for name in ("HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR", "TMPDIR"):
            self.env[name] = str(self.home / name)
            (self.home / name).mkdir(mode=0o700)
        # No data source of the machine shines through.
        drivers = pathlib.Path(run("odbcinst", "-j").split("DRIVERS............:")[1].split()[0])
        shutil.copy(drivers, self.home / "odbcinst.ini")
        (self.home / "odbc.ini").touch()
        self.env.update(ODBCINI=str(self.home / "user.ini"), ODBCSYSINI=str(self.home))
        self.library = self.home / "library.sqlite"
        self.log = self.home / "program.log"
        self.programs = []
        self.addCleanup(self._end_programs)
        self.make_library()

    def make_library(self):
        self.library.touch()
        (self.home / "user.ini").write_text(
            f"[HCWordLib]\nDriver=SQLite3\nDatabase={self.library}\nNoCreat=1\n"
            "JournalMode=WAL\nSyncPragma=FULL\n", encoding="utf-8")
        self.admin("init")
        file = self.home / "library.outline"
        file.write_text(self.outline, encoding="utf-8")
        self.admin("import", file)

    def admin(self, *arguments):
        return subprocess.run([BUILD / "hcwordlib-admin", *arguments], env=self.env, check=True,
                              stdout=subprocess.PIPE, timeout=PATIENCE, text=True).stdout

    def rows(self, statement):
        with contextlib.closing(sqlite3.connect(self.library)) as connection:
            return connection.execute(statement).fetchall()

    def stored(self):
        """What the settings store holds about the window."""
        settings = configparser.ConfigParser()
        settings.optionxform = str
        settings.read(self.home / "XDG_CONFIG_HOME" / "HCWordLib.conf", encoding="utf-8")
        return dict(settings["Settings"]) if settings.has_section("Settings") else {}

    # Programs

    def start(self, program=BUILD / "hcwordlib", **extra):
        """Starts the program, with further environment variables; waits for nothing."""
        process = self.desktop.spawn(str(program), env={**self.env, **extra}, cwd=self.home, log=self.log)
        self.programs.append(process)
        self.scale = float(extra.get("QT_SCALE_FACTOR", 1))
        return process

    def open(self, **extra):
        """Starts the program and waits for its window: (process, window)."""
        process = self.start(**extra)
        return process, self.window_id(process=process)

    def end(self, process):
        """Waits for the program's end: its exit status."""
        return process.wait(timeout=PATIENCE)

    def close(self, process, window):
        """Closes the window as its close box does: the program's exit status."""
        run("wmctrl", "-i", "-c", window)
        return self.end(process)

    def _end_programs(self):
        for process in self.programs:
            if process.poll() is None:
                process.kill()
                process.wait()
        if self.log.exists():
            sys.stderr.write(self.log.read_text(encoding="utf-8"))

    # Windows

    def windows(self):
        """The managed windows: {id: caption}."""
        lines = [line.split(None, 3) for line in run("wmctrl", "-l", check=False).splitlines()]
        return {line[0]: line[3] if len(line) > 3 else "" for line in lines}

    def window_id(self, title=TITLE, process=None):
        """Waits until a window of this exact caption is up and painted; its id."""
        def look():
            for window, caption in self.windows().items():
                if caption == title and "IsViewable" in run("xwininfo", "-id", window, check=False):
                    return window
            if process is not None and process.poll() is not None:
                raise AssertionError(f"the program ended with {process.returncode} before its window came up")
            return None
        window = wait_until(look, f"a window '{title}'")
        wait_until(lambda: int(run("convert", "x:" + window, "-format", "%k", "info:", check=False) or 0) > 2,
                   f"'{title}' is painted")
        return window

    def geometry(self, window):
        """Left, top, width and height in pixels, the window manager's frame included."""
        text = run("xwininfo", "-id", window)
        x, y, width, height = (int(re.search(name + r":\s+(-?\d+)", text)[1]) for name in
                               ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height"))
        left, right, top, bottom = self.frame(window)
        return x - left, y - top, width + left + right, height + top + bottom

    def frame(self, window):
        """The widths of the frame's left, right, top and bottom side in pixels."""
        extents = run("xprop", "-id", window, "_NET_FRAME_EXTENTS").partition("=")[2]
        return [int(number) for number in extents.split(",")]

    def move(self, window, x, y, width, height):
        """Puts the outer frame at a place, as a person does with the mouse: where it then is. A scaled
        window moves and grows in steps of its scale."""
        left, right, top, bottom = self.frame(window)
        run("wmctrl", "-i", "-r", window, "-e", f"1,{x},{y},{width - left - right},{height - top - bottom}")

        def look():
            place = self.geometry(window)
            return place if all(abs(a - b) <= 2 for a, b in zip(place, (x, y, width, height))) else None
        return wait_until(look, "the window was moved")

    def minimise(self, window):
        run("xdotool", "windowminimize", window)
        wait_until(lambda: self.is_minimised(window), "the window is minimised")

    def is_minimised(self, window):
        return "Iconic" in run("xprop", "-id", window, "WM_STATE")

    def is_active(self, window):
        active = run("xprop", "-root", "_NET_ACTIVE_WINDOW").rpartition("#")[2].split(",")[0]
        return int(active, 16) == int(window, 16)

    def screenshot(self, file, window=None):
        """A picture of the window with its frame, or of the whole screen."""
        of = ["-frame", "-window", window] if window else ["-window", "root"]
        run("import", "-silent", *of, file)

    # Mouse and keyboard

    def click(self, x, y, button=1, count=1):
        """Clicks at a place of the screen."""
        run("xdotool", "mousemove", x, y, "click", "--repeat", count, "--delay", 40, button)

    def drag(self, x, y, to_x, to_y, button=1):
        run("xdotool", "mousemove", x, y, "mousedown", button, "mousemove", (x + to_x) // 2, (y + to_y) // 2,
            "mousemove", to_x, to_y, "mouseup", button)

    def hover(self, item, dx=None):
        """Moves the pointer into the middle of a control or item found on the accessibility bus, or dx
        pixels from its left edge: the tree answers only where a label is, LABEL. All in unscaled pixels."""
        from gi.repository import Atspi
        box = item.get_extents(Atspi.CoordType.SCREEN)
        x, y = box.x + (box.width / 2 if dx is None else dx), box.y + box.height / 2
        run("xdotool", "mousemove", round(x * self.scale), round(y * self.scale))

    def click_item(self, item, button=1, count=1, dx=None):
        self.hover(item, dx)
        run("xdotool", "click", "--repeat", count, "--delay", 40, button)

    def key(self, *keys):
        run("xdotool", "key", "--clearmodifiers", *keys)

    def type(self, text):
        # Every character gets a key first: one that is mapped just for its own stroke can come too late.
        # The keys from 208 on are no modifiers.
        for code, char in enumerate(sorted({char for char in text if char > "~"}), 208):
            run("xmodmap", "-e", f"keycode {code} = U{ord(char):04X}")
        run("xdotool", "type", "--delay", 30, "--", text)

    def wait_for_menu(self, process):
        """Waits until a menu is open: a window that no window manager knows."""
        def look():
            shown = run("xdotool", "search", "--onlyvisible", "--pid", process.pid, check=False).split()
            return len(shown) > len(self.windows())
        wait_until(look, "a menu is open")

    # What assistive tools see

    def accessible(self, process):
        """The program on the accessibility bus."""
        import gi
        gi.require_version("Atspi", "2.0")
        from gi.repository import Atspi

        def look():
            desktop = Atspi.get_desktop(0)
            desktop.clear_cache()
            for number in range(desktop.get_child_count()):
                with contextlib.suppress(Exception):  # programs come and go meanwhile
                    program = desktop.get_child_at_index(number)
                    if program.get_process_id() == process.pid:
                        return program
            return None
        return wait_until(look, "the program is on the accessibility bus")

    def items(self, process, kind=None, name=None):
        """All controls and items that show, in the order of the tree, of this role and name."""
        found = []

        def visit(node):
            node.clear_cache()
            if (kind is None or role(node) == kind) and (name is None or node.get_name() == name):
                found.append(node)
            for number in range(node.get_child_count()):
                child = node.get_child_at_index(number)
                if child is not None:
                    visit(child)
        visit(self.accessible(process))
        return found

    def item(self, process, kind=None, name=None):
        """Waits for the first of items()."""
        return wait_until(lambda: self.items(process, kind, name), f"{kind or 'item'} '{name}'")[0]
