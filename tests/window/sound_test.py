"""Listens to the game on a sound server of its own, with a sound card that nobody hears.

Usage: sound_test.py <tazlet-demo> <staged run directory> <preload library>
       [unittest's arguments]
"""

import array
import cmath
import math
import operator
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time
import unittest
import wave

DEMO, STAGED, PRELOAD = (pathlib.Path(argument) for argument in sys.argv[1:4])
RATE = 44100
WINDOW = RATE // 20  # samples in which a tone is looked for, part by part:
PART = RATE // 100  # a hole shifts what follows; samples, whole periods of every tone

# Every sound is replaced by a tone of its own, in Hz; the music goes on quietly.
TONES = {"sounds/game_start.wav": 500, "sounds/bug_spawn.wav": 2600, "sounds/click_pin.wav": 900,
         "sounds/pin_bug.wav": 1400, "sounds/clear_sequence.wav": 2000,
         "sounds/game_over.wav": 3300, "musics/BlippyTrance.mp3": 300}

# With this seed the first insect, at the first spawner, is the one that is wanted.
RECORDING = """tazlet-recording 1
seed 3963
60 key-press 15
62 mouse-press 0 400 320
150 mouse-press 0 100 600
end 180
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


def moments(windows, hertz):
    """Where this tone begins to be heard, in seconds. A hole holds it up, but does not end it."""
    turns = [cmath.exp(2j * math.pi * hertz * i / RATE) for i in range(PART)]
    begins, was_heard = [], False
    for i, window in enumerate(windows):
        loudness = sum(abs(sum(map(operator.mul, window[start : start + PART], turns)))
                       for start in range(0, WINDOW, PART))
        heard = loudness > 0.01 * 32768 * WINDOW
        if heard and not was_heard:
            begins.append(i * WINDOW / RATE)
        was_heard = heard or was_heard and is_dry(window)
    return begins


class Sound(unittest.TestCase):
    def start(self, *command, **options):
        process = subprocess.Popen(command, stdin=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                                   **options)
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)
        return process

    def record_game(self):
        """Everything that the sound card got, window by window, and where in it the game was
        launched, in seconds."""
        directory = tempfile.TemporaryDirectory(prefix="glidewing-test-")
        self.addCleanup(directory.cleanup)
        run_dir = pathlib.Path(directory.name) / "run"
        shutil.copytree(STAGED, run_dir)
        for file, hertz in TONES.items():
            seconds, loudness = (1, 0.05) if "musics" in file else (0.3, 0.1)
            with wave.open(str(run_dir / "tazlet" / file), "wb") as out:
                out.setparams((1, 2, RATE, 0, "NONE", ""))
                out.writeframes(tone(hertz, seconds, loudness))
        (run_dir / "game.txt").write_text(RECORDING)
        socket = pathlib.Path(directory.name) / "pulse"
        self.start("pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1",
                   "--use-pid-file=no", "--disable-shm=yes",
                   f"--load=module-native-protocol-unix socket={socket} auth-anonymous=1",
                   "--load=module-null-sink sink_name=null")
        while not socket.exists():
            time.sleep(0.05)
        # Without a short latency the null sink stalls.
        env = {**os.environ, "PULSE_SERVER": f"unix:{socket}", "PULSE_LATENCY_MSEC": "30"}
        with open(run_dir / "heard.raw", "wb") as heard:
            recorder = self.start("parec", "-d", "null.monitor", "--latency-msec=30", "--raw",
                                  "--format=s16le", "--channels=1", f"--rate={RATE}",
                                  stdout=heard, env=env)
            while os.fstat(heard.fileno()).st_size == 0:
                time.sleep(0.05)  # until it listens
            launched = os.fstat(heard.fileno()).st_size / 2 / RATE
            played = subprocess.run([DEMO, "--window", "--replay", "game.txt"], text=True,
                                    cwd=run_dir, env={**env, "LD_PRELOAD": str(PRELOAD)},
                                    capture_output=True, timeout=50)
            recorder.terminate()
            recorder.wait()
        self.assertEqual(played.returncode, 0, played.stderr)
        self.assertIn("rows sold 1", played.stdout)
        samples = array.array("h", (run_dir / "heard.raw").read_bytes())
        return [samples[i : i + WINDOW] for i in range(0, len(samples) - WINDOW, WINDOW)], launched

    def test_music_and_effects_are_heard_at_their_moments(self):
        windows, launched = self.record_game()
        [start], spawns, [click, second_click], [pin], [clear], game_overs, [music] = (
            moments(windows, hertz) for hertz in TONES.values())
        self.assertEqual(game_overs, [])
        self.assertTrue(spawns)
        self.assertLess(music, start)
        # A busy machine makes any of them late, and the game catches up: none is early.
        self.assertGreater(start - launched, 60 * 0.033)
        self.assertGreater(second_click - launched, 150 * 0.033)
        # The click, the pin and the sale belong to one press, two steps after the start.
        self.assertLess(max(click, pin, clear) - min(click, pin, clear), 0.15)
        self.assertGreaterEqual(min(click, pin, clear), start)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[3:])
