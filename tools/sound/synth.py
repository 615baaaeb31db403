"""Building blocks of every sound: pitches, oscillators, envelopes, filters, room and files.

A signal is a sequence of floats around 0, full scale is 1.0. A stereo signal is a pair (left, right).
Times are seconds unless a name says otherwise. Nothing here draws chance from outside: Noise is seeded.
"""
import array
import math
import wave
from functools import cache
from itertools import accumulate, repeat
from operator import add, mul

RATE = 44100         # samples per second
TABLE = 4096         # samples in one period of a wave table; a power of two
BRIGHTEST = 10500.0  # Hz; oscillators have no partial above: nothing aliases, nothing hisses
CONTROL = 32         # samples between two updates of a moving filter

# The room: delays in samples of the left side, none a multiple of another. The right side is SPREAD later.
COMBS, ALLPASSES, SPREAD = (1116, 1277, 1422, 1617), (556, 225), 37
ROOM_LEVEL = 0.16    # makes up for four combs adding up
ROOM_TAIL = 2.0      # seconds until the room is silent; what a loop must hear of its own end beforehand
ECHOES = 7           # echoes that are still heard

SEMITONES = {"C": 0, "D": 2, "E": 4, "F": 5, "G": 7, "A": 9, "B": 11}


def samples(seconds):
    return round(seconds * RATE)


def gain(decibels):
    return 10 ** (decibels / 20)


def pitch_class(name):
    """'F#' -> 6, 'Bb' -> 10."""
    return (SEMITONES[name[0]] + name.count("#") - name.count("b")) % 12


def pitch(name):
    """'A4' -> 69, semitones as MIDI counts them."""
    return pitch_class(name[:-1]) + 12 * (int(name[-1]) + 1)


def hz(semitone):
    return 440.0 * 2 ** ((semitone - 69) / 12)


class Noise:
    """White noise from a generator of our own, so that every run makes the same bytes."""

    def __init__(self, seed):
        self.state = seed

    def unit(self):
        """The next number, 0 <= x < 1."""
        self.state = (self.state * 1664525 + 1013904223) & 0xFFFFFFFF
        return self.state / 0x100000000

    def signal(self, n):
        return [2 * self.unit() - 1 for _ in range(n)]


# --- oscillators ---

SINE = [math.sin(2 * math.pi * i / TABLE) for i in range(TABLE)]


@cache
def saw_table(partials):
    """One period of a saw of that many partials, its edge rounded so that it does not ring."""
    weights = [math.sin(math.pi * k / (partials + 1)) / (math.pi * k / (partials + 1)) / k
               for k in range(1, partials + 1)]
    mask = TABLE - 1
    return [0.6 * math.fsum(w * SINE[i * k & mask] for k, w in enumerate(weights, 1)) for i in range(TABLE)]


def saw_for(top):
    """The saw table for notes that reach `top` Hz. Counts are coarse, so that few tables are made."""
    most = int(min(64, max(1, BRIGHTEST / top)))
    return saw_table(most if most < 12 else most & ~3)


def play(table, freqs):
    """Plays a wave table at a frequency (Hz) per sample."""
    scale, mask = TABLE / RATE, TABLE - 1
    return [table[int(p * scale) & mask] for p in accumulate(freqs)]


def pulse(width, freqs, phase=0.0):
    """A pulse wave: one saw minus the same saw `width` of a period later."""
    table, scale, mask = saw_for(max(freqs)), TABLE / RATE, TABLE - 1
    turn, start = int(width * TABLE), phase * RATE
    return [table[(i := int(p * scale)) & mask] - table[i + turn & mask] for p in accumulate(freqs, initial=start)][1:]


def fm(freqs, ratio, index):
    """A sine whose phase is moved by another at `ratio` times its frequency; `index` (radians) per sample."""
    scale, mask, turn = TABLE / RATE, TABLE - 1, TABLE / (2 * math.pi)
    return [SINE[int(p * scale + turn * i * SINE[int(p * ratio * scale) & mask]) & mask]
            for p, i in zip(accumulate(freqs), index)]


def bend(freq, n, semitones=0.0, tau=0.01):
    """A frequency per sample that starts `semitones` off and falls into `freq` with time constant `tau`."""
    if not semitones:
        return [freq] * n
    return [freq * 2 ** (semitones / 12 * e) for e in decay(n, tau)]


# --- envelopes and arithmetic ---

def decay(n, tau):
    """1 falling by the factor e in every `tau` seconds."""
    return list(accumulate(repeat(math.exp(-1 / (tau * RATE)), n - 1), mul, initial=1.0))


def times(*signals):
    """The product, as long as the shortest."""
    out = signals[0]
    for s in signals[1:]:
        out = list(map(mul, out, s))
    return out


def level(signal, factor):
    return list(map(mul, signal, repeat(factor)))


def plus(*signals):
    """The sum, as long as the longest."""
    out, *others = sorted(signals, key=len, reverse=True)
    for s in others:
        out = [*map(add, out, s), *out[len(s):]]
    return out


def faded(signal, attack, release):
    """The signal with a rise at its start and a fall to exactly 0 at its end."""
    out = list(signal)
    a, r = min(len(out), samples(attack)), min(len(out), samples(release))
    for i in range(a):
        out[i] *= 0.5 - 0.5 * math.cos(math.pi * i / a)
    for i in range(r):
        out[-1 - i] *= 0.5 - 0.5 * math.cos(math.pi * i / r)
    return out


# --- filters ---

def svf(signal, cutoffs, q=0.7, kind="low"):
    """State-variable filter, 12 dB per octave; kind is low, band or high.

    `cutoffs` in Hz: one number, or one for every CONTROL samples (the last one stays).
    """
    moving, k = not isinstance(cutoffs, (int, float)), 1 / q
    take_low, take_band = kind == "low", kind == "band"
    s1 = s2 = 0.0
    out = []
    for block, start in enumerate(range(0, len(signal), CONTROL if moving else max(1, len(signal)))):
        cutoff = cutoffs[min(block, len(cutoffs) - 1)] if moving else cutoffs
        g = math.tan(math.pi * min(cutoff, 0.45 * RATE) / RATE)
        a1 = 1 / (1 + g * (g + k))
        a2, a3 = g * a1, g * g * a1
        for x in signal[start:start + CONTROL] if moving else signal:
            v3 = x - s2
            v1 = a1 * s1 + a2 * v3
            v2 = s2 + a2 * s1 + a3 * v3
            s1, s2 = 2 * v1 - s1, 2 * v2 - s2
            out.append(v2 if take_low else v1 * k if take_band else x - k * v1 - v2)
    return out


def sweep(n, start, end, tau):
    """Cutoffs for svf over `n` samples: from `start` Hz to `end` Hz with time constant `tau`."""
    return [end + (start - end) * math.exp(-i * CONTROL / (tau * RATE)) for i in range(n // CONTROL + 1)]


def ear(signal):
    """The signal as loudness meters weigh it (ITU-R BS.1770): low end cut, head's treble raised."""
    for b0, b1, b2, a1, a2 in ((1.5308412300503478, -2.6509799951547297, 1.1690790799215869,
                                -1.6636551132560204, 0.7125954280732254),
                               (1.0, -2.0, 1.0, -1.9891696736297957, 0.9891990357870394)):
        z1 = z2 = 0.0
        out = []
        for x in signal:
            y = b0 * x + z1
            z1, z2 = b1 * x - a1 * y + z2, b2 * x - a2 * y
            out.append(y)
        signal = out
    return signal


def loudest(stereo, window=0.05):
    """Loudness (LUFS scale) of the loudest `window` seconds: how loud a short sound seems."""
    power = [a * a + b * b for a, b in zip(*map(ear, stereo))] + [0.0] * samples(window)
    total = list(accumulate(power, initial=0.0))
    w = samples(window)
    return -0.691 + 10 * math.log10(max(1e-12, max(b - a for a, b in zip(total, total[w:])) / w))


# --- mixing ---

class Bus:
    """Two sides of equal length that sounds are added to. A looping bus lets tails run into its start."""

    def __init__(self, length, loop=False):
        self.length, self.loop = length, loop
        self.sides = tuple(array.array("f", bytes(4 * length)) for _ in range(2))

    def add(self, stereo, at=0, factor=1.0, pan=0.0):
        """Adds a sound at sample `at`; pan is -1 (left) to 1 (right)."""
        for side, signal, f in zip(self.sides, stereo, (factor * min(1, 1 - pan), factor * min(1, 1 + pan))):
            start, done = at % self.length if self.loop else at, 0
            while done < len(signal) and start < self.length:
                n = min(len(signal) - done, self.length - start)
                side[start:start + n] = array.array("f", [
                    x + f * y for x, y in zip(side[start:start + n], signal[done:done + n])])
                done, start = done + n, 0 if self.loop else self.length
        return self

    def change(self, function, warm_up=0):
        """Replaces each side by function(side); a loop hears its last `warm_up` samples first."""
        w = warm_up if self.loop else 0
        self.sides = tuple(array.array("f", function(s[len(s) - w:] + s)[w:]) for s in self.sides)
        return self

    def echo(self, delay, feedback, factor):
        """Adds echoes `delay` samples apart that change sides each time and never end in a loop."""
        w = delay * ECHOES if self.loop else 0
        dry = [s[len(s) - w:] + s for s in self.sides]
        wet = [array.array("f", bytes(4 * delay)) for _ in dry]
        for p in range(0, len(dry[0]), delay):
            new = [[factor * x + feedback * y for x, y in zip(dry[1 - i][p:p + delay], wet[1 - i][p:p + delay])]
                   for i in (0, 1)]
            wet[0].extend(new[0])
            wet[1].extend(new[1])
        return self.add([s[w:w + self.length] for s in wet])


def room(signal, feedback):
    """Both sides of a mono signal's reverberation: four damped combs side by side, two all-passes in a row."""
    def run(side):
        n, wet = len(signal), array.array("f", bytes(4 * len(signal)))
        for d in (c + SPREAD * side for c in COMBS):
            y, half = array.array("f", bytes(4 * (d + 1))), feedback / 2
            for p in range(0, n, d):
                y.extend([x + half * (a + b) for x, a, b in zip(signal[p:p + d], y[p:p + d], y[p + 1:p + d + 1])])
            wet = array.array("f", list(map(add, wet, y[d + 1:])))
        for d in (a + SPREAD * side for a in ALLPASSES):
            x, y = array.array("f", bytes(4 * d)) + wet, array.array("f", bytes(4 * d))
            for p in range(0, n, d):
                y.extend([b - 0.5 * a + 0.5 * c for a, b, c in zip(x[p + d:p + 2 * d], x[p:p + d], y[p:p + d])])
            wet = y[d:]
        return wet
    signal = level(signal, ROOM_LEVEL)
    return run(0), run(1)


# --- files ---

def to_pcm(stereo):
    """Interleaved 16-bit samples in the machine's byte order, which for WAV must be little-endian."""
    out = array.array("h", bytes(4 * len(stereo[0])))
    for side, signal in enumerate(stereo):
        out[side::2] = array.array("h", [max(-32768, min(32767, round(32767 * x))) for x in signal])
    return out.tobytes()


def from_pcm(data):
    raw = array.array("h", data)
    return tuple(array.array("f", map(mul, raw[side::2], repeat(1 / 32768))) for side in (0, 1))


def write_wav(path, stereo):
    with wave.open(str(path), "wb") as f:
        f.setnchannels(2)
        f.setsampwidth(2)
        f.setframerate(RATE)
        f.writeframes(to_pcm(stereo))
