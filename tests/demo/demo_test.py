"""The game as a whole, played by the demo without a window.

Usage: demo_test.py <tazlet-demo> <its staged run directory> [unittest's arguments]
"""

import pathlib
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import unittest

DEMO, STAGED = (pathlib.Path(argument).resolve() for argument in sys.argv[1:3])
HERE = pathlib.Path(__file__).parent
RESOURCES = sorted(path.relative_to(STAGED) for path in STAGED.glob("tazlet/*/*"))


class DemoTest(unittest.TestCase):
    """Every test has a run directory of its own, a copy of the staged one."""

    def setUp(self):
        directory = tempfile.TemporaryDirectory(prefix="glidewing-test-")
        self.addCleanup(directory.cleanup)
        self.run_dir = pathlib.Path(directory.name) / "run"
        shutil.copytree(STAGED, self.run_dir)

    def play(self, *options, status=0, shell='exec "$0" "$@"'):
        """Runs the demo; returns its output. A sanitizer's report fails."""
        done = subprocess.run(["sh", "-c", shell, DEMO, *map(str, options)], cwd=self.run_dir,
                              text=True, capture_output=True, timeout=50,
                              stdin=subprocess.DEVNULL)
        self.assertEqual(done.returncode, status, done.stderr[-3000:])
        self.assertNotRegex(done.stderr, "Sanitizer|runtime error")
        return done.stdout if status == 0 else done.stderr

    def log(self):
        """The log's lines, without times of day and addresses."""
        text = (self.run_dir / "glidewing.log").read_text(errors="replace")
        return [re.sub(r"^\[[\d:]+\] |\(0x[0-9a-f]+\)", "", line) for line in text.splitlines()]


def reached(output, what):
    return int(re.search(rf"^{what} (\d+)$", output, re.MULTILINE).group(1))


class Soak(DemoTest):
    def check(self, profile):
        output = self.play("--profile", profile, "--seed", 11, "--steps", 10000)
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
    compiler. The digests are in golden_digests.txt; they change with the rules,
    with the sizes of sprites, and with the demo's way to play."""

    def check(self, profile, seed):
        options = ["--profile", profile, "--seed", seed, "--steps", 5000, "--digest"]
        first = self.play(*options, "--record", "game.txt")
        log = self.log()
        self.assertEqual(self.play(*options), first, "the same seed again")
        self.assertEqual(self.play("--replay", "game.txt", "--digest"), first, "replayed")
        self.assertEqual(self.log(), log)
        self.assertGreater(len(log), 5000)
        digest = re.findall(r"^step 5000 digest (\w{16})$", first, re.MULTILINE)
        golden = (HERE / "golden_digests.txt").read_text().split("\n")
        self.assertIn(f"{profile} {seed} {digest[0]}", golden)

    def test_skilled(self):
        self.check("skilled", 1)

    def test_greedy(self):
        self.check("greedy", 2)

    def test_hostile(self):
        self.check("hostile", 3)

    def test_random(self):
        self.check("random", 4)

    def test_a_recording_that_was_cut_off_is_played_to_its_last_whole_event(self):
        for events, steps, games in [
                ("", 0, 0), ("9 key-press 15\n12 mouse-press 0 512 384\n77 mouse-pr", 13, 1)]:
            (self.run_dir / "game.txt").write_text("tazlet-recording 1\nseed 5\n" + events)
            output = self.play("--replay", "game.txt")
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
                self.assertIn(reason, self.play(*options, status=1, shell=shell))
                self.assertRegex(game.read_text(), recorded)
                self.play("--replay", "game.txt")

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
                self.assertIn(reason, self.play("--replay", "game.txt", status=1))


class DamagedResources(DemoTest):
    """Each of the resources in turn: the log names it, and the game plays on."""

    def check(self, damage, is_refused=lambda path: True):
        self.assertEqual(len(RESOURCES), 20)
        for resource in RESOURCES:
            with self.subTest(str(resource)):
                path = self.run_dir / resource
                content = path.read_bytes()
                path.unlink()
                damage(path, content)
                output = self.play("--profile", "greedy", "--steps", 70)
                self.assertEqual(reached(output, "games"), 1)
                lines = self.log()
                named = [i for i, line in enumerate(lines) if f"'{resource}'" in line]
                self.assertTrue(named, "the log names the file")
                if is_refused(resource):
                    # What is wrong with it follows where it is loaded.
                    self.assertRegex("\n".join(lines[named[0] + 1:named[0] + 3]),
                                     "(ERROR|WARNING): ")
                shutil.rmtree(path) if path.is_dir() else path.unlink(missing_ok=True)
                path.write_bytes(content)

    def test_missing(self):
        self.check(lambda path, content: None)

    def test_empty(self):
        self.check(lambda path, content: path.touch())

    def test_truncated(self):
        # Half a sound is a shorter sound.
        self.check(lambda path, content: path.write_bytes(content[:len(content) // 2]),
                   lambda path: path.suffix == ".txt")

    def test_a_directory(self):
        self.check(lambda path, content: path.mkdir())

    def test_binary_rubbish(self):
        rubbish = bytes(i * i * 7 + i // 3 & 0xff for i in range(4096))
        self.check(lambda path, content: path.write_bytes(rubbish))


class Log(DemoTest):
    def test_on_a_full_disk_the_game_plays_on(self):
        (self.run_dir / "glidewing.log").symlink_to("/dev/full")
        self.assertEqual(reached(self.play("--steps", 300), "games"), 1)

    def test_every_line_of_a_completed_step_survives_a_sudden_death(self):
        options = ["--profile", "greedy", "--seed", 4, "--digest"]
        for deaths in range(5):
            player = subprocess.Popen(
                [DEMO, *map(str, options), "--steps", "0"], cwd=self.run_dir, text=True,
                stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
            for _ in range(deaths + 1):
                last = player.stdout.readline()
            player.send_signal(signal.SIGKILL)
            player.stdout.close()
            self.assertEqual(player.wait(), -signal.SIGKILL)
            survived = self.log()
            steps = int(last.split()[1])
            self.play(*options, "--steps", steps)
            complete = self.log()
            # Up to the end of that step, which the shut-down follows.
            complete = complete[:complete.index("    INFO: GameManager is shutting down.")]
            self.assertGreater(len(complete), 50)
            self.assertEqual(survived[:len(complete)], complete)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[3:])
