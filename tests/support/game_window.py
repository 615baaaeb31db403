"""A game's window on an X server: what it shows, its keys and its pointer."""

import re
import subprocess

from game_process import Game, require

SPAWNERS = [(400, 320), (240, 512), (560, 512)]  # pixels

MANAGERS = ["LogManager", "DisplayManager", "InputManager", "ResourceManager", "WorldManager"]
STARTED = [f"INFO: {name} is started up." for name in MANAGERS + ["GameManager"]]
STOPPED = [f"INFO: {name} is shutting down." for name in ["GameManager"] + MANAGERS[::-1]]
# The slow-down timer has no picture, and there is one in every game: one such line
# for each step of a game.
STEP = "WARNING: gw::Animation::draw() - Animation has no sprite. Cannot draw."


def lit(picture):
    """How many bytes of a picture are not black."""
    return len(picture) - picture.count(0)


class GameWindow(Game):
    """A program that shows tazlet in a window."""

    def windows(self):
        """Those that are there."""
        command = ["xdotool", "search", "--onlyvisible", "--name", "^Glidewing$"]
        return subprocess.run(command, capture_output=True, text=True).stdout.split()

    def find(self):
        """Waits for the window and puts the pointer into it."""
        (self.window,) = self.until(self.windows, "window")
        self.act("mousemove", "--window", self.window, "512", "700")

    def act(self, *arguments):
        """What xdotool does."""
        subprocess.run(["xdotool", *arguments], check=True)

    def press_at_spawners(self):
        for x, y in SPAWNERS:
            self.act("mousemove", "--window", self.window, str(x), str(y), "click", "1")

    def chase(self, number, result):
        """Presses on an insect of the game's first step, where it must be by now, until the
        log tells what came of it."""
        x, y = SPAWNERS[number]
        while result not in (log := self.log()):
            made = [i for i, line in enumerate(log) if "Spawner made an insect" in line]
            if len(made) > number:
                steps = log[made[number] :].count(STEP) + 1
                require(steps < 90, f"{steps} steps without {result}")
                speed = re.search(r"\((\S+), (\S+)\)", log[made[number]]).groups()
                place = x + 8 * steps * float(speed[0]), y + 16 * steps * float(speed[1])
                pixel = [str(round(coordinate)) for coordinate in place]
                self.act("mousemove", "--window", self.window, *pixel, "click", "1")

    def play_a_little(self):
        """Starts a game and plays a few steps of it."""
        before = self.log().count(STEP)
        self.act("key", "p")
        self.until(lambda: self.log().count(STEP) > before + 3, "game")
        self.press_at_spawners()

    def quit(self):
        self.act("key", "q")
        self.end()

    def title(self):
        """What the window shows where the title stands, free of border and sale tags."""
        area = ["-crop", "640x512+192+128", "-depth", "8", "rgb:-"]
        command = ["import", "-silent", "-window", self.window, *area]
        return subprocess.run(command, check=True, capture_output=True).stdout
