"""The guide's listings are pieces of the examples, to the letter.

Usage: guide_test.py [unittest's arguments]
"""

import pathlib
import re
import unittest

ROOT = pathlib.Path(__file__).parents[2]


class Guide(unittest.TestCase):
    def test_every_listing_is_a_piece_of_an_example(self):
        examples = [file.read_text() for file in (ROOT / "examples").glob("*.cpp")]
        guide = (ROOT / "docs/guide.md").read_text()
        listings = re.findall(r"(?s)```cpp\n(.*?)```", guide)
        self.assertGreater(len(listings), 5)
        for listing in listings:
            self.assertTrue(any(listing in example for example in examples), listing)


if __name__ == "__main__":
    unittest.main()
