#!/usr/bin/env python3
"""Measures the sounds and the music: measure.py [DIR], the folder that holds sounds/ and musics/.

Prints every figure with its limit and exits with 1 when one does not hold. Needs Python 3, ffmpeg and lame.
"""
import math
import pathlib
import re
import subprocess
import sys
import wave

sys.dont_write_bytecode = True

import make
import music
import synth

LONGEST = {"game_start": 1.5, "bug_spawn": 0.2, "click_pin": 0.1, "pin_bug": 0.5, "clear_sequence": 1.2,
           "game_over": 2.5}                 # seconds
PEAK, OFFSET = -1.0, 0.001                   # dBFS; share of full scale
ATTACK, ATTACK_SHARE = 10.0, 0.25            # ms until the sound first reaches that share of its peak
END, END_MS = -60.0, 1.0                     # dBFS that the last millisecond stays below
SPAWN_BELOW_PIN = 12.0                       # dB, RMS over the whole files
SPREAD = 3.0                                 # dB between the loudest and the quietest effect but the spawn
MUSIC_SECONDS, MUSIC_BYTES = 60.0, 2_000_000
MUSIC_LUFS = (-20.0, -16.0)
JOINT, JOINT_MS = -45.0, 10.0                # dBFS of the loop's first and last milliseconds and of the step between

# Players differ in what they take for the encoder's delay: the first takes what the file says (nothing), as
# the game's does; the second always drops its own delay of 529 samples. Column: how much of the beat may go.
DECODERS = (("ffmpeg", ("ffmpeg", "-v", "error", "-i", "{}", "-f", "s16le", "-"), 0),
            ("lame", ("lame", "--quiet", "--decode", "-t", "{}", "-"), 576))

failures = 0


def row(name, figure, value, low=-math.inf, high=math.inf, form="{:.1f}"):
    global failures
    good = low <= value <= high
    failures += not good
    limits = [sign + " " + form.format(limit) for sign, limit in ((">=", low), ("<=", high)) if math.isfinite(limit)]
    print(f"{name:<17} {figure:<30} {form.format(value):>10}   {', '.join(limits):<20} {'ok' if good else 'FAILS'}")


def db(x):
    return 20 * math.log10(max(x, 1e-9))


def peak(sides):
    return max(max(max(s), -min(s)) for s in sides)


def rms(sides):
    return math.sqrt(sum(x * x for s in sides for x in s) / sum(map(len, sides)))


def common(name, sides):
    row(name, "peak (dBFS)", db(peak(sides)), high=PEAK)
    row(name, "offset (of full scale)", max(abs(sum(s) / len(s)) for s in sides), high=OFFSET, form="{:.5f}")


def measure_effect(path):
    with wave.open(str(path)) as f:
        form = (f.getframerate(), f.getsampwidth(), f.getnchannels())
        sides = synth.from_pcm(f.readframes(f.getnframes()))
    name, n = path.stem, len(sides[0])
    row(name, "44.1 kHz, 16 bit, stereo", form == (synth.RATE, 2, 2), low=1, form="{:d}")
    row(name, "length (s)", n / synth.RATE, high=LONGEST[name], form="{:.3f}")
    common(name, sides)
    threshold = ATTACK_SHARE * peak(sides)
    first = next(i for i, pair in enumerate(zip(*sides)) if max(map(abs, pair)) >= threshold)
    row(name, "attack (ms)", 1000 * first / synth.RATE, high=ATTACK)
    row(name, "last millisecond (dBFS)", db(peak([s[-round(END_MS * synth.RATE / 1000):] for s in sides])), high=END)
    loud = synth.loudest(sides)
    row(name, "loudest 50 ms (LUFS)", loud)
    row(name, "RMS (dBFS)", db(rms(sides)))
    return db(rms(sides)), loud


def output(command, path):
    return subprocess.run([a.replace("{}", str(path)) for a in command], capture_output=True, check=True)


def measure_music(path):
    name = path.stem
    row(name, "size (bytes)", path.stat().st_size, high=MUSIC_BYTES, form="{:d}")
    report = output(("ffmpeg", "-hide_banner", "-nostats", "-i", "{}", "-af", "ebur128=framelog=verbose",
                     "-f", "null", "-"), path).stderr.decode()
    row(name, "loudness (LUFS)", float(re.findall(r"I:\s+(-?[\d.]+) LUFS", report)[-1]), *MUSIC_LUFS)
    for number, (decoder, command, slip) in enumerate(DECODERS):
        sides = synth.from_pcm(output(command, path).stdout)
        n, edge = len(sides[0]), round(JOINT_MS * synth.RATE / 1000)
        if number == 0:
            row(name, "length (s)", n / synth.RATE, low=MUSIC_SECONDS)
            common(name, sides)
            row(name, "crest factor (dB)", db(peak(sides)) - db(rms(sides)))
        row(name, f"{decoder}: samples beyond {music.LENGTH // music.BAR} bars", n - music.LENGTH, -slip, slip, "{:d}")
        row(name, f"{decoder}: step at the joint (dBFS)", db(max(abs(s[0] - s[-1]) for s in sides)), high=JOINT)
        row(name, f"{decoder}: last {JOINT_MS:.0f} ms (dBFS)", db(rms([s[-edge:] for s in sides])), high=JOINT)
        row(name, f"{decoder}: first {JOINT_MS:.0f} ms (dBFS)", db(rms([s[:edge] for s in sides])), high=JOINT)


def main():
    root = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else make.ASSETS
    print(f"{'file':<17} {'figure':<30} {'value':>10}   {'limit':<20}")
    found = {name: measure_effect(root / "sounds" / f"{name}.wav") for name in LONGEST}
    family = [loud for name, (_, loud) in found.items() if name != "bug_spawn"]
    row("effects", "loudness spread (dB)", max(family) - min(family), high=SPREAD)
    row("effects", "spawn below pin (dB RMS)", found["pin_bug"][0] - found["bug_spawn"][0], low=SPAWN_BELOW_PIN)
    measure_music(root / "musics" / f"{music.TITLE}.mp3")
    sys.exit(1 if failures else 0)


if __name__ == "__main__":
    main()
