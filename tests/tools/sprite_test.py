"""Runs gw-sprite as its users do. Usage: sprite_test.py <gw-sprite> <staged run directory>"""

import os
import pathlib
import pty
import re
import signal
import subprocess
import sys
import tempfile
import unittest

TOOL, BEE = sys.argv.pop(1), pathlib.Path(sys.argv.pop(1), "tazlet/sprites/bee.txt")
BEE_ROWS = BEE.read_text().splitlines(keepends=True)[5:]  # 4 frames of 9 x 5, slowdown 2


def pixels(picture):
    return subprocess.check_output(["convert", picture, "-depth", "8", "rgb:-"])


class SpriteTest(unittest.TestCase):
    def setUp(self):
        directory = self.enterContext(tempfile.TemporaryDirectory(prefix="glidewing-test-"))
        os.chdir(directory)

    def run_tool(self, *arguments, status=0):
        done = subprocess.run([TOOL, *arguments], text=True, capture_output=True, timeout=30)
        self.assertEqual(done.returncode, status, done.stderr[-3000:])
        return done.stdout if status == 0 else done.stderr

    def test_the_games_sprites_are_good_and_a_bad_file_is_named_with_line_and_reason(self):
        self.assertEqual(self.run_tool("check", *BEE.parent.glob("*")).count(": good, "), 13)
        pathlib.Path("bad.txt").write_text("1\n3\n2\n0\nred\nabc\nab\x1b\x9bé\n")
        said = self.run_tool("check", "bad.txt", BEE, status=1).split("bad.txt: ")
        self.assertEqual(said[1:], ["Line 7: Line width 7, expected 3.\n",
                                    "Line is: 'ab\\x1b\\xc2\\x9bé'\n"])
        for arguments in (), ("check",), ("png", BEE), ("show", BEE, "--frame", "-1"):
            self.run_tool(*arguments, status=2)

    def test_the_examples_of_the_documentation_are_good_and_bad_as_it_says(self):
        page = pathlib.Path(__file__).parents[2] / "docs/sprite-format.md"
        good, bad, said, said_next = re.findall(r"(?s)```\n(.*?)```\n", page.read_text())[:4]
        pathlib.Path("good.txt").write_text(good)
        self.run_tool("check", "good.txt")
        for text, message in (bad, said), (bad.replace("orange", "red"), said_next):
            pathlib.Path("bad.txt").write_text(text)
            self.assertEqual(self.run_tool("check", "bad.txt", status=1), message)

    def test_show_prints_the_frames_and_plays_them_on_a_terminal_until_interrupted(self):
        self.assertEqual(self.run_tool("show", BEE), "".join(BEE_ROWS))
        self.assertEqual(self.run_tool("show", BEE, "--frame", "3"), "".join(BEE_ROWS[15:]))
        terminal, end = pty.openpty()
        player = subprocess.Popen([TOOL, "show", BEE], stdout=end)
        os.close(end)
        shown = b""
        while not shown.endswith(b"\x1b[?25h\x1b[?1049l"):  # the terminal as it was
            if re.search(rb"(?s)93m\(_#.*frame 3 .*frame 0 ", shown):
                player.send_signal(signal.SIGINT)
            shown += os.read(terminal, 4096)
        self.assertEqual(player.wait(), 0)

    def test_pictures_hold_every_frame_in_its_colour_and_animations_its_time(self):
        self.run_tool("gif", BEE, "-o", "bee.gif")
        self.run_tool("png", BEE, "--all", "-o", "sheet.png")
        for i in range(4):
            self.run_tool("png", BEE, "--frame", str(i), "-o", "frame.png")
            frame = pixels("frame.png")
            self.assertEqual(frame, pixels(f"bee.gif[{i}]"), "no shade is lost")
            self.assertEqual(frame, pixels(f"sheet.png[88x112+{88 * i}+0]"))
            self.assertEqual((frame[::3], max(frame), max(frame[2::3])), (frame[1::3], 255, 0))
        delays = re.findall(rb"(?s)\x21\xf9\x04.(.)\0.\0[\x21\x2c]",
                            pathlib.Path("bee.gif").read_bytes())
        self.assertEqual(delays, [b"\7", b"\6", b"\7", b"\6"], "66 ms each, on average")

    def test_watch_shows_every_save(self):
        os.symlink(BEE, "bee.txt")
        pathlib.Path("new.txt").write_text("0\n")
        watcher = subprocess.Popen([TOOL, "watch", "bee.txt"], stdout=subprocess.PIPE, text=True)
        with watcher.stdout as output:
            self.assertEqual([output.readline() for _ in BEE_ROWS], BEE_ROWS)
            os.replace("new.txt", "bee.txt")
            self.assertIn("bee.txt: Line 1: Frame count 0.", output.readline())
            self.assertIn("bee.txt: Line is: '0'", output.readline())
            watcher.send_signal(signal.SIGINT)
        self.assertEqual(watcher.wait(), 0)


unittest.main()
