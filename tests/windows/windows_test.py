"""Plays the game for Windows under wine, as players get it, beside the one for Linux.

Usage: windows_test.py <unpacked archive> <build directory of the game for Linux>
       [unittest's arguments]
       windows_test.py <unpacked archive> <build directory of the game for Linux> --pace

Needs a display with a window manager. No test depends on how fast a step is; the second
measures that.
"""

import itertools
import os
import pathlib
import subprocess
import sys
import time
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "support"))
from game_process import Game
from game_window import STARTED, STEP, STOPPED, GameWindow, lit

UNPACKED, LINUX = (pathlib.Path(argument).resolve() for argument in sys.argv[1:3])
TAZLET, DEMO = UNPACKED / "tazlet.exe", UNPACKED / "tazlet-demo.exe"
LINUX_TAZLET, LINUX_DEMO, LINUX_RUN = LINUX / "tazlet", LINUX / "tazlet-demo", LINUX / "run"

# What a game in a window writes, and one without does not.
OF_A_WINDOW = ("DisplayManager is", "InputManager is", "No playback device")
SEED, WANTED = 3963, 0  # its first insect is what the first row asks for
SOLD = "DEBUG: Sequence::eventHandler(): Sequence cleared! Sending clear event."


class WineWindow(GameWindow):
    """A game for either system on the desktop, with wine's slow ways to get a key."""

    def find(self):
        super().find()
        self.until(lambda: self.active_window() == self.window, "focus")
        time.sleep(1)  # keys that come sooner are lost at times

    def active_window(self):
        return subprocess.run(["xdotool", "getactivewindow"], capture_output=True,
                              text=True).stdout.strip()


class Windows(unittest.TestCase):
    def prepare(self, program=TAZLET, staged=UNPACKED):
        """A game in a folder of its own, not yet started."""
        return self.enterContext(WineWindow(program, staged))

    def open(self, game, *options, **environment):
        game.start(*options, **environment)
        game.find()
        return game

    def open_without(self, name):
        """A game that lacks one of its files."""
        game = self.prepare()
        (game.run_dir / name).rename(game.run_dir / "elsewhere")
        return self.open(game)

    def titles(self, *program):
        """Pictures of the title, which moves, as red, green and blue bytes."""
        game = self.open(self.prepare(*program))
        game.until(lambda: lit(game.title()) > 10000, "title")
        pictures = {game.title() for _ in range(10)}
        game.quit()
        return pictures

    def test_the_title_is_that_of_linux(self):
        ours, linux = self.titles(), self.titles(LINUX_TAZLET, LINUX_RUN)
        differing = 0 if ours & linux else min(
            sum(a != b for a, b in zip(*pair, strict=True))
            for pair in itertools.product(ours, linux))
        size = len(next(iter(ours)))
        print(f"the title: {differing} of {size} bytes differ from Linux's")
        self.assertEqual(differing, 0)

    def test_a_pin_in_the_window(self):
        game = self.open(self.prepare())
        game.play_a_little()
        while not any(" was pinned. Placing it" in line for line in game.log()):
            game.press_at_spawners()
            self.assertLess(game.log().count(STEP), 900, "steps without a pin")
        game.quit()
        log = game.log()
        self.assertEqual(log[:len(STARTED)], STARTED)
        self.assertEqual(log[-len(STOPPED):], STOPPED)
        self.assertEqual([line for line in log if line.startswith(("ERROR", "CRITICAL"))], [])

    def test_what_was_played_in_the_window_is_the_same_on_linux(self):
        game = self.open(self.prepare(DEMO), "--window", "--player", "human", "--seed", SEED,
                         "--record", "Käfer.txt")
        game.act("key", "p")
        game.chase(WANTED, SOLD)
        game.quit()
        linux = self.enterContext(Game(LINUX_DEMO, LINUX_RUN))
        linux.play("--headless", "--replay", game.run_dir / "Käfer.txt")
        logs = [[line for line in played.log() if not any(word in line for word in OF_A_WINDOW)]
                for played in (game, linux)]
        self.assertIn(SOLD, logs[0])
        self.assertEqual(*logs)

    def test_recordings_are_the_same_bytes_and_replayed_on_both_sides(self):
        games = [self.enterContext(Game(*program))
                 for program in [(DEMO, UNPACKED), (LINUX_DEMO, LINUX_RUN)]]
        recordings = []
        for game in games:
            game.play("--headless", "--player", "hostile", "--seed", 3, "--record", "game.txt")
            recordings.append((game.run_dir / "game.txt").read_bytes())
        self.assertEqual(*recordings)
        for game in games:
            (game.run_dir / "game.txt").write_bytes(recordings[0].replace(b"\n", b"\r\n"))
            game.play("--headless", "--replay", "game.txt")

    def test_closing_the_window_ends_the_program(self):
        for is_playing in [False, True]:
            with self.subTest(is_playing):
                game = self.open(self.prepare())
                if is_playing:
                    game.play_a_little()
                game.act("key", "alt+F4")
                game.end()
                self.assertEqual(game.log()[-len(STOPPED):], STOPPED)

    def test_without_resources_it_plays_unseen_and_unheard(self):
        game = self.open_without("tazlet")
        game.play_a_little()
        self.assertEqual(lit(game.title()), 0)
        game.quit()
        errors = [line for line in game.log() if line.startswith("ERROR")]
        self.assertGreaterEqual(len(errors), 20)

    def test_without_a_font_it_plays_without_letters(self):
        game = self.open_without("gw-font.ttf")
        game.play_a_little()
        self.assertEqual(lit(game.title()), 0)
        game.quit()
        self.assertEqual(game.log()[1], "ERROR: Unable to load font file 'gw-font.ttf'.")
        self.assertIn("Glidewing: cannot load the font gw-font.ttf, ", game.errors())

    def test_started_by_a_double_click_it_says_in_a_box_that_it_lacks_the_font(self):
        game = self.prepare()
        (game.run_dir / "gw-font.ttf").unlink()
        game.program = game.run_dir / "tazlet.exe"
        game.command = ["wine", "start", "/wait", "/unix"]
        game.start()
        game.until(lambda: len(game.windows()) == 2, "box")
        time.sleep(1)
        game.act("key", "Return")
        game.until(lambda: len(game.windows()) == 1, "end of the box")
        game.find()
        game.quit()
        self.assertEqual(game.log()[-1], STOPPED[-1])

    def test_where_no_log_can_be_written_it_plays(self):
        game = self.prepare()
        (game.run_dir / "glidewing.log").mkdir()
        self.open(game)
        game.act("key", "p")
        game.until(lambda: game.errors().count("Spawner made an insect") > 3, "game")
        game.quit()

    def test_without_a_sound_device_it_plays_in_silence(self):
        game = self.open(self.prepare(), PULSE_SERVER="unix:/nowhere", ALSA_CONFIG_PATH=os.devnull)
        game.play_a_little()
        game.quit()
        self.assertEqual(sum("Going on without sound." in line for line in game.log()), 1)


def pace(program, staged):
    """Steps a second, of a game in a window."""
    with Game(program, staged) as game:
        game.start("--window", "--player", "skilled", "--steps", 400, "--digest")
        times = [time.monotonic() for line in game.process.stdout if line.startswith("step ")]
        game.end()
    return 300 / (times[3] - times[0])


if __name__ == "__main__":
    if sys.argv[3:] == ["--pace"]:
        print(f"Steps a second: {pace(DEMO, UNPACKED):.2f} for Windows, "
              f"{pace(LINUX_DEMO, LINUX_RUN):.2f} for Linux; 30.30 are meant")
    else:
        unittest.main(argv=sys.argv[:1] + sys.argv[3:])
