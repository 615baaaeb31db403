"""Plays the real program: its window, keys and pointer on an X server, and its log.

Usage: program_test.py <tazlet> <staged run directory> <preload library> <close-window>
       [unittest's arguments]

No test depends on how fast a step is.
"""

import os
import pathlib
import re
import subprocess
import sys
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "support"))
from game_process import display
from game_window import STARTED, STEP, STOPPED, GameWindow, lit

TAZLET, STAGED, PRELOAD, CLOSE_WINDOW = (
    pathlib.Path(argument).resolve() for argument in sys.argv[1:5]
)

# The three insects of the first step of this game are a red glidewing, which is what
# the first row asks for, a bee and a cyan butterfly, all of them slow.
SEED = 3963
WANTED, BEE = 0, 1

RESOURCES = re.findall(r"(\w+) (\S+)", """NeutralCursor sprites/neutral_cursor.txt
    ClickedCursor sprites/clicked_cursor.txt  GameStart sprites/game_start.txt
    GameOver sprites/game_over.txt            PinBoard sprites/pin_board.txt
    Border sprites/border.txt                 Spawner sprites/spawner.txt
    Bee sprites/bee.txt                       Butterfly sprites/butterfly.txt
    Glidewing sprites/glidewing.txt           Sequence sprites/sequence.txt
    Score sprites/score.txt                   SoldTag sprites/sold_tag.txt
    GameStart sounds/game_start.wav           BugSpawn sounds/bug_spawn.wav
    ClickPin sounds/click_pin.wav             PinBug sounds/pin_bug.wav
    ClearSequence sounds/clear_sequence.wav   GameOver sounds/game_over.wav
    StartMusic musics/BlippyTrance.mp3""")  # labels and files
OVERFLOW = "DEBUG: PinBoard::eventHandler(): The Pin Board overflowed! Transitioning to Game Over."
SOLD = "DEBUG: Sequence::eventHandler(): Sequence cleared! Sending clear event."
SLOW = "DEBUG: Sent a SlowEvent"
NO_FONT = (
    "Glidewing: cannot load the font gw-font.ttf, so there is no text. Was the program started "
    "in the folder where it is?\n"
)
NO_WINDOW = "Glidewing: cannot open a window. Is there a display (DISPLAY) with OpenGL?\n"
UNLOGGED = (
    "The LogManager is not started but was requested to write a log. This message is written "
    'to stderr as writing to the log is not possible.\nThe message without arguments was "{}".\n'
)
NO_SOUND = (
    "WARNING: gw::requirePlaybackDevice() - No playback device can be opened. "
    "Going on without sound."
)


class Program(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        self.game = self.enterContext(GameWindow(TAZLET))
        self.run_dir, self.log, self.errors = self.game.run_dir, self.game.log, self.game.errors

    def start(self, *staged, **environment):
        """Starts the program with these files of the staged directory."""
        for name in staged:
            (self.run_dir / name).symlink_to(STAGED / name)
        usual = {"LD_PRELOAD": str(PRELOAD), "GLIDEWING_TEST_TIME": str(SEED),
                 "PULSE_SERVER": "unix:/nowhere", "ALSA_CONFIG_PATH": os.devnull}
        self.game.start(**{**usual, **environment})

    def open(self, *staged, **environment):
        self.start(*staged, **environment)
        self.game.find()

    def test_two_games_from_the_title_to_q(self):
        self.open("tazlet", "gw-font.ttf")
        self.game.until(lambda: lit(self.game.title()) > 10000, "title")
        title = self.game.title()
        self.game.act("key", "p")
        self.game.chase(WANTED, SOLD)
        self.game.chase(BEE, SLOW)
        while OVERFLOW not in self.log():
            self.game.press_at_spawners()
            self.assertLess(self.log().count(STEP), 3000, "steps without a full board")
        self.game.act("key", "p")  # does nothing while the game-over picture shows
        self.assertNotEqual(self.game.title(), title)
        self.game.until(lambda: self.game.title() == title, "title after the game")
        first_game = self.log()
        self.game.play_a_little()
        self.game.quit()

        log = [line for line in self.log() if line != NO_SOUND]
        self.assertEqual(log[: len(STARTED)], STARTED)
        loading = "\n".join(log[len(STARTED) : len(STARTED + RESOURCES)])
        loaded = re.findall(r" with label '(\w+)' from file 'tazlet/(\S+)'\.$", loading, re.M)
        self.assertEqual(loaded, RESOURCES)
        self.assertEqual([line for line in log if line.startswith(("ERROR", "CRITICAL"))], [])
        self.assertEqual(log[-len(STOPPED) :], STOPPED)

        # The wanted glidewing was sold, so more than eight insects were on the board; the
        # bee slowed the game down for 34 steps; the game-over picture ran once.
        slots = [line for line in first_game if " was pinned. Placing it at Pin Board slot" in line]
        self.assertGreater(len(slots), 8)
        unslow = log.index("DEBUG: Sent an Unslow event")
        slow = max(i for i in range(unslow) if log[i] == SLOW)
        self.assertEqual(log[slow:unslow].count(STEP), 34)
        picture = (STAGED / "tazlet/sprites/game_over.txt").read_text().split("\n")
        frames, slowdown = int(picture[0]), int(picture[3])
        self.assertEqual(first_game[first_game.index(OVERFLOW) :].count(STEP), frames * slowdown)

    def test_closing_the_window_ends_the_program(self):
        for steps in [None, 0, 1, 9, 40]:  # of a game
            with self.subTest(steps=steps):
                self.setUp()
                self.open("tazlet", "gw-font.ttf")
                if steps is not None:
                    self.game.act("key", "p")
                    self.game.until(lambda: self.log().count(STEP) >= steps, "steps")
                subprocess.run([CLOSE_WINDOW, self.game.window], check=True)
                self.game.end()
                self.assertEqual(self.log()[-len(STOPPED) :], STOPPED)

    def test_without_a_display_it_says_so_in_one_line(self):
        for name in [None, ":987"]:
            with self.subTest(name):
                self.start(DISPLAY=name)
                self.game.end(status=1)
                self.assertEqual(self.errors(), NO_WINDOW)
                self.assertIn("ALL: Error starting GameManager!", self.log())

    def test_without_opengl_it_says_so_in_one_line(self):
        _, name = self.enterContext(display("-extension", "GLX"))
        self.start(DISPLAY=name)
        self.game.end(status=1)
        self.assertEqual(self.errors(), NO_WINDOW)

    def test_losing_the_display_ends_the_program_with_a_line(self):
        server, name = self.enterContext(display())
        self.start("tazlet", "gw-font.ttf", DISPLAY=name)
        self.game.until(lambda: any("'StartMusic'" in line for line in self.log()), "menu")
        server.terminate()
        self.expect_lost_display()

    def expect_lost_display(self):
        self.game.end(status=1)
        self.assertEqual(self.log()[-1], "ERROR: The connection to the display was lost.")
        self.assertEqual(self.errors().splitlines()[-1], "The connection to the display was lost.")

    def test_losing_the_window_ends_the_program_with_a_line(self):
        self.open("tazlet", "gw-font.ttf")
        subprocess.run([CLOSE_WINDOW, self.game.window, "destroy"], check=True)
        self.expect_lost_display()

    def test_a_screen_of_too_few_colours_ends_the_program_with_a_line(self):
        _, name = self.enterContext(display("-screen", "0", "1280x1024x16"))
        self.start("tazlet", "gw-font.ttf", DISPLAY=name)
        self.expect_lost_display()

    def test_without_a_log_file_it_plays_and_explains(self):
        (self.run_dir / "glidewing.log").mkdir()
        self.open("tazlet", "gw-font.ttf")
        self.game.act("key", "p")
        step = UNLOGGED.format(STEP.partition(": ")[2])
        self.game.until(lambda: self.errors().count(step) > 3, "game")
        self.game.quit()
        self.assertIn(UNLOGGED.format("DisplayManager is started up."), self.errors())

    def check_silence(self, sound_cards):
        """Plays with this configuration of the system's sound cards, none of which works."""
        file = self.run_dir / "asound.conf"
        file.write_text(sound_cards)
        self.open("tazlet", "gw-font.ttf", ALSA_CONFIG_PATH=str(file))
        self.game.until(lambda: lit(self.game.title()), "title")
        errors = self.errors()
        self.game.play_a_little()
        self.game.quit()
        self.assertEqual(self.errors(), errors, "sounds complain")
        self.assertEqual([line for line in self.log() if "layback" in line], [NO_SOUND])

    def test_without_a_sound_card_it_plays_in_silence(self):
        self.check_silence("")

    def test_with_a_sound_card_that_cannot_be_opened_it_plays_in_silence(self):
        self.check_silence("pcm.!default { type hw card 99 hint { show on description gone } }\n")

    def test_without_resources_it_plays_unseen_and_unheard(self):
        self.open("gw-font.ttf")
        self.game.play_a_little()
        self.assertEqual(lit(self.game.title()), 0)
        self.game.quit()
        errors = [line for line in self.log() if line.startswith("ERROR")]
        self.assertGreaterEqual(len(errors), len(RESOURCES))

    def test_without_a_font_it_plays_without_letters(self):
        self.open("tazlet")
        self.game.play_a_little()
        self.assertEqual(lit(self.game.title()), 0)
        self.game.quit()
        self.assertEqual(self.log()[1], "ERROR: Unable to load font file 'gw-font.ttf'.")
        self.assertIn(NO_FONT, self.errors())


if __name__ == "__main__":
    unittest.main(argv=sys.argv[4:])
