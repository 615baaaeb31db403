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
from game_process import Game, display

TAZLET, STAGED, PRELOAD, CLOSE_WINDOW = (
    pathlib.Path(argument).resolve() for argument in sys.argv[1:5]
)

# The three insects of the first step of this game are a red glidewing, which is what
# the first row asks for, a bee and a cyan butterfly, all of them slow.
SEED = 3963
SPAWNERS = [(400, 320), (240, 512), (560, 512)]  # pixels
WANTED, BEE = 0, 1

MANAGERS = ["LogManager", "DisplayManager", "InputManager", "ResourceManager", "WorldManager"]
STARTED = [f"INFO: {name} is started up." for name in MANAGERS + ["GameManager"]]
STOPPED = [f"INFO: {name} is shutting down." for name in ["GameManager"] + MANAGERS[::-1]]
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
# The slow-down timer has no picture, and there is one in every game: one such line
# for each step of a game.
STEP = "WARNING: gw::Animation::draw() - Animation has no sprite. Cannot draw."
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


def lit(picture):
    """How many bytes of a picture are not black."""
    return len(picture) - picture.count(0)


class Program(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        self.game = self.enterContext(Game(TAZLET))
        self.run_dir, self.log, self.errors = self.game.run_dir, self.game.log, self.game.errors

    def start(self, *staged, **environment):
        """Starts the program with these files of the staged directory."""
        for name in staged:
            (self.run_dir / name).symlink_to(STAGED / name)
        usual = {"LD_PRELOAD": str(PRELOAD), "GLIDEWING_TEST_TIME": str(SEED),
                 "PULSE_SERVER": "unix:/nowhere", "ALSA_CONFIG_PATH": os.devnull}
        self.game.start(**{**usual, **environment})

    def open(self, *staged, **environment):
        """Starts the program and puts the pointer into its window."""
        self.start(*staged, **environment)
        command = ["xdotool", "search", "--onlyvisible", "--name", "^Glidewing$"]
        find = lambda: subprocess.run(command, capture_output=True, text=True).stdout.split()
        (self.window,) = self.game.until(find, "window")
        self.act("mousemove", "--window", self.window, "512", "700")

    def act(self, *arguments):
        subprocess.run(["xdotool", *arguments], check=True)

    def press_at_spawners(self):
        for x, y in SPAWNERS:
            self.act("mousemove", "--window", self.window, str(x), str(y), "click", "1")

    def chase(self, number, result):
        """Presses on an insect of the game's first step, where it must be by now, until the
        log tells what came of it."""
        x, y = SPAWNERS[number]
        while result not in (log := self.log()):
            made = [i for i, line in enumerate(log) if "Spawner made an insect" in line]
            if len(made) > number:
                steps = log[made[number] :].count(STEP) + 1
                self.assertLess(steps, 90, f"steps without {result}")
                speed = re.search(r"\((\S+), (\S+)\)", log[made[number]]).groups()
                place = x + 8 * steps * float(speed[0]), y + 16 * steps * float(speed[1])
                pixel = [str(round(coordinate)) for coordinate in place]
                self.act("mousemove", "--window", self.window, *pixel, "click", "1")

    def play(self):
        """Starts a game and plays a few steps of it."""
        before = self.log().count(STEP)
        self.act("key", "p")
        self.game.until(lambda: self.log().count(STEP) > before + 3, "game")
        self.press_at_spawners()

    def quit(self):
        self.act("key", "q")
        self.game.end()

    def title(self):
        """What the window shows where the title stands, free of border and sale tags."""
        area = ["-crop", "640x512+192+128", "-depth", "8", "rgb:-"]
        command = ["import", "-silent", "-window", self.window, *area]
        return subprocess.run(command, check=True, capture_output=True).stdout

    def test_two_games_from_the_title_to_q(self):
        self.open("tazlet", "gw-font.ttf")
        self.game.until(lambda: lit(self.title()) > 10000, "title")
        title = self.title()
        self.act("key", "p")
        self.chase(WANTED, SOLD)
        self.chase(BEE, SLOW)
        while OVERFLOW not in self.log():
            self.press_at_spawners()
            self.assertLess(self.log().count(STEP), 3000, "steps without a full board")
        self.act("key", "p")  # does nothing while the game-over picture shows
        self.assertNotEqual(self.title(), title)
        self.game.until(lambda: self.title() == title, "title after the game")
        first_game = self.log()
        self.play()
        self.quit()

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
                    self.act("key", "p")
                    self.game.until(lambda: self.log().count(STEP) >= steps, "steps")
                subprocess.run([CLOSE_WINDOW, self.window], check=True)
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
        subprocess.run([CLOSE_WINDOW, self.window, "destroy"], check=True)
        self.expect_lost_display()

    def test_a_screen_of_too_few_colours_ends_the_program_with_a_line(self):
        _, name = self.enterContext(display("-screen", "0", "1280x1024x16"))
        self.start("tazlet", "gw-font.ttf", DISPLAY=name)
        self.expect_lost_display()

    def test_without_a_log_file_it_plays_and_explains(self):
        (self.run_dir / "glidewing.log").mkdir()
        self.open("tazlet", "gw-font.ttf")
        self.act("key", "p")
        step = UNLOGGED.format(STEP.partition(": ")[2])
        self.game.until(lambda: self.errors().count(step) > 3, "game")
        self.quit()
        self.assertIn(UNLOGGED.format("DisplayManager is started up."), self.errors())

    def check_silence(self, sound_cards):
        """Plays with this configuration of the system's sound cards, none of which works."""
        file = self.run_dir / "asound.conf"
        file.write_text(sound_cards)
        self.open("tazlet", "gw-font.ttf", ALSA_CONFIG_PATH=str(file))
        self.game.until(lambda: lit(self.title()), "title")
        errors = self.errors()
        self.play()
        self.quit()
        self.assertEqual(self.errors(), errors, "sounds complain")
        self.assertEqual([line for line in self.log() if "layback" in line], [NO_SOUND])

    def test_without_a_sound_card_it_plays_in_silence(self):
        self.check_silence("")

    def test_with_a_sound_card_that_cannot_be_opened_it_plays_in_silence(self):
        self.check_silence("pcm.!default { type hw card 99 hint { show on description gone } }\n")

    def test_without_resources_it_plays_unseen_and_unheard(self):
        self.open("gw-font.ttf")
        self.play()
        self.assertEqual(lit(self.title()), 0)
        self.quit()
        errors = [line for line in self.log() if line.startswith("ERROR")]
        self.assertGreaterEqual(len(errors), len(RESOURCES))

    def test_without_a_font_it_plays_without_letters(self):
        self.open("tazlet")
        self.play()
        self.assertEqual(lit(self.title()), 0)
        self.quit()
        self.assertEqual(self.log()[1], "ERROR: Unable to load font file 'gw-font.ttf'.")
        self.assertIn(NO_FONT, self.errors())


if __name__ == "__main__":
    unittest.main(argv=sys.argv[4:])
