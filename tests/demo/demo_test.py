"""The game as a whole, played by the demo without a window.

Usage: demo_test.py <tazlet-demo> <its staged run directory> [unittest's arguments]
       demo_test.py <tazlet-demo> <its staged run directory> --update

The second writes golden_digests.txt anew, from the games of this build.
"""

import itertools
import pathlib
import re
import sys
import textwrap
import unittest

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent / "support"))
from game_process import Game, reached

DEMO, STAGED = sys.argv[1:3]
GOLDEN = HERE / "golden_digests.txt"
GOLDEN_GAMES = {"skilled": 1, "greedy": 2, "hostile": 3, "random": 4}  # their seeds


def play_golden(game, profile):
    """Plays and records one of these games. Returns what the demo printed."""
    return game.play("--profile", profile, "--seed", GOLDEN_GAMES[profile], "--steps", 5000,
                     "--digest", "--record", "game.txt")


def shorten(output):
    """What the golden file has of a game: the first digits of each digest."""
    return re.findall(r"^step \d+ digest (\w{4})\w{12}$", output, re.MULTILINE)


def update():
    with Game(DEMO, STAGED) as game:
        GOLDEN.write_text("\n".join(
            f"{profile}, seed {seed}:\n"
            + textwrap.fill(" ".join(shorten(play_golden(game, profile))), 99) + "\n"
            for profile, seed in GOLDEN_GAMES.items()))


class DemoTest(unittest.TestCase):
    def setUp(self):
        self.game = self.enterContext(Game(DEMO, STAGED))
        self.run_dir = self.game.run_dir


class Soak(DemoTest):
    def check(self, profile):
        output = self.game.play("--profile", profile, "--seed", 11, "--steps", 10000)
        self.assertEqual(reached(output, "steps"), 10000)
        self.assertGreater(reached(output, "games"), 1)
        self.assertGreater(reached(output, "rows sold"), 0)

    def test_skilled(self):
        self.check("skilled")

    def test_random(self):
        self.check("random")

    def test_greedy(self):
        self.check("greedy")

    def test_hostile(self):
        self.check("hostile")


class Replay(DemoTest):
    """One seed and the same input: the same game, on every machine and with every
    compiler. The golden digests change with the rules, with the sizes of sprites, and
    with the demo's way to play."""

    def check(self, profile):
        played = play_golden(self.game, profile)
        log = self.game.log()
        title = f"{profile}, seed {GOLDEN_GAMES[profile]}:"
        golden = GOLDEN.read_text().partition(title)[2].partition("\n\n")[0].split()
        pairs = itertools.zip_longest(shorten(played), golden)
        differing = [100 * i for i, (digest, wanted) in enumerate(pairs, 1) if digest != wanted]
        self.assertEqual(differing[:1], [], f"the first step that is not as in {GOLDEN}")
        self.assertEqual(self.game.play("--replay", "game.txt", "--digest"), played)
        self.assertEqual(self.game.log(), log)
        self.assertGreater(len(log), 5000)
        colours = set(re.findall(r"color (?!of )(\w+)", "\n".join(log)))
        self.assertEqual(colours, {"red", "green", "blue", "magenta", "cyan"})

    def test_skilled(self):
        self.check("skilled")

    def test_greedy(self):
        self.check("greedy")

    def test_hostile(self):
        self.check("hostile")

    def test_random(self):
        self.check("random")

    def test_a_recording_that_was_cut_off_is_played_to_its_last_whole_event(self):
        for events, steps, games in [
                ("", 0, 0), ("9 key-press 15\n12 mouse-press 0 512 384\n77 mouse-pr", 13, 1)]:
            (self.run_dir / "game.txt").write_text("tazlet-recording 1\nseed 5\n" + events)
            output = self.game.play("--replay", "game.txt")
            self.assertEqual((reached(output, "steps"), reached(output, "games")), (steps, games))

    def test_what_cannot_be_written_is_said(self):
        game = self.run_dir / "game.txt"
        game.write_text("tazlet-recording 1\nseed 5\n")
        options = ["--profile", "hostile", "--digest", "--record", "game.txt"]
        for shell, reason, recorded in [
                ('unset DISPLAY; exec "$0" "$@" --window', "cannot open a window", r"seed 5\n\Z"),
                ('trap "" 25; ulimit -f 1; exec "$0" "$@"', "game.txt: cannot be", r"[^\n]\Z"),
                ('exec "$0" "$@" >&-', "output cannot be written", r"\nend 100\n\Z"),
                ('exec "$0" "$@" >/dev/full', "output cannot be written", r"\nend 100\n\Z")]:
            with self.subTest(shell):
                self.game.play(*options, status=1, shell=shell)
                self.assertIn(reason, self.game.errors())
                self.assertRegex(game.read_text(), recorded)
                self.game.play("--replay", "game.txt")

    def test_malformed_recordings_are_refused_with_file_and_line(self):
        head = "tazlet-recording 1\nseed 5\n"
        for content, reason in [
                ("", "game.txt:1: the recording is cut short"),
                ("tazlet-recording 2\n", 'game.txt:1: expected "tazlet-recording 1"'),
                ("tazlet-recording 1\nseed -1\n", "game.txt:2: expected \"seed\""),
                (head + "5 key-press\n", "game.txt:3: expected one key code"),
                (head + "5 key-press 101\n", "game.txt:3: expected one key code"),
                (head + "5 mouse-move 1 2 3\n", "game.txt:3: expected x and y"),
                (head + "5 mouse-press 9 1 2\n", "game.txt:3: expected a button, 0 to 4"),
                (head + "5 mouse-move 1 x\n", 'game.txt:3: "x" is not a number'),
                (head + "5 mouse-move 1 99999999999999999999\n", "game.txt:3: "),
                (head + "5 \x1b\x9bé 1\n", r'game.txt:3: unknown event "\x1b\xc2\x9bé"'),
                (head + "5 key-press 1\n4 key-press 1\n", "game.txt:4: expected a step"),
                (head + "5 key-press 1\nend 5\n", 'game.txt:4: expected "end"'),
                (head + "end 5\n5 key-press 1\n", "game.txt:4: nothing may follow"),
                (head + "\n", "game.txt:3: expected a step"),
        ]:
            with self.subTest(content):
                (self.run_dir / "game.txt").write_text(content)
                self.game.play("--replay", "game.txt", status=1)
                self.assertIn(reason, self.game.errors())


class DamagedResources(DemoTest):
    """Each of the resources in turn: the log names it, and the game plays on."""

    def check(self, damage, is_refused=lambda path: True):
        self.assertEqual(len(self.game.resources), 20)
        for resource in self.game.resources:
            with self.subTest(str(resource)), self.game.damaged(resource, damage):
                output = self.game.play("--profile", "greedy", "--steps", 70)
                self.assertEqual(reached(output, "games"), 1)
                lines = self.game.log()
                named = [i for i, line in enumerate(lines) if f"'{resource}'" in line]
                self.assertTrue(named, "the log names the file")
                if is_refused(resource):
                    # What is wrong with it follows where it is loaded.
                    self.assertRegex("\n".join(lines[named[0] + 1:named[0] + 3]),
                                     "(ERROR|WARNING): ")

    def test_missing(self):
        self.check("missing")

    def test_empty(self):
        self.check("empty")

    def test_truncated(self):
        # Half a sound is a shorter sound.
        self.check("truncated", lambda path: path.suffix == ".txt")

    def test_a_directory(self):
        self.check("a directory")

    def test_binary_rubbish(self):
        self.check("binary rubbish")


class Log(DemoTest):
    def test_on_a_full_disk_the_game_plays_on(self):
        output = self.game.play("--steps", 300, shell='trap "" 25; ulimit -f 1; exec "$0" "$@"')
        self.assertEqual(reached(output, "games"), 1)
        self.assertIn("The log cannot be written: File too large.\n", self.game.errors())

    def test_every_line_of_a_completed_step_survives_a_sudden_death(self):
        for digests in range(1, 6):
            self.game.die(digests)


if __name__ == "__main__":
    if sys.argv[3:] == ["--update"]:
        update()
    else:
        unittest.main(argv=sys.argv[:1] + sys.argv[3:])
