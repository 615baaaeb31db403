"""The six sound effects, made with the music's instruments, in the music's key (D) and its echo's time."""
import math

import instruments as band
from synth import (SINE, Bus, Noise, bend, decay, faded, gain, hz, level, loudest, pitch, play, plus, pulse, room,
                   samples, svf, sweep, times)

LOUDNESS = -13.0   # LUFS over the loudest twentieth of a second: every effect is as loud as the others ...
QUIETER = {        # dB below that
    "bug_spawn": 16.0,   # ... but for the spawn, which comes several times a second
    "click_pin": 2.0,    # and the click, which comes with every press and together with the pin
}
FADE_OUT = 0.3     # share of an effect's length that its end fades over


def tick(seed, cutoff, tau):
    """A short burst of noise round `cutoff` Hz: what makes a touch crisp."""
    n = samples(9 * tau)
    return band.both(faded(times(svf(Noise(seed).signal(n), cutoff, 1.2, "band"), decay(n, tau)), 0.0005, 3 * tau))


def ping(note, seconds, semitones=0.0, glide=0.01):
    """A sine that dies away, from `semitones` off its pitch."""
    n = samples(seconds)
    return band.both(faded(times(play(SINE, bend(hz(pitch(note)), n, semitones, glide)), decay(n, seconds / 5)),
                           0.0008, seconds / 4))


def game_start(put):
    """Up through the tonic's chord and further, to a chord that opens."""
    put(band.rise(0.36), 0, -15)
    for i, note in enumerate("D5 F#5 A5 D6 E6".split()):
        put(band.lead(pitch(note), 0.06), 0.068 * i, 0.7 * i - 4.3, pan=0.25 * (-1) ** i)
    for note, at, db in (("A5", 0.334, -8), ("D6", 0.340, -7), ("F#6", 0.352, -5)):
        put(band.lead(pitch(note), 0.42), at, db)
    put(band.bass(pitch("D3"), 0.3), 0.34, -8)
    for i, note in enumerate("D6 A6 D7 F#7".split()):
        put(band.bell(pitch(note), 1.0), 0.34 + 0.07 * i, -12 - 2 * i, pan=0.5 * (-1) ** i)


def bug_spawn(put):
    """A soft bubble with a wing's flutter, too low and too round to sting."""
    n, f = samples(0.16), hz(pitch("A4"))
    flutter = [1 + 0.35 * s for s in play(SINE, [38.0] * n)]
    body = times(plus(play(SINE, bend(f, n, -5, 0.012)), level(play(SINE, bend(2 * f, n, -5, 0.012)), 0.12)), flutter)
    put(band.both(faded(times(body, decay(n, 0.055)), 0.007, 0.08)), 0, 0)


def click_pin(put):
    """A pin's point and head: a tick, a tiny metallic ping, a little wood below."""
    put(tick(71, 3400, 0.0035), 0, 0)
    put(ping("D7", 0.06), 0.001, -9)
    put(ping("D5", 0.05, 12, 0.003), 0, -6)


def pin_bug(put):
    """Through the board - and the reward: a fourth up to the tonic, ringing."""
    put(tick(72, 2600, 0.004), 0, -2)
    put(ping("D4", 0.09, 14, 0.008), 0, -2)
    put(band.lead(pitch("A5"), 0.035), 0.004, -7)
    put(band.lead(pitch("D6"), 0.10), 0.062, -6)
    put(band.bell(pitch("D6"), 0.70), 0.062, -4.5)
    put(band.bell(pitch("A6"), 0.55), 0.066, -13, pan=0.3)


def clear_sequence(put):
    """A till: key, drawer, bell, and coins that settle on the tonic."""
    put(tick(73, 1900, 0.006), 0, 0)
    put(ping("D4", 0.10, 10, 0.01), 0, -3)
    put(tick(74, 3000, 0.005), 0.055, -3)
    for note, at, db, pan in (("A6", 0.09, -4, -0.15), ("D7", 0.09, -7, 0.15), ("D6", 0.09, -8, 0)):
        put(band.bell(pitch(note), 1.5, 2.4), at, db, pan)
    for i, note in enumerate("F#6 A6 E6 B6 F#6 A6 D7".split()):
        put(band.pluck(pitch(note), 0.02), 0.19 + 0.062 * i, -7 - i, pan=0.6 * (-1) ** i)


def game_over(put):
    """Down the minor scale, each step heavier, and a last chord that sags."""
    for i, (note, steps) in enumerate((("A5", 2), ("F5", 2), ("E5", 2), ("D5", 2))):
        put(band.lead(pitch(note), 0.11 * steps), 0.23 * i, -4 - i * 0.5, pan=0.15 * (-1) ** i)
        put(band.flute(pitch(note) - 12, 0.11 * steps), 0.23 * i, -9)
    n = samples(1.3)
    for note, db in (("A3", -8), ("D4", -8), ("F4", -9), ("Bb4", -12)):
        sag = bend(hz(pitch(note) - 3), n, 3, 0.9)
        voice = svf(pulse(0.27, sag), sweep(n, 2200, 450, 0.35))
        put(band.both(faded(times(voice, decay(n, 0.42)), 0.004, 0.5)), 0.92, db)
    put(band.bass(pitch("D2"), 0.7), 0.92, -6)


#          name              length (s)  room (dB)
EFFECTS = ((game_start,      1.40,       -9),
           (bug_spawn,       0.17,       None),
           (click_pin,       0.075,      None),
           (pin_bug,         0.44,       -13),
           (clear_sequence,  1.15,       -11),
           (game_over,       2.30,       -9))


def render():
    """(name, stereo) of every effect, at the loudness of the family."""
    for recipe, seconds, wet in EFFECTS:
        name, bus = recipe.__name__, Bus(samples(seconds))
        recipe(lambda sound, at, db, pan=0.0: bus.add(sound, samples(at), gain(db), pan))
        if wet is not None:
            bus.add(room(svf(list(map(sum, zip(*bus.sides))), 300.0, 0.7, "high"), 0.7), 0, gain(wet))
        window = faded([1.0] * bus.length, 0, FADE_OUT * seconds)
        sides = [times(s, window) for s in bus.sides]
        sides = [plus(s, level(window, -math.fsum(s) / math.fsum(window))) for s in sides]  # takes the offset out
        factor = gain(LOUDNESS - QUIETER.get(name, 0.0) - loudest(sides))
        yield name, [level(s, factor) for s in sides]
