"""The instruments of the music and of the effects. Each gives a stereo signal that peaks near 1.

Pitched instruments take a pitch (semitones, see synth.pitch) and a length in seconds; the sound goes on for
the instrument's release after that. Each distinct note is made once.
"""
from functools import cache

from synth import (CONTROL, RATE, Noise, bend, decay, faded, fm, hz, level, play, plus, pulse, samples, saw_for, SINE,
                   svf, sweep, times)

DETUNE = 1.0035      # ratio between the edges of the lead and its middle: 6 cents
PAD_VOICES = ((0.9945, 0.11, 0.9), (0.9982, 0.47, 0.5), (1.0, 0.83, 0.7), (1.0021, 0.29, 0.3), (1.0052, 0.65, 0.1))
#             (ratio, phase, share on the left) of the saws of one pad note


def both(signal):
    return signal, signal


def swell(n, attack, tau, rest):
    """Rises in `attack` seconds, falls to the share `rest` with time constant `tau`; faded by the caller."""
    return [rest + (1 - rest) * e for e in faded(decay(n, tau), attack, 0)]


@cache
def lead(note, seconds):
    """The blip that sings: a pulse wave that chirps down into its pitch and shades off."""
    n, f, calm = samples(seconds + 0.07), hz(note), samples(0.16)
    vibrato = [1.0] * min(n, calm) + [1 + 0.0035 * min(1, i / calm) * v
                                      for i, v in enumerate(play(SINE, [5.6] * (n - calm)))]
    freqs = times(bend(f, n, 7, 0.006), vibrato)
    shape, cutoffs = swell(n, 0.002, 0.13, 0.42), sweep(n, 6500, 2100 + f, 0.09)
    middle, edge = (faded(times(level(svf(pulse(0.27, level(freqs, d)), cutoffs, 0.9), v), shape), 0.002, 0.07)
                    for d, v in ((1.0, 0.85), (DETUNE, 0.3)))
    return plus(middle, edge), plus(middle, level(edge, -1))


@cache
def flute(note, seconds):
    """The second voice: nearly a sine, soft at its start."""
    n, f = samples(seconds + 0.09), hz(note)
    body = plus(play(SINE, bend(f, n, -0.4, 0.03)), level(play(SINE, [3.001 * f] * n), 0.13))
    return both(faded(times(level(body, 0.8), swell(n, 0.01, 0.3, 0.6)), 0.014, 0.09))


@cache
def pluck(note, seconds):
    """The arpeggio's thin short blip."""
    n, f = samples(seconds + 0.1), hz(note)
    x = svf(pulse(0.14, bend(f, n, 5, 0.004)), sweep(n, 5200, 700 + f, 0.05), 1.1)
    return both(faded(times(x, decay(n, 0.085)), 0.0015, 0.06))


@cache
def bell(note, seconds, bright=2.6):
    """Glassy chime: phase modulation that dies away faster than the tone, wider than it is loud."""
    n, f = samples(seconds), hz(note)
    out = []
    for d in (0.9992, 1.0008):
        index = level(decay(n, seconds / 9), bright * min(1, 700 / f))
        body = times(fm([f * d] * n, 3.0, index), decay(n, seconds / 4))
        halo = times(play(SINE, [2.0 * f / d] * n), decay(n, seconds / 8))
        out.append(faded(plus(level(body, 0.75), level(halo, 0.22)), 0.001, seconds / 4))
    return tuple(out)


@cache
def pad(note, seconds):
    """Five saws side by side; the mix filters them."""
    n, f = samples(seconds + 0.25), hz(note)
    voices = [level(play(saw_for(f), [p * RATE] + [f * r] * (n - 1)), 0.3) for r, p, _ in PAD_VOICES]
    return tuple(faded(plus(*(level(v, s if side == 0 else 1 - s) for v, (_, _, s) in zip(voices, PAD_VOICES))),
                       0.06, 0.25) for side in (0, 1))


@cache
def bass(note, seconds):
    """Round bass: a sine for the weight, a filtered pulse for the pitch on small speakers."""
    n, f = samples(seconds + 0.03), hz(note)
    growl = svf(pulse(0.42, bend(f, n, 12, 0.004)), sweep(n, 1900, 330, 0.07), 1.2)
    return both(faded(times(plus(level(play(SINE, [f] * n), 0.62), level(growl, 0.5)), swell(n, 0.002, 0.16, 0.55)),
                      0.003, 0.03))


# --- drums: length and pitch are their own ---

@cache
def kick():
    n = samples(0.26)
    thump = times(play(SINE, plus(level(decay(n, 0.022), 150), [51.0] * n)), decay(n, 0.09))
    tick = times(svf(Noise(3).signal(n), 2600, 0.8, "band"), decay(n, 0.004))
    return both(faded(plus(thump, level(tick, 0.35)), 0.001, 0.08))


@cache
def clap():
    n = samples(0.22)
    hands = plus(*([0.0] * samples(t) + times(level(Noise(s).signal(n), g), decay(n, d)) for t, s, g, d in
                   ((0, 11, 0.6, 0.006), (0.011, 12, 0.7, 0.006), (0.021, 13, 1.0, 0.05))))
    return tuple(faded(svf(svf(hands, c, 1.1, "band"), 6500), 0.001, 0.1) for c in (1450, 1750))


@cache
def hat(seconds=0.035, seed=21):
    n = samples(seconds * 3)
    return tuple(faded(times(svf(svf(svf(Noise(seed + s).signal(n), 6200, 1.4, "band"), 9000), 3500, 0.7, "high"),
                             decay(n, seconds)), 0.001, seconds) for s in (0, 1))


def open_hat():
    return hat(0.085, 31)


@cache
def rim():
    """A wooden blip on the key's fifth: the percussion that dances round the beat."""
    n = samples(0.06)
    return both(faded(times(play(SINE, bend(880.0, n, 9, 0.003)), decay(n, 0.014)), 0.001, 0.02))


@cache
def snare():
    n = samples(0.16)
    skin = times(play(SINE, bend(196.0, n, 7, 0.01)), decay(n, 0.045))
    wires = times(svf(svf(Noise(41).signal(n), 3000, 0.6, "band"), 7000), decay(n, 0.05))
    return both(faded(plus(level(skin, 0.5), level(wires, 0.8)), 0.001, 0.05))


@cache
def splash(seconds=1.6):
    """A soft cymbal for the first beat of a section."""
    n = samples(seconds)
    return tuple(faded(times(svf(svf(Noise(51 + s).signal(n), 5200, 0.5, "band"), sweep(n, 8500, 3000, 0.5)),
                             decay(n, seconds / 4)), 0.002, seconds / 3) for s in (0, 1))


@cache
def rise(seconds):
    """Wind that climbs towards the next section and stops there."""
    n = samples(seconds)
    grow = [(i / n) ** 2 for i in range(n)]
    cutoffs = [350 * 14 ** (i * CONTROL / n) for i in range(n // CONTROL + 1)]
    return tuple(faded(times(svf(Noise(61 + s).signal(n), cutoffs, 2.2, "band"), grow), 0.01, 0.03) for s in (0, 1))
