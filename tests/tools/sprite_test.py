"""Runs gw-sprite as its users do. Usage: sprite_test.py <gw-sprite> <staged run directory>"""

import os
import pathlib
import pty
import re
import shutil
import signal
import struct
import subprocess
import sys
import tempfile
import unittest

TOOL, BEE = sys.argv.pop(1), pathlib.Path(sys.argv.pop(1), "tazlet/sprites/bee.txt")
BEE_ROWS = BEE.read_text().splitlines(keepends=True)[5:]  # 4 frames of 9 x 5, slowdown 2


def pixels(picture):
    return subprocess.check_output(["convert", picture, "-depth", "8", "rgb:-"])


def with_bits(font):
    """The font with a picture of 7 x 12 bits, all set, for each glyph at 16 pixels."""
    tables = {tag: font[start : start + size] for tag, _, start, size
              in struct.iter_unpack(">4s3I", font[12 : 12 + 16 * font[5]])}
    last, size = tables[b"maxp"][5] - 1 + 256 * tables[b"maxp"][4], 11
    tables[b"EBLC"] = b"".join([
        struct.pack(">5I", 0x20000, 1, 56, 28, 1), bytes(28),
        struct.pack(">2H4B", 0, last, 16, 16, 1, 1), struct.pack(">2HI", 0, last, 8),
        struct.pack(">2H2I8B", 2, 5, 4, size, 12, 7, 0, 12, 8, 0, 0, 0)])
    tables[b"EBDT"] = struct.pack(">I", 0x20000) + b"\xff" * size * (last + 1)
    head, body = font[:4] + struct.pack(">4H", len(tables), 0, 0, 0), b""
    for tag, table in sorted(tables.items()):
        head += struct.pack(">4s3I", tag, 0, 12 + 16 * len(tables) + len(body), len(table))
        body += table + bytes(-len(table) % 4)
    return head + body


class SpriteTest(unittest.TestCase):
    def setUp(self):
        directory = self.enterContext(tempfile.TemporaryDirectory(prefix="glidewing-test-"))
        os.chdir(directory)

    def run_tool(self, *arguments, status=0, shell=""):
        done = subprocess.run(["sh", "-c", shell + ' exec "$0" "$@"', TOOL, *arguments],
                              text=True, capture_output=True, timeout=30)
        self.assertEqual(done.returncode, status, done.stderr[-3000:])
        return done.stdout if status == 0 else done.stderr

    def test_the_games_sprites_are_good_and_a_bad_file_is_named_with_line_and_reason(self):
        self.assertEqual(self.run_tool("check", *BEE.parent.glob("*")).count(": good, "), 13)
        pathlib.Path("bad.txt").write_text("1\n3\n2\n0\nred\nabc\nab\x1b\x9bé\n")
        said = self.run_tool("check", "bad.txt", BEE, status=1).split("bad.txt: ")
        self.assertEqual(said[1:], ["Line 7: Line width 7, expected 3.\n",
                                    "Line is: 'ab\\x1b\\xc2\\x9bé'\n",
                                    "line 7: column 3 is 0x1b, a control character\n"])
        for arguments in (), ("check",), ("png", BEE), ("show", BEE, "--frame", "-1"):
            self.run_tool(*arguments, status=2)

    def test_the_examples_of_the_documentation_are_good_and_bad_as_it_says(self):
        page = pathlib.Path(__file__).parents[2] / "docs/sprite-format.md"
        good, bad, *said = re.findall(r"(?s)```\n(.*?)```\n", page.read_text())[:5]
        pathlib.Path("good.txt").write_text(good)
        self.run_tool("check", "good.txt")
        texts = bad, bad.replace("orange", "red"), bad.replace("2", "2 ", 1)
        for text, message in zip(texts, said, strict=True):
            pathlib.Path("bad.txt").write_text(text)
            self.assertEqual(self.run_tool("check", "bad.txt", status=1), message)

    def test_show_prints_the_frames_and_plays_them_on_a_terminal_until_interrupted(self):
        self.assertEqual(self.run_tool("show", BEE), "".join(BEE_ROWS))
        self.assertEqual(self.run_tool("show", BEE, "--frame", "3"), "".join(BEE_ROWS[15:]))
        for number, status in (signal.SIGINT, 0), (signal.SIGQUIT, -signal.SIGQUIT):
            terminal, end = pty.openpty()
            player = subprocess.Popen([TOOL, "show", BEE], stdout=end, process_group=0)
            os.close(end)
            for wish in signal.SIGTSTP, number:
                self.expect(terminal, rb"1049h.*93m/ \\###.*frame 3 .*frame 0 ")
                player.send_signal(wish)
                self.expect(terminal, rb"\x1b\[\?25h\x1b\[\?1049l$")  # as it was
                if wish == signal.SIGTSTP:
                    self.assertTrue(os.WIFSTOPPED(os.waitpid(player.pid, os.WUNTRACED)[1]))
                    player.send_signal(signal.SIGCONT)
            self.assertEqual(player.wait(), status)

    def expect(self, terminal, pattern):
        shown = b""
        while not re.search(pattern, shown, re.DOTALL):
            shown += os.read(terminal, 4096)

    def test_a_picture_is_written_whole_or_not_at_all(self):
        shutil.copy(BEE, "bee.txt")
        os.link("bee.txt", "same.txt")
        os.mkfifo("font")
        pathlib.Path("old.png").write_text("old")
        pathlib.Path("magick").write_text("#!/bin/sh\nkill -INT $PPID\nexec sleep 20\n")
        os.chmod("magick", 0o755)
        files = {name: os.stat(name).st_mtime_ns for name in os.listdir()}
        for shell, arguments, status in [
                ("", "png bee.txt -o same.txt", 1),
                ("", "png bee.txt -o old.png --font font", 1),
                ('trap "" 25; ulimit -f 1;', "png bee.txt -o old.png --all", 1),
                ("TMPDIR=. PATH=.:$PATH", "gif bee.txt -o old.png", -signal.SIGINT)]:
            self.run_tool(*arguments.split(), status=status, shell=shell)
        self.assertEqual({name: os.stat(name).st_mtime_ns for name in os.listdir()}, files)

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
        pathlib.Path("a.txt").write_text("1\n1\n1\n0\nwhite\na\n")
        pathlib.Path("bits").write_bytes(with_bits((BEE.parents[2] / "gw-font.ttf").read_bytes()))
        self.run_tool("png", "a.txt", "-o", "a.png", "--font", "bits")
        self.assertEqual(pixels("a.png").count(b"\xff"), 8 * 13 * 3, "bold")

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
