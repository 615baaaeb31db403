"""Plays the real program: its window, keys and pointer on an X server, and its log.

Usage: program_test.py <tazlet> <staged run directory> <preload library> <close-window>
       [unittest's arguments]

No test depends on how fast a step is; LIMIT only ends those that hang.
"""

import os
import pathlib
import re
import subprocess
import sys
import tempfile
import time
import unittest

TAZLET, STAGED, PRELOAD, CLOSE_WINDOW = (pathlib.Path(argument) for argument in sys.argv[1:5])
LIMIT = 45  # seconds

SEED = 3963  # of a game in which insects come near to all spawners
SPAWNERS = [(400, 320), (240, 512), (560, 512)]  # pixels

MANAGERS = ["LogManager", "DisplayManager", "InputManager", "ResourceManager", "WorldManager"]
STARTED = [f"INFO: {name} is started up." for name in MANAGERS + ["GameManager"]]
STOPPED = [f"INFO: {name} is shutting down." for name in ["GameManager"] + MANAGERS[::-1]]
RESOURCES = 20  # pictures, sounds and the music
# The slow-down timer has no picture, and there is one in every game: one such line
# for each step of a game.
STEP = "WARNING: gw::Animation::draw() - Animation has no sprite. Cannot draw."
OVERFLOW = "DEBUG: PinBoard::eventHandler(): The Pin Board overflowed! Transitioning to Game Over."
NO_WINDOW = "Glidewing: cannot open a window. Is there a display (DISPLAY) with OpenGL?\n"
NO_SOUND = "WARNING: gw::requirePlaybackDevice() - No playback device can be opened. " \
    "Going on without sound."
LOST = "The connection to the display was lost."


def lit(picture):
    """How many bytes of a picture are not black."""
    return len(picture) - picture.count(0)


class Program(unittest.TestCase):
    def setUp(self):
        directory = tempfile.TemporaryDirectory(prefix="glidewing-test-")
        self.addCleanup(directory.cleanup)
        self.run_dir = pathlib.Path(directory.name)

    def start(self, *staged, **environment):
        """Starts the program with these files of the staged directory, or all."""
        for name in staged or ["tazlet", "gw-font.ttf"]:
            (self.run_dir / name).symlink_to(STAGED / name)
        environment = {**os.environ, "LD_PRELOAD": str(PRELOAD), "GLIDEWING_TEST_TIME": str(SEED),
                       "PULSE_SERVER": "unix:/nowhere", "ALSA_CONFIG_PATH": os.devnull,
                       **environment}
        with open(self.run_dir / "stderr", "wb") as stderr:
            self.process = subprocess.Popen(TAZLET, cwd=self.run_dir, env=environment,
                                            stdin=subprocess.DEVNULL, stderr=stderr)
        self.addCleanup(self.process.wait)
        self.addCleanup(self.process.kill)

    def open(self, *staged, **environment):
        """Starts the program and puts the pointer into its window."""
        self.start(*staged, **environment)
        command = ["xdotool", "search", "--onlyvisible", "--name", "^Glidewing$"]
        find = lambda: subprocess.run(command, capture_output=True, text=True).stdout.split()
        [self.window] = self.until(find, "window")
        self.move(512, 700)

    def until(self, condition, what):
        """Waits for something that the running program does."""
        end = time.monotonic() + LIMIT
        while not (result := condition()):
            self.assertIsNone(self.process.poll(), f"ended before {what}: {self.errors()}")
            self.assertLess(time.monotonic(), end, f"no {what}")
            time.sleep(0.02)
        return result

    def act(self, *arguments):
        subprocess.run(["xdotool", *arguments], check=True)

    def move(self, x, y, *then):
        self.act("mousemove", "--window", self.window, str(round(x)), str(round(y)), *then)

    def press_at_spawners(self):
        for x, y in SPAWNERS:
            self.move(x, y, "click", "1")

    def play(self):
        """Starts a game and plays a few steps of it."""
        before = self.log().count(STEP)
        self.act("key", "p")
        self.until(lambda: self.log().count(STEP) > before + 3, "game")
        self.press_at_spawners()

    def quit(self):
        self.act("key", "q")
        self.end()

    def end(self, status=0):
        """Waits for the program's own end."""
        self.assertEqual(self.process.wait(LIMIT), status, self.errors())
        self.assertNotRegex(self.errors(), "Sanitizer|runtime error:")

    def log(self):
        """The lines so far, without time of day and padding."""
        file = self.run_dir / "glidewing.log"
        text = file.read_text() if file.exists() else ""
        return re.sub(r"^\[..:..:..\] +", "", text, flags=re.M).splitlines()

    def errors(self):
        return (self.run_dir / "stderr").read_text()

    def title(self):
        """What the window shows where the title stands, free of border and sale tags."""
        area = ["-crop", "640x512+192+128", "-depth", "8", "rgb:-"]
        command = ["import", "-silent", "-window", self.window, *area]
        return subprocess.run(command, check=True, capture_output=True).stdout

    def test_two_games_from_the_title_to_q(self):
        self.open()
        self.until(lambda: lit(self.title()) > 10000, "title")
        title = self.title()
        self.act("key", "p")
        while OVERFLOW not in self.log():
            self.press_at_spawners()
            self.assertLess(self.log().count(STEP), 3000, "steps without a full board")
        self.act("key", "p")  # does nothing while the game-over picture shows
        self.assertNotEqual(self.title(), title)
        self.until(lambda: self.title() == title, "title after the game")
        self.play()
        self.quit()
        log = [line for line in self.log() if line != NO_SOUND]
        self.assertEqual(log[: len(STARTED)], STARTED)
        self.assertEqual(log[-len(STOPPED) :], STOPPED)
        loading = [" - Loading " in line for line in log[len(STARTED) :]]
        self.assertEqual(loading.index(False), RESOURCES)
        self.assertEqual([line for line in log if line.startswith(("ERROR", "CRITICAL"))], [])
        self.assertEqual(log.count(OVERFLOW), 1)

    def test_closing_the_window_ends_the_program(self):
        for key, steps in [("x", 0), ("p", 0), ("p", 1), ("p", 9), ("p", 40)]:  # of a game
            with self.subTest(key=key, steps=steps):
                self.setUp()
                self.open()
                self.act("key", key)
                self.until(lambda: self.log().count(STEP) >= steps, "steps")
                subprocess.run([CLOSE_WINDOW, self.window], check=True)
                self.end()
                self.assertEqual(self.log()[-len(STOPPED) :], STOPPED)

    def start_server(self, *options):
        """Starts an X server for this test alone; returns it and its display."""
        server = subprocess.Popen(["Xvfb", "-displayfd", "1", "-nolisten", "tcp", *options],
                                  stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        for clean_up in [server.wait, server.terminate, server.stdout.close]:
            self.addCleanup(clean_up)
        return server, ":" + server.stdout.readline().strip()

    def test_without_a_display_or_opengl_it_says_so_in_one_line(self):
        _, without_opengl = self.start_server("-extension", "GLX")
        for display in ["", ":987", without_opengl]:
            with self.subTest(display):
                self.setUp()
                self.start(DISPLAY=display)
                self.end(status=1)
                self.assertEqual(self.errors(), NO_WINDOW)

    def test_losing_the_display_ends_the_program_with_a_line(self):
        server, display = self.start_server("+extension", "GLX", "-screen", "0", "1280x1024x24")
        self.start(DISPLAY=display)
        self.until(lambda: any("'StartMusic'" in line for line in self.log()), "menu")
        server.terminate()
        self.end(status=1)
        self.assertEqual(self.log()[-1], f"ERROR: {LOST}")
        self.assertEqual(self.errors().splitlines()[-1], LOST)

    def test_without_a_log_file_it_plays_and_explains(self):
        (self.run_dir / "glidewing.log").mkdir()
        self.open()
        self.act("key", "p")
        self.until(lambda: self.errors().count(STEP.partition(": ")[2]) > 3, "game")
        self.act("key", "q")
        self.end()
        self.assertIn('was "DisplayManager is started up."', self.errors())

    def test_without_a_sound_card_that_works_it_plays_in_silence(self):
        broken = "pcm.!default { type hw card 99 hint { show on description gone } }\n"
        for sound_cards in ["", broken]:
            with self.subTest(sound_cards):
                self.setUp()
                file = self.run_dir / "asound.conf"
                file.write_text(sound_cards)
                self.open(ALSA_CONFIG_PATH=str(file))
                self.until(lambda: lit(self.title()), "title")
                errors = self.errors()
                self.play()
                self.quit()
                self.assertEqual(self.errors(), errors, "sounds complain")
                self.assertEqual([line for line in self.log() if "layback" in line], [NO_SOUND])

    def test_without_resources_or_without_a_font_it_plays_unseen(self):
        for staged, least_errors in [("gw-font.ttf", RESOURCES), ("tazlet", 1)]:
            with self.subTest(staged):
                self.setUp()
                self.open(staged)
                self.play()
                self.assertEqual(lit(self.title()), 0)
                self.quit()
                errors = [line for line in self.log() if line.startswith("ERROR")]
                self.assertGreaterEqual(len(errors), least_errors)
        self.assertEqual(self.log()[1], "ERROR: Unable to load font file 'gw-font.ttf'.")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[4:])
