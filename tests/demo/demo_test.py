"""The game as a whole, played by players of its own without a window.

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


def play(game, *options, **more):
    return game.play("--headless", *options, **more)


def play_golden(game, player):
    """Plays and records one of these games. Returns what the demo printed."""
    return play(game, "--player", player, "--seed", GOLDEN_GAMES[player], "--steps", 5000,
                "--digest", "--record", "game.txt")


def shorten(output):
    """What the golden file has of a game: the first digits of each digest."""
    return re.findall(r"^step \d+ digest (\w{4})\w{12}$", output, re.MULTILINE)


def update():
    with Game(DEMO, STAGED) as game:
        GOLDEN.write_text("\n".join(
            f"{player}, seed {seed}:\n"
            + textwrap.fill(" ".join(shorten(play_golden(game, player))), 99) + "\n"
            for player, seed in GOLDEN_GAMES.items()))


class DemoTest(unittest.TestCase):
    def setUp(self):
        self.game = self.enterContext(Game(DEMO, STAGED))
        self.run_dir = self.game.run_dir


class Soak(DemoTest):
    def check(self, player):
        output = play(self.game, "--player", player, "--seed", 11, "--steps", 10000)
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
    compiler. The golden digests change with the rules, with the sprites, and with the
    players' way to play."""

    def check(self, player):
        played = play_golden(self.game, player)
        log = self.game.log()
        title = f"{player}, seed {GOLDEN_GAMES[player]}:"
        golden = GOLDEN.read_text().partition(title)[2].partition("\n\n")[0].split()
        pairs = itertools.zip_longest(shorten(played), golden)
        differing = [100 * i for i, (digest, wanted) in enumerate(pairs, 1) if digest != wanted]
        self.assertEqual(differing[:1], [], f"the first step that is not as in {GOLDEN}")
        self.assertEqual(play(self.game, "--replay", "game.txt", "--digest"), played)
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


class Writing(DemoTest):
    def test_what_cannot_be_written_is_said(self):
        for shell, reason, recorded in [
                ('trap "" 25; ulimit -f 1; exec "$0" "$@"', "game.txt: cannot be", r"(?s)\A(?!.*\nend )"),
                ('exec "$0" "$@" >&-', "output cannot be written", r"\nend 100\n\Z"),
                ('exec "$0" "$@" >/dev/full', "output cannot be written", r"\nend 100\n\Z")]:
            with self.subTest(shell):
                play(self.game, "--player", "hostile", "--digest", "--record", "game.txt",
                     status=1, shell=shell)
                self.assertIn(reason, self.game.errors())
                self.assertRegex((self.run_dir / "game.txt").read_text(), recorded)
                play(self.game, "--replay", "game.txt")


class DamagedResources(DemoTest):
    """Each of the resources in turn: the log names it, and the game plays on."""

    def check(self, damage, is_refused=lambda path: True):
        self.assertEqual(len(self.game.resources), 20)
        for resource in self.game.resources:
            with self.subTest(str(resource)), self.game.damaged(resource, damage):
                output = play(self.game, "--player", "greedy", "--steps", 70)
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
    @unittest.skipIf(DEMO.endswith(".exe"), "wine has reasons of its own")
    def test_on_a_full_disk_the_game_plays_on(self):
        output = play(self.game, "--steps", 300, shell='trap "" 25; ulimit -f 1; exec "$0" "$@"')
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
