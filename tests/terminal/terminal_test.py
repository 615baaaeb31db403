"""The game in a text terminal: a pseudo terminal, and an emulator that shows what is drawn.

Usage: terminal_test.py <tazlet-terminal> <its staged run directory> [unittest's arguments]
"""

import fcntl
import os
import pathlib
import pty
import re
import select
import shutil
import signal
import struct
import subprocess
import sys
import tempfile
import termios
import time
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "support"))
# The system's package, also where another Python comes first.
sys.path.append("/usr/lib/python3/dist-packages")
import pyte
from game_process import require

PROGRAM = pathlib.Path(sys.argv[1]).resolve()
STAGED = sys.argv[2]
LIMIT = 30  # seconds, which only end what hangs
COLUMNS, ROWS = 140, 50  # 6 columns on the left and 1 row above are none of the game
LEFT, TOP = 6, 1
STEP = 0.033


class Terminal:
    """The program in a terminal of that type and size."""

    def __init__(self, run_dir, *command, term="xterm-256color", columns=COLUMNS, rows=ROWS,
                 stderr=None):
        self.master, self.slave = pty.openpty()
        self.resize(columns, rows)
        self.before = termios.tcgetattr(self.slave)
        self.output = b""
        environment = {**os.environ, "TERM": term}
        environment.pop("DISPLAY", None)
        self.process = subprocess.Popen(
            [str(word) for word in command], cwd=run_dir, env=environment,
            start_new_session=True, stdin=self.slave, stdout=self.slave,
            stderr=stderr or self.slave,
            preexec_fn=lambda: fcntl.ioctl(0, termios.TIOCSCTTY, 0))

    def resize(self, columns, rows):
        fcntl.ioctl(self.master, termios.TIOCSWINSZ, struct.pack("HHHH", rows, columns, 0, 0))
        self.screen = pyte.Screen(columns, rows)
        self.emulator = pyte.ByteStream(self.screen)

    def read(self, seconds):
        """Shows what the program draws meanwhile."""
        end = time.monotonic() + seconds
        while (rest := end - time.monotonic()) > 0:
            if select.select([self.master], [], [], rest)[0]:
                text = os.read(self.master, 1 << 16)
                self.output += text
                # The emulator takes the end of one report for text.
                self.emulator.feed(re.sub(rb"\x1b\[\?100[036][hl]", b"", text))

    def until(self, condition, what):
        end = time.monotonic() + LIMIT
        while not (result := condition()):
            require(time.monotonic() < end, f"no {what}:\n" + "\n".join(self.screen.display))
            self.read(STEP)
        return result

    def shows(self, text):
        return any(text in row for row in self.screen.display)

    def until_shown(self, text):
        self.until(lambda: self.shows(text), text)

    def type(self, text):
        os.write(self.master, text.encode())

    def point(self, column, row, button=35, end="M"):
        """A report of the pointer, in the terminal's cells from 0; 35: it moves."""
        self.type(f"\x1b[<{button};{column + 1};{row + 1}{end}")

    def click(self, column, row):
        self.point(column, row)
        self.point(column, row, 0)
        self.point(column, row, 0, "m")

    def find(self, pattern):
        """The middle of the first such text in the field, as column and row."""
        for row in range(12, 40):
            if match := re.search(pattern, self.screen.display[row][:100]):
                return sum(match.span()) // 2, row
        return None

    def end(self, status=0):
        """Waits for the program's end; the terminal has to be what it was."""
        self.until(lambda: self.process.poll() is not None, "end")
        self.read(0.1)
        require(self.process.returncode == status,
                f"{self.process.returncode}: {self.output[-3000:]}")
        require(termios.tcgetattr(self.slave) == self.before, "other modes than before")
        self.require_switched_back()
        return self.output.rpartition(b"\x1b[?1049l")[2].decode()

    def require_switched_back(self):
        for on, off in [(b"\x1b[?1049h", b"\x1b[?1049l"), (b"\x1b[?1003h", b"\x1b[?1003l"),
                        (b"\x1b[?25l", b"\x1b[?25h")]:
            require(self.output.rfind(off) > self.output.rfind(on) >= 0, f"{off} lacks")


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

        def clean_up():
            if terminal.process.poll() is None:
                terminal.process.kill()
                terminal.process.wait()
            os.close(terminal.master)
            os.close(terminal.slave)
        self.addCleanup(clean_up)
        return terminal


class InATerminal(TerminalTest):
    def test_a_game_is_played_by_mouse_from_title_to_end(self):
        terminal = self.start("--seed", 3, "--record", "game.txt")
        terminal.until_shown("when the eighth is in")
        terminal.type("p")
        terminal.until_shown("W A N T E D")
        pinned = 0
        while not terminal.shows("when the eighth is in"):
            if place := terminal.find(r"=='8`==|\( *\\V/ *\)"):
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
        terminal = self.start("--player", "skilled", "--steps", int(seconds / STEP), "--digest")
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
