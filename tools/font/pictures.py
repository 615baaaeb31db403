#!/usr/bin/env python3
"""Makes the pictures of docs/font.md again: pictures.py GW-SPRITE

Each picture shows the text below it in real size and four times larger, as the program gw-sprite draws it
(build/tools/gw-sprite). Needs ImageMagick.
"""
import pathlib
import re
import subprocess
import sys
import tempfile

PAGE = pathlib.Path(__file__).resolve().parents[2] / "docs" / "font.md"
PICTURE = re.compile(r"!\[[^]]*\]\(([^)]*\.png)\)\n\n```\n(.*?)\n```\n", re.DOTALL)


def draw(program, text, path):
    rows = text.splitlines()
    width = max(map(len, rows))
    with tempfile.TemporaryDirectory() as folder:
        sprite, real = pathlib.Path(folder, "sprite.txt"), pathlib.Path(folder, "real.png")
        head = [1, width, len(rows), 0, "white"]
        sprite.write_text("".join(f"{line}\n" for line in head + [row.ljust(width) for row in rows]))
        subprocess.run([program, "png", sprite, "-o", real], check=True)
        subprocess.run(["convert", real, "(", "+clone", "-filter", "point", "-resize", "400%", ")",
                        "-background", "black", "-append", "-strip", path], check=True)


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    pictures = PICTURE.findall(PAGE.read_text(encoding="utf-8"))
    for name, text in pictures:
        draw(sys.argv[1], text, PAGE.parent / name)
        print(name)


main()
