"""A program in a pseudo terminal, and an emulator that shows what it draws there."""

import fcntl
import os
import pty
import re
import select
import struct
import subprocess
import sys
import termios
import time

# The system's package, also where another Python comes first.
sys.path.append("/usr/lib/python3/dist-packages")
import pyte
from game_process import require

LIMIT = 30  # seconds, which only end what hangs
COLUMNS, ROWS = 140, 50  # 6 columns on the left and 1 row above are none of the game
STEP = 0.033  # seconds


class Terminal:
    """The program in a terminal of that type and size. The emulator shows all that the usual
    type is sent; it does not know xterm's way to repeat a character."""

    def __init__(self, run_dir, *command, term="screen-256color", columns=COLUMNS, rows=ROWS,
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

    def until(self, condition, what, limit=LIMIT):
        """Waits for something that the program does or shows."""
        end = time.monotonic() + limit
        while not (result := condition()):
            require(time.monotonic() < end, f"no {what}:\n" + "\n".join(self.screen.display))
            self.read(STEP)
        return result

    def close(self):
        """Ends the program, if it has not ended."""
        if self.process.poll() is None:
            self.process.kill()
            self.process.wait()
        os.close(self.master)
        os.close(self.slave)

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

    def end(self, status=0, limit=LIMIT):
        """Waits for the program's end; the terminal has to be what it was. Returns what it
        printed afterwards."""
        self.until(lambda: self.process.poll() is not None, "end", limit)
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
