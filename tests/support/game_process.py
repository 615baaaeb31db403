"""What the tests and the long trials share: a game in a run directory of its own."""

import collections
import contextlib
import os
import pathlib
import random
import re
import shutil
import signal
import subprocess
import tempfile
import threading
import time

LIMIT = 45  # seconds, which only end what hangs
CHANCE = random.Random(5)


def require(holds, message):
    if not holds:
        raise AssertionError(message)


@contextlib.contextmanager
def running(*command, **options):
    """A process that ends with the block, at the latest."""
    with subprocess.Popen([str(word) for word in command], stdin=subprocess.DEVNULL, text=True,
                          **options) as process:
        try:
            yield process
        finally:
            process.terminate()


@contextlib.contextmanager
def display(*options):
    """An X server of its own: its process, and its name for DISPLAY."""
    with running("Xvfb", "-displayfd", "1", "-nolisten", "tcp", "-noreset", "+extension", "GLX",
                 "-screen", "0", "1280x1024x24", *options,
                 stdout=subprocess.PIPE, stderr=subprocess.DEVNULL) as server:
        yield server, f":{server.stdout.readline().strip()}"


class Game(contextlib.ExitStack):
    """A program in a run directory of its own, a copy of the staged one or an empty one.
    Both end with the block. A program for Windows is run by wine."""

    def __init__(self, program, staged=None):
        super().__init__()
        self.program = pathlib.Path(program).resolve()
        self.command = ["wine"] if self.program.suffix == ".exe" else []
        # Players have folders of such names.
        prefix = "Spiele für mich ✿ " if self.command else "glidewing-"
        directory = tempfile.TemporaryDirectory(prefix=prefix)
        self.run_dir = pathlib.Path(self.enter_context(directory), "run")
        self.run_dir.mkdir()
        if staged:
            shutil.copytree(staged, self.run_dir, dirs_exist_ok=True,
                            ignore=shutil.ignore_patterns("*.log"))  # of somebody who played there
        self.resources = sorted(path.relative_to(self.run_dir)
                                for path in self.run_dir.glob("tazlet/*/*"))

    def start(self, *options, shell='exec "$0" "$@"', **environment):
        """Starts the program. A variable that is given as None is taken out."""
        environment = {**os.environ, **environment}
        errors, their_end = os.pipe()
        self.process = self.enter_context(running(
            "sh", "-c", shell, *self.command, self.program, *options, cwd=self.run_dir, stderr=their_end,
            stdout=subprocess.PIPE,
            env={name: value for name, value in environment.items() if value is not None}))
        os.close(their_end)
        self.last_errors = collections.deque(maxlen=5000)  # a program without a log says a lot
        self.reader = threading.Thread(target=self.read_errors, args=[errors])
        self.reader.start()

    def read_errors(self, errors):
        with open(errors, errors="replace") as lines:
            self.last_errors.extend(lines)

    def end(self, status=0, limit=LIMIT):
        """Waits for the program's own end, without a sanitizer's report. Returns its output."""
        output, _ = self.process.communicate(timeout=limit)
        self.reader.join()
        errors = self.errors()
        require(self.process.returncode == status,
                f"{self.process.returncode}: {errors[-3000:]}{output[-500:]}")
        require(not re.search("Sanitizer|runtime error", errors), errors[-3000:])
        return output

    def play(self, *options, status=0, limit=LIMIT, **more):
        self.start(*options, **more)
        return self.end(status, limit)

    def until(self, condition, what):
        """Waits for something that the running program does."""
        end = time.monotonic() + LIMIT
        while not (result := condition()):
            require(self.process.poll() is None, f"ended before {what}: {self.errors()}")
            require(time.monotonic() < end, f"no {what}")
            time.sleep(0.02)
        return result

    def errors(self):
        return "".join(list(self.last_errors))

    def log(self):
        """The lines so far, without times of day, padding and addresses."""
        file = self.run_dir / "glidewing.log"
        text = file.read_text(errors="replace") if file.is_file() else ""
        return re.sub(r"(?m)^\[[\d:]+\] +|\((0x)?[0-9a-f]{8,}\)", "", text).splitlines()

    def die(self, digests, pause=0):
        """Has the demo die, some seconds after so many digests: every line of the steps
        before the last digest has to be in the log."""
        options = ["--headless", "--player", "greedy", "--seed", 4, "--digest", "--steps"]
        self.start(*options, 0)
        for _ in range(digests):
            steps = int(self.process.stdout.readline().split()[1])
        time.sleep(pause)
        self.process.send_signal(signal.SIGKILL)
        self.end(-signal.SIGKILL)
        survived = self.log()
        self.play(*options, steps)
        complete = self.log()
        complete = complete[:complete.index("INFO: GameManager is shutting down.")]
        require(len(complete) > 50, "hardly a line")
        require(survived[:len(complete)] == complete, f"a line before step {steps} was lost")

    @contextlib.contextmanager
    def damaged(self, resource, damage):
        """For the block, a resource is not what it was."""
        path = self.run_dir / resource
        content = path.read_bytes()
        path.unlink()
        DAMAGES[damage](path, content)
        try:
            yield
        finally:
            shutil.rmtree(path) if path.is_dir() else path.unlink(missing_ok=True)
            path.write_bytes(content)


DAMAGES = {
    "missing": lambda path, content: None,
    "empty": lambda path, content: path.touch(),
    "truncated": lambda path, content: path.write_bytes(content[:len(content) // 2]),
    "a directory": lambda path, content: path.mkdir(),
    "binary rubbish": lambda path, content: path.write_bytes(CHANCE.randbytes(4096)),
}


def reached(output, what):
    """A number of those that the demo prints at its end."""
    return int(re.search(rf"(?m)^{what} (\d+)$", output).group(1))
