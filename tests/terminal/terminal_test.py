"""The game in a text terminal: a pseudo terminal, and an emulator that shows what is drawn.

Usage: terminal_test.py <tazlet-terminal> <its staged run directory> [unittest's arguments]
"""

import os
import pathlib
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "support"))
from game_process import require
from pseudo_terminal import COLUMNS, LIMIT, ROWS, STEP, Terminal

PROGRAM = pathlib.Path(sys.argv[1]).resolve()
STAGED = sys.argv[2]


class TerminalTest(unittest.TestCase):
    def setUp(self):
        directory = tempfile.TemporaryDirectory(prefix="glidewing-")
        self.addCleanup(directory.cleanup)
        self.run_dir = pathlib.Path(directory.name, "run")
        shutil.copytree(STAGED, self.run_dir)

    def start(self, *options, **more):
        return self.start_command(PROGRAM, *options, **more)

    def start_command(self, *command, **more):
        terminal = Terminal(self.run_dir, *command, **more)
        self.addCleanup(terminal.close)
        return terminal


class InATerminal(TerminalTest):
    def test_a_game_is_played_by_mouse_from_title_to_end(self):
        terminal = self.start("--seed", 3, "--record", "game.txt")
        terminal.until_shown("when the eighth is in")
        terminal.type("p")
        terminal.until_shown("W A N T E D")
        pinned = 0
        while not terminal.shows("when the eighth is in"):
            if place := terminal.find(r"__\)#\(__| \) *# *\( "):
                terminal.click(*place)
                pinned += 1
            terminal.read(3 * STEP)
            require(pinned < 400, "no end")
        self.assertGreater(pinned, 7)
        self.assertEqual(terminal.screen.buffer[20][20].bg, "black")
        terminal.type("Q")
        output = terminal.end()
        self.assertIn("games 1", output)
        recorded = (self.run_dir / "game.txt").read_text()
        press, release = (int(re.search(rf"(?m)^(\d+) key-{what} p$", recorded)[1])
                          for what in ("press", "release"))
        self.assertIn(release - press, range(3, 30), "a key comes up after 100 ms")
        # In the middle of a cell, counted from the picture's corner.
        for x, y in re.findall(r"(?m) mouse-press left (\d+) (\d+)$", recorded):
            self.assertEqual((int(x) % 8, int(y) % 16), (4, 8))

        headless = subprocess.run([PROGRAM, "--headless", "--replay", "game.txt", "--digest"],
                                  cwd=self.run_dir, capture_output=True, text=True, check=True)
        self.assertIn("games 1", headless.stdout)

    def test_busy_play_takes_less_than_60_kb_a_second(self):
        seconds = 12
        terminal = self.start("--player", "skilled", "--steps", int(seconds / STEP), "--digest",
                              term="xterm-256color")
        terminal.end()
        rate = len(terminal.output) / seconds
        print(f"{rate / 1000:.1f} kB a second")
        self.assertGreater(rate, 2000)
        self.assertLess(rate, 60_000)
        self.assertIn(b"digest", terminal.output)

    def test_a_terminal_that_takes_nothing_does_not_slow_the_game(self):
        start = time.monotonic()
        terminal = self.start("--player", "hostile", "--steps", 150)
        while terminal.process.poll() is None and time.monotonic() < start + LIMIT:
            time.sleep(0.05)
        self.assertLess(time.monotonic() - start, 150 * STEP + 4)
        terminal.end()

    def test_too_small_a_terminal_says_what_is_needed_and_goes_on_when_it_fits(self):
        terminal = self.start(columns=80, rows=24)
        terminal.until_shown("This needs 128 x 48 characters; here are 80 x 24.")
        terminal.resize(20, 5)
        terminal.until_shown("This needs 128 x")
        terminal.resize(128, 48)
        terminal.until_shown("when the eighth is in")
        terminal.resize(127, 48)
        terminal.until_shown("here are 127 x 48")
        terminal.resize(COLUMNS, ROWS)
        terminal.until_shown("when the eighth is in")
        terminal.type("q")
        terminal.end()

    def test_signals_and_crashes_give_the_terminal_back(self):
        for number, status in [(signal.SIGINT, 0), (signal.SIGTERM, 0), (signal.SIGHUP, 0),
                               (signal.SIGQUIT, None), (signal.SIGSEGV, None),
                               (signal.SIGABRT, None)]:
            with self.subTest(number):
                terminal = self.start()
                terminal.until_shown("when the eighth is in")
                terminal.process.send_signal(number)
                terminal.until(lambda: terminal.process.poll() is not None, "end")
                terminal.end(terminal.process.returncode if status is None else status)
                self.assertEqual(terminal.process.returncode == 0, status == 0)

    def test_ctrl_z_gives_the_terminal_to_the_shell_and_fg_takes_it_again(self):
        terminal = self.start_command("bash", "--norc", "-i")
        terminal.type(f"{PROGRAM}\n")
        terminal.until_shown("when the eighth is in")
        terminal.type("\x1a")
        terminal.until_shown("Stopped")
        terminal.require_switched_back()
        terminal.screen.reset()
        terminal.type("echo $((6 * 7))\n")
        terminal.until_shown("42")
        terminal.type("fg\n")
        terminal.until_shown("when the eighth is in")
        terminal.type("p")
        terminal.until_shown("W A N T E D")
        terminal.type("q")
        terminal.until_shown("rows sold")
        terminal.type("exit $?\n")
        terminal.end()

    def test_what_is_no_terminal_for_it_is_told_in_one_line(self):
        for term, reason in [("dumb", "cannot be drawn on"), ("no-such-type", "is not known"),
                             ("", "is not known"), ("vt100", "has no mouse"),
                             ("linux", "has no mouse")]:
            with self.subTest(term):
                terminal = self.start(term=term)
                terminal.until(lambda: terminal.process.poll() is not None, "end")
                terminal.read(0.1)
                self.assertEqual(terminal.process.returncode, 1)
                self.assertEqual(terminal.output.count(b"\n"), 1)
                self.assertIn(reason.encode(), terminal.output)
        refused = subprocess.run([PROGRAM], cwd=self.run_dir, stdin=subprocess.DEVNULL,
                                 capture_output=True, text=True)
        self.assertEqual((refused.returncode, refused.stderr.count("\n")), (1, 1))

    def test_a_closed_input_ends_it_with_a_line(self):
        errors, their_end = os.pipe()
        # Where a hang-up is ignored, as with nohup, only the input tells.
        terminal = self.start_command("sh", "-c", 'trap "" HUP; exec "$0"', PROGRAM,
                                      stderr=their_end)
        os.close(their_end)
        terminal.until_shown("when the eighth is in")
        terminal.type("\x1b[<0;1")  # torn
        os.close(terminal.master)
        self.assertEqual(terminal.process.wait(LIMIT), 1)
        with open(errors) as file:
            self.assertIn("tazlet: the terminal was closed\n", file.readlines())
        terminal.master = os.dup(terminal.slave)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[3:])
