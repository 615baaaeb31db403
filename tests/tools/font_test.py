"""Makes the font again. Usage: font_test.py <the project's root>; needs fontTools."""

import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(sys.argv.pop(1))


class FontMakerTest(unittest.TestCase):
    def setUp(self):
        self.copy = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory(prefix="glidewing-test-")))
        self.pictures = (ROOT / "tools/font/glyphs.txt").read_text()
        shutil.copy(ROOT / "tools/font/make.py", self.copy)

    def make(self, pictures):
        (self.copy / "glyphs.txt").write_text(pictures)
        return subprocess.run([sys.executable, self.copy / "make.py", self.copy / "made.ttf"],
                              text=True, capture_output=True, timeout=30).stderr

    def test_the_same_pictures_give_the_committed_bytes(self):
        self.assertEqual(self.make(self.pictures), "")
        self.assertEqual((self.copy / "made.ttf").read_bytes(), (ROOT / "assets/gw-font.ttf").read_bytes())

    def test_what_bold_cannot_make_is_refused_with_its_place(self):
        for old, new, reason in [
                ("!          ", "?          ", "? is there twice"),
                ("##(#)##.", "##.#.##.", "the picture of M: bold cannot make the pixel in column 4, row 6"),
                ("##(#)##.", "##(##)#.", "the picture of M: bold cannot make the pixel in column 7, row 6"),
                ("##(#)##.", "##x#x##.", "the picture of M: it has a pixel 'x'")]:
            self.assertIn(old, self.pictures)
            self.assertIn(reason, self.make(self.pictures.replace(old, new)))
            self.assertFalse((self.copy / "made.ttf").exists())


unittest.main()
