"""Listens to the game on a sound server of its own, with a sound card that nobody hears.

Usage: sound_test.py <tazlet-demo> <staged run directory> <preload library, or - for none>
       [unittest's arguments]
"""

import array
import cmath
import math
import operator
import os
import pathlib
import subprocess
import sys
import tempfile
import time
import unittest
import wave

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "support"))
from game_process import Game, running

DEMO, STAGED, PRELOAD = sys.argv[1:4]
if PRELOAD == "-":
    PRELOAD = None
RATE = 44100
WINDOW = RATE // 20  # samples in which a tone is looked for, part by part:
PART = RATE // 100  # a hole shifts what follows; samples, whole periods of every tone
STEP = 0.033  # seconds

# Every sound is replaced by a tone of its own, in Hz; the music is quiet, and short.
TONES = {"sounds/game_start.wav": 500, "sounds/bug_spawn.wav": 2600, "sounds/click_pin.wav": 900,
         "sounds/pin_bug.wav": 1400, "sounds/clear_sequence.wav": 2000,
         "sounds/game_over.wav": 3300, "musics/BlippyTrance.mp3": 300}

# With this seed the first insect, at the first spawner, is the one that is wanted. Later
# a press meets nothing, and then each meets insects until the board is full.
RECORDING = """glidewing-recording 2
game tazlet 0
seed 3963
30 key-press p
32 mouse-press left 400 320
90 mouse-press left 100 600
130 mouse-press left 400 320
133 mouse-press left 240 512
136 mouse-press left 560 512
178 mouse-press left 240 512
184 mouse-press left 400 320
205 mouse-press left 240 512
end 220
"""


def tone(hertz, seconds, loudness):
    """Whole periods, so that it loops without a seam."""
    turn = 2 * math.pi * hertz / RATE
    return array.array("h", (round(32767 * loudness * math.sin(turn * i))
                             for i in range(round(seconds * RATE))))


def is_dry(window):
    """Whether the sound card ran dry: the music never stops, so the game sends no 1 ms of
    silence. On a busy machine it comes too late at times, and the server fills the hole."""
    return bytes(2 * RATE // 1000) in window.tobytes()


def listen(windows, hertz):
    """The windows in which each sounding of this tone is heard. A hole holds it up, but does
    not end it."""
    turns = [cmath.exp(2j * math.pi * hertz * i / RATE) for i in range(PART)]
    soundings, goes_on = [], False
    for i, window in enumerate(windows):
        loudness = sum(abs(sum(map(operator.mul, window[start : start + PART], turns)))
                       for start in range(0, WINDOW, PART))
        heard = loudness > 0.01 * 32768 * WINDOW
        if heard and not goes_on:
            soundings.append(set())
        if heard:
            soundings[-1].add(i)
        goes_on = heard or goes_on and is_dry(window)
    return soundings


class Sound(unittest.TestCase):
    def start(self, *command, **options):
        return self.enterContext(running(*command, stderr=subprocess.DEVNULL, **options))

    def record_game(self):
        """Everything that the sound card got, window by window, and the window in which the
        game was launched."""
        game = self.enterContext(Game(DEMO, STAGED))
        for file, hertz in TONES.items():
            seconds, loudness = (1, 0.05) if "musics" in file else (0.3, 0.1)
            with wave.open(str(game.run_dir / "tazlet" / file), "wb") as out:
                out.setparams((1, 2, RATE, 0, "NONE", ""))
                out.writeframes(tone(hertz, seconds, loudness))
        (game.run_dir / "game.txt").write_text(RECORDING)
        # A path without spaces, which its options cannot have.
        directory = self.enterContext(tempfile.TemporaryDirectory(prefix="glidewing-"))
        socket = pathlib.Path(directory, "pulse")
        self.start("pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1",
                   "--use-pid-file=no", "--disable-shm=yes",
                   f"--load=module-native-protocol-unix socket={socket} auth-anonymous=1",
                   "--load=module-null-sink sink_name=null")
        while not socket.exists():
            time.sleep(0.05)
        # Without a short latency the null sink stalls.
        server = {"PULSE_SERVER": f"unix:{socket}", "PULSE_LATENCY_MSEC": "30"}
        with open(game.run_dir / "heard.raw", "w+b") as heard:
            recorder = self.start("parec", "-d", "null.monitor", "--latency-msec=30", "--raw",
                                  "--format=s16le", "--channels=1", f"--rate={RATE}",
                                  stdout=heard, env={**os.environ, **server})
            while (launched := os.fstat(heard.fileno()).st_size) == 0:
                time.sleep(0.05)  # until it listens
            output = game.play("--window", "--replay", "game.txt", LD_PRELOAD=PRELOAD, **server)
            recorder.terminate()
            recorder.wait()
            heard.seek(0)
            samples = array.array("h", heard.read())
        self.assertIn("rows sold 1", output)
        return ([samples[i : i + WINDOW] for i in range(0, len(samples) - WINDOW, WINDOW)],
                launched / 2 / WINDOW)

    def test_music_and_effects_are_heard_at_their_moments(self):
        windows, launched = self.record_game()
        [start], spawns, [sale_click, missed_click, *_], pins, [clear], [game_over], [music] = (
            listen(windows, hertz) for hertz in TONES.values())
        self.assertTrue(music & game_over, "the music goes on to the end")
        # A busy machine makes any of them late, and the game catches up: none is early.
        for step, sound in (30, start), (90, missed_click), (205, game_over):
            self.assertGreater(min(sound) - launched, step * STEP * RATE / WINDOW)
        # What belongs to one press is heard at once.
        self.assertTrue(sale_click & pins[0] & clear)
        self.assertTrue(pins[-1] & game_over)
        self.assertNotIn(min(missed_click), set.union(*pins))
        self.assertLessEqual(min(start), min(sale_click))
        self.assertLess(min(music), min(start))
        self.assertTrue(spawns)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[3:])
