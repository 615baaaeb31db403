#!/usr/bin/env python3
"""Makes all sounds and the music of the game again: make.py [--stems DIR] [--only sounds|music] [OUT]

OUT is the folder that holds sounds/ and musics/; assets/tazlet of this project when not given. The same
sources always give the same bytes. Needs Python 3 and lame.
"""
import argparse
import pathlib
import subprocess
import sys
import tempfile

sys.dont_write_bytecode = True

import effects
import music
import synth

ASSETS = pathlib.Path(__file__).resolve().parents[2] / "assets" / "tazlet"
KBPS = 128                # constant, so that players know the length without an index
ENCODER = ("lame", "--quiet", "--cbr", "-b", str(KBPS), "-m", "j", "-q", "0", "--lowpass", "16",
           "--noreplaygain", "--nores", "-t")
#          no reservoir: every frame stands alone; -t: no information frame, which some players play as silence
AROUND = 2 * music.FRAMES_PER_BAR  # frames the encoder hears before and after the loop; cut off again


def frames(data):
    """The frames of a constant-rate MPEG-1 layer III stream at 44.1 kHz."""
    at, out = 0, []
    while at + 4 <= len(data) and data[at] == 0xFF and data[at + 1] & 0xFE == 0xFA:
        length = 144000 * KBPS // synth.RATE + (data[at + 2] >> 1 & 1)
        out.append(data[at:at + length])
        at += length
    return out


def needs_reservoir(frame):
    """Whether a frame borrows bits of the frames before it (its main data begins there)."""
    side = frame[4:6] if frame[1] & 1 else frame[6:8]
    return side[0] << 1 | side[1] >> 7


def encode(sides, path):
    """Writes the loop as MP3 frames only, as many as it has samples / 1152.

    The encoder hears the loop's end in front of it and its start behind it, and exactly one round of frames is
    kept. So there is no delay and no padding to know of: every decoder gets the same number of samples, and
    the last frame goes on into the first as any frame into the next.
    """
    extra, count = AROUND * music.FRAME, music.LENGTH // music.FRAME
    with tempfile.TemporaryDirectory() as folder:
        wav, mp3 = pathlib.Path(folder, "loop.wav"), pathlib.Path(folder, "loop.mp3")
        synth.write_wav(wav, [s[-extra:] + s + s[:extra] for s in sides])
        subprocess.run([*ENCODER, str(wav), str(mp3)], check=True)
        kept = frames(mp3.read_bytes())[AROUND:AROUND + count]
    if len(kept) != count or any(map(needs_reservoir, kept)):
        sys.exit(f"make.py: lame gave frames that cannot be cut ({len(kept)} of {count})")
    path.write_bytes(b"".join(kept))


def main():
    parser = argparse.ArgumentParser(description="Makes the sounds and the music of the game.")
    parser.add_argument("out", nargs="?", type=pathlib.Path, default=ASSETS)
    parser.add_argument("--only", choices=("sounds", "music"))
    parser.add_argument("--stems", type=pathlib.Path, help="also write each stem of the music there, as WAV")
    args = parser.parse_args()
    for folder in (args.out / "sounds", args.out / "musics", *([args.stems] if args.stems else [])):
        folder.mkdir(parents=True, exist_ok=True)
    if args.only != "music":
        for name, sides in effects.render():
            synth.write_wav(args.out / "sounds" / f"{name}.wav", sides)
            print(f"{name}.wav", flush=True)
    if args.only != "sounds":
        def report(name, sides):
            print(f"{music.TITLE}: {name}", flush=True)
            if args.stems:
                synth.write_wav(args.stems / f"{name}.wav", sides)
        loop = music.render(report)
        if args.stems:
            synth.write_wav(args.stems / "mix.wav", loop)
        encode(loop, args.out / "musics" / f"{music.TITLE}.mp3")
        print(f"{music.TITLE}.mp3")


if __name__ == "__main__":
    main()
