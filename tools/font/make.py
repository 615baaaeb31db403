#!/usr/bin/env python3
"""Makes the font of the engine from glyphs.txt: make.py [OUT]

OUT is assets/gw-font.ttf of this project when not given. The same pictures always give the same bytes. Needs
fontTools (Debian: python3-fonttools). README.md in this folder tells how glyphs.txt is read.

The pictures show bold characters at size 16, as the engine draws them. Making an outline bold moves its right
side and its upper side by one pixel, so outlines are made narrower and lower by as much.
"""
import argparse
import pathlib
import sys

from fontTools import agl
from fontTools.fontBuilder import FontBuilder
from fontTools.pens.ttGlyphPen import TTGlyphPen
from fontTools.ttLib import newTable
from fontTools.ttLib.tables.ttProgram import Program

HERE = pathlib.Path(__file__).resolve().parent
FONT = HERE.parents[1] / "assets" / "gw-font.ttf"

CHARACTERS = [chr(code) for code in range(ord(" "), ord("~") + 1)]
OTHER = "other"            # the box for all other characters
WORDS = {" ": "space"}     # what stands above a picture where it is not the character itself

WIDTH, HEIGHT = 9, 17      # of a picture; its first row and column lie outside the cell
GAP = 2                    # columns between two pictures
LEFT, TOP = -2, 14         # of a picture: pixels from the character's place, and above the base line
ADVANCE, ABOVE, BELOW = 8, 13, 3  # of a cell, in pixels

PARTS = 4                  # of a pixel from left to right
INK = {" ": "    ", ".": "    ", "#": "####", "(": "   #", ")": "#   "}  # of a pixel
BOLD = PARTS               # parts that bold adds at the right; upwards it is one row
THINNEST = PARTS // 2      # narrower outlines are not widened fully

UNIT = 64                  # of the font, to a pixel
EM = 16 * UNIT

# Says that no outline is ever hinted. Where a font says nothing, a library hints by its own taste.
NO_HINTS = ["PUSHW[ ]", "511", "SCANCTRL[ ]", "PUSHB[ ]", "4", "SCANTYPE[ ]", "PUSHB[ ]", "1 1", "INSTCTRL[ ]"]

NAMES = {"copyright": "The Glidewing maintainers; MIT licence", "familyName": "Glidewing",
         "styleName": "Regular", "uniqueFontIdentifier": "Glidewing Regular 1.0",
         "fullName": "Glidewing Regular", "version": "Version 1.0", "psName": "Glidewing-Regular"}


class Unusable(Exception):
    """Tells what is wrong with glyphs.txt."""


def read(path):
    """The pictures by what stands above them: each a list of HEIGHT strings."""
    pictures, lines = {}, path.read_text(encoding="ascii").split("\n")
    for start in range(0, len(lines), HEIGHT + 2):
        block = lines[start + 1:start + 1 + HEIGHT]
        for number, word in enumerate(lines[start].split()):
            at = number * (WIDTH + GAP)
            if word in pictures or lines[start].find(word, at) != at + 1:
                raise Unusable(f"line {start + 1}: {word} is there twice, or not above its picture")
            pictures[word] = [line[at:at + WIDTH].ljust(WIDTH) for line in block]
    wanted = {WORDS.get(ch, ch) for ch in CHARACTERS} | {OTHER}
    if wanted ^ pictures.keys():
        raise Unusable("missing or unknown: " + " ".join(sorted(wanted ^ pictures.keys())))
    return pictures


def ink(picture):
    """The parts of pixels that have ink, as pairs of column and row."""
    try:
        rows = ["".join(INK[pixel] for pixel in row) for row in picture]
    except KeyError as unknown:
        raise Unusable(f"it has a pixel {unknown}") from None
    return {(x, y) for y, row in enumerate(rows) for x, part in enumerate(row) if part == "#"}


def thin(parts):
    """What bold makes exactly these parts of."""
    added = [(x, y) for x in range(BOLD + 1) for y in (0, -1)]
    thinned = {(x, y) for x, y in parts if all((x + dx, y + dy) in parts for dx, dy in added)}
    bold = {(x + dx, y + dy) for x, y in thinned for dx, dy in added}
    for x, y in sorted(parts - bold):
        raise Unusable(f"bold cannot make the pixel in column {x // PARTS}, row {y}: ink is at least "
                       "two pixels wide and high, or upright as (#)")
    return thinned


def rectangles(parts):
    """The parts as rectangles: left, top, right, bottom, the latter two excluded."""
    found, open_runs = [], {}
    for y in range(HEIGHT + 1):
        row = sorted(x for x, row in parts if row == y)
        starts = [x for x in row if x - 1 not in row]
        ends = [x + 1 for x in row if x + 1 not in row]
        runs = {run: open_runs.get(run, y) for run in zip(starts, ends)}
        found += [(run[0], top, run[1], y) for run, top in open_runs.items() if run not in runs]
        open_runs = runs
    if any(right - left < THINNEST for left, _, right, _ in found):
        raise Unusable("it has a stroke that bold does not widen fully")
    return sorted(found)


def outline(picture):
    pen = TTGlyphPen(None)
    for left, top, right, bottom in rectangles(thin(ink(picture))):
        x1, x2 = (LEFT * UNIT + x * UNIT // PARTS for x in (left, right))
        y1, y2 = ((TOP - y) * UNIT for y in (bottom, top))
        pen.moveTo((x1, y1))
        for point in (x1, y2), (x2, y2), (x2, y1):
            pen.lineTo(point)
        pen.closePath()
    return pen.glyph()


def make(pictures):
    """The font."""
    names = {ch: agl.UV2AGL[ord(ch)] for ch in CHARACTERS}
    glyphs = {}
    for name, word in [(".notdef", OTHER)] + [(names[ch], WORDS.get(ch, ch)) for ch in CHARACTERS]:
        try:
            glyphs[name] = outline(pictures[word])
        except Unusable as reason:
            raise Unusable(f"the picture of {word}: {reason}") from None
    font = FontBuilder(EM, isTTF=True)
    font.setupGlyphOrder(list(glyphs))
    font.setupCharacterMap({ord(ch): names[ch] for ch in CHARACTERS})
    font.setupGlyf(glyphs)
    edges = {name: getattr(font.font["glyf"][name], "xMin", 0) for name in glyphs}
    font.setupHorizontalMetrics({name: (ADVANCE * UNIT, edges[name]) for name in glyphs})
    font.setupHorizontalHeader(ascent=ABOVE * UNIT, descent=-BELOW * UNIT)
    font.setupOS2(sTypoAscender=ABOVE * UNIT, sTypoDescender=-BELOW * UNIT, sTypoLineGap=0,
                  usWinAscent=ABOVE * UNIT, usWinDescent=BELOW * UNIT, xAvgCharWidth=ADVANCE * UNIT,
                  fsType=0)  # whoever has it may do with it what the licence says
    font.setupNameTable(NAMES, mac=False)
    font.setupPost(keepGlyphNames=False, isFixedPitch=1)
    font.font["prep"] = prep = newTable("prep")
    prep.program = Program()
    prep.program.fromAssembly(NO_HINTS)
    font.updateHead(created=0, modified=0)  # the same at all times
    return font


def main():
    parser = argparse.ArgumentParser(description="Makes the font of the engine.")
    parser.add_argument("out", nargs="?", type=pathlib.Path, default=FONT)
    out = parser.parse_args().out
    try:
        make(read(HERE / "glyphs.txt")).save(out)
    except Unusable as reason:
        sys.exit(f"make.py: glyphs.txt: {reason}")


if __name__ == "__main__":
    main()
