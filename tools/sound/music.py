"""Plays score.txt: notes to stems, stems to one stereo signal that loops from its last sample to its first."""
import array
import configparser
import itertools
import math
import pathlib

import instruments as band
from synth import CONTROL, RATE, ROOM_TAIL, Bus, decay, gain, level, pitch, pitch_class, room, samples, svf

TITLE = "BlippyTrance"
STEPS, BARS = 16, 8               # steps in a bar, bars in a section
FRAME, FRAMES_PER_BAR = 1152, 68  # samples in an MP3 frame; a bar is whole frames, so the file ends on a bar
BAR = FRAME * FRAMES_PER_BAR      # samples; 68 frames a bar are 135.1 beats a minute
STEP = BAR // STEPS

SCORE = configparser.ConfigParser(delimiters="=")
SCORE.read_string(pathlib.Path(__file__).with_name("score.txt").read_text(encoding="utf-8"))
SECTIONS = [SCORE[name] for name in SCORE["music"]["form"].split()]
SCALE = [pitch_class(name) for name in SCORE["music"]["scale"].split()]
LENGTH = BAR * BARS * len(SECTIONS)  # samples

CHORDS = {"": (0, 4, 7), "m": (0, 3, 7), "m7": (0, 3, 7, 10), "maj7": (0, 4, 7, 11), "7sus4": (0, 5, 7, 10)}
PAD_RANGE = range(pitch("A3"), pitch("E5"))
BASS_FLOOR = pitch("A1")

MIX = {  # in dB; None: not at all
    #        level  ducked by the kick  echo  room
    "lead":  (-17.5, 1.0,  -11,  -12),
    "flute": (-21.5, 1.5,  None, -10),
    "bell":  (-19.0, 0.0,  -9,   -8),
    "arp":   (-17.0, 4.0,  -10,  -12),
    "pad":   (-20.5, 9.0,  None, -10),
    "bass":  (-15.0, 5.0,  None, None),
    "kick":  (-12.0, 0.0,  None, None),
    "drums": (-6.0,  0.0,  None, -15),
    "air":   (-21.0, 3.0,  None, -10),
}
DRUMS = {
    #         sound      level (dB)  pan
    "kick":  (band.kick,     0,    0.0),
    "clap":  (band.clap,     -2.5, 0.0),
    "snare": (band.snare,    -3,   0.0),
    "rim":   (band.rim,      -9,   0.35),
    "hat":   (band.hat,      -6,   -0.2),
    "shake": (band.hat,      -11,  0.3),
    "open":  (band.open_hat, -8,   -0.2),
}
WORDS = {"trim", "double", "chords", "lead", "flute", "bell", "bass", "arp", "shine", "pad", "rise", *DRUMS}
SOFT, OFFBEAT = -6.0, -1.2   # dB of a soft drum, and of a melody's notes between the beats
ARP_PANS = (-0.55, 0.35, -0.2, 0.55)
ECHO_STEPS, ECHO_FEEDBACK = 3, 0.38
ROOM_FEEDBACK, ROOM_FLOOR = 0.78, 220.0       # the floor in Hz keeps bass notes out of the room
DUCK_BACK, DUCK_DOWN = 0.115, 0.003           # seconds: time constant of the way up; way down before a kick
FILTERED = {"pad": "pad", "arp": "shine"}     # stems with a moving filter and the score's word for its way
WOBBLE, WOBBLE_BARS, WARM_UP = 0.22, 4, 2048  # share by which the filters breathe, period; samples to settle in
MASTER = -1.5                                 # dB, chosen so that the loop measures about -18 LUFS
CEILING = gain(-5.0)                          # nothing gets louder; rounding off starts at half of it
BREATH, BREATH_DB = 0.150, -26.0              # the loop's last seconds sink by so much: nothing is cut at the joint


def bars(section, part):
    """The eight bars of a pattern as one text."""
    words = []
    for word in section.get(part, "." * STEPS).split():
        words.extend([words[-1]] * (int(word[1:]) - 1) if word[0] == "*" else [word])
    if any(len(word) != STEPS for word in words) or len(words) > BARS:
        raise ValueError(f"[{section.name}] {part}: a bar is not {STEPS} steps or there are more than {BARS}")
    return "".join(itertools.islice(itertools.cycle(words), BARS))


def melody(section, part):
    """(step, steps, pitch) of every note."""
    at = 0
    for number, bar in enumerate(section.get(part, "").replace("\n", "|").split("|") if part in section else (), 1):
        for note, _, steps in (word.partition(":") for word in bar.split()):
            if note != "-":
                yield at, int(steps), pitch(note)
            at += int(steps)
        if at != number * STEPS:
            raise ValueError(f"[{section.name}] {part}: bar {number} is not {STEPS} steps: {bar}")


def chords(section):
    """(step, steps, pitch classes, pitch class of the bass) of every chord."""
    out = []
    for number, bar in enumerate(section["chords"].split()):
        names = bar.split(",")
        for i, name in enumerate(names):
            steps = STEPS // len(names)
            body, _, under = name.partition("/")
            root = body[:2] if body[1:2] in ("#", "b") else body[:1]
            if name != "-":
                tones = frozenset((pitch_class(root) + t) % 12 for t in CHORDS[body[len(root):]])
                out.append((number * STEPS + i * steps, steps, tones, pitch_class(under or root)))
    return out


def voicing(tones, before):
    """The four voices that hold all tones and move least from the chord before."""
    choices = [v for v in itertools.combinations([p for p in PAD_RANGE if p % 12 in tones], 4)
               if {p % 12 for p in v} == tones and all(b - a <= 7 for a, b in zip(v, v[1:]))]
    return min(choices, key=lambda v: (sum(abs(a - b) for a, b in zip(v, before)), v))


def low(tone):
    return BASS_FLOOR + (tone - BASS_FLOOR) % 12


def bass_notes(tones, root, following):
    """What the letters of a bass line mean under a chord, before a chord whose bass is `following`."""
    fifth = min(tones, key=lambda t: (abs((t - root) % 12 - 7), t))
    way = (-1, -2) if low(following) > low(root) else (1, 2)
    step = next(w for w in way if (following + w) % 12 in SCALE)
    return {"r": low(root), "o": low(root) + 12, "f": low(root) + (fifth - root) % 12, "n": low(following) + step}


def seconds(steps):
    return steps * STEP / RATE


def play_melodies(put, section):
    octave_below = section.getfloat("double")
    for part, sound, share, least in (("lead", band.lead, 0.9, 0), ("flute", band.flute, 0.95, 0),
                                      ("bell", band.bell, 2, 0.5)):
        for step, steps, note in melody(section, part):
            accent, length = OFFBEAT if step % 4 else 0, max(least, seconds(steps * share))
            put(part, step, sound(note, length), accent)
            if part == "lead" and octave_below is not None:
                put(part, step, sound(note - 12, length), accent + octave_below)


def play_harmony(put, section, voices):
    """Pad, arpeggio and bass; returns the last voicing for the next section to lead on from."""
    arp, line, plan = bars(section, "arp"), bars(section, "bass"), chords(section)
    for (start, steps, tones, root), following in zip(plan, plan[1:] + plan[-1:]):
        voices, letters = voicing(tones, voices), bass_notes(tones, root, following[3])
        for note in voices if "pad" in section else ():
            put("pad", start, band.pad(note, seconds(steps)))
        for s in range(start, start + steps):
            if arp[s].isdigit():
                octave, voice = divmod(int(arp[s]), len(voices))
                put("arp", s, band.pluck(voices[voice] + 12 * octave, seconds(1)), -2 if s % 4 else 0,
                    ARP_PANS[s % len(ARP_PANS)])
            if line[s] in letters:
                held = 1 + len(line[s + 1:]) - len(line[s + 1:].lstrip("-"))
                put("bass", s, band.bass(letters[line[s]], seconds(0.9 * min(held, start + steps - s))))
    return voices


def play_drums(put, section):
    for name, (sound, db, pan) in DRUMS.items():
        for step, stroke in enumerate(bars(section, name)):
            if stroke != ".":
                put("kick" if name == "kick" else "drums", step, sound(), db + (SOFT if stroke == "o" else 0), pan)
    put("air", 0, band.splash())
    for step, stroke in enumerate(bars(section, "rise")):
        if stroke != ".":
            put("air", step, band.rise(seconds(2 * STEPS - 2)))


def write_notes(stems):
    """Plays all sections into the stems."""
    voices = [pitch(note) for note in ("D4", "F#4", "A4", "D5")]
    for number, section in enumerate(SECTIONS):
        if not set(section) <= WORDS:
            raise ValueError(f"[{section.name}]: nobody plays {', '.join(set(section) - WORDS)}")
        trim = dict(word.split(":") for word in section.get("trim", "").split())

        def put(stem, step, sound, db=0.0, pan=0.0):
            at = (number * BARS * STEPS + step) * STEP
            stems[stem].add(sound, at, gain(db + float(trim.get(stem, 0))), pan)

        play_melodies(put, section)
        voices = play_harmony(put, section, voices)
        play_drums(put, section)


def pumping():
    """How far the ducking has a stem down, per sample: 1 at a kick, falling back to 0 until the next."""
    kicks = [s * STEP for s, c in enumerate("".join(bars(section, "kick") for section in SECTIONS)) if c != "."]
    way_back, soft = decay(samples(9 * DUCK_BACK), DUCK_BACK), samples(DUCK_DOWN)
    curve = array.array("f", bytes(4 * LENGTH))
    for at, following in zip(kicks, kicks[1:] + [LENGTH]):
        n = min(len(way_back), following - at)
        curve[at:at + n] = array.array("f", way_back[:n])
    for at in (k - soft for k in kicks if k):
        curve[at:at + soft] = array.array("f", [c + (1 - c) * i / soft for i, c in enumerate(curve[at:at + soft])])
    return curve


def filter_way(key):
    """Cutoffs for svf through the whole form, with WARM_UP samples of the end in front."""
    out, blocks, period = [], BAR * BARS // CONTROL, WOBBLE_BARS * BAR // CONTROL
    for section in SECTIONS:
        a, b = map(float, section.get(key, "1000-1000").split("-"))
        out += [a * (b / a) ** (i / blocks) for i in range(blocks)]
    out = [c * (1 - WOBBLE * math.cos(2 * math.pi * i / period)) for i, c in enumerate(out)]
    return out[-WARM_UP // CONTROL:] + out


def soften(x, knee=CEILING / 2):
    """Leaves quiet samples alone and bends loud ones towards the ceiling."""
    over = abs(x) - knee
    return x if over <= 0 else math.copysign(knee + (CEILING - knee) * math.tanh(over / (CEILING - knee)), x)


def master(sides):
    """Rounds peaks off, takes any offset out and lets the end of the loop breathe out."""
    loud, n, out = gain(MASTER), samples(BREATH), []
    for side in sides:
        soft = [soften(x * loud) for x in side]
        offset = math.fsum(soft) / LENGTH
        sink = [(x - offset) * gain(BREATH_DB * i / n) for i, x in enumerate(soft[-n:])]
        out.append(array.array("f", [x - offset for x in soft[:-n]] + sink))
    return out


def render(keep_stem=lambda name, sides: None):
    """The loop as (left, right). Hands each finished stem to `keep_stem` on its way into the mix."""
    stems, ducking = {name: Bus(LENGTH, loop=True) for name in MIX}, pumping()
    write_notes(stems)
    total, send = Bus(LENGTH, loop=True), array.array("f", bytes(4 * LENGTH))
    for name, (db, down, echo, reverb) in MIX.items():
        stem = stems.pop(name)
        if name in FILTERED:
            way = filter_way(FILTERED[name])
            stem.change(lambda s: svf(s, way, 0.9), WARM_UP)
        if echo is not None:
            stem.echo(ECHO_STEPS * STEP, ECHO_FEEDBACK, gain(echo))
        loud, less = gain(db), gain(db) - gain(db - down)
        stem.change(lambda s: [x * (loud - less * d) for x, d in zip(s, ducking)] if down else level(s, loud))
        keep_stem(name, stem.sides)
        total.add(stem.sides)
        if reverb is not None:
            wet = gain(reverb)
            send = array.array("f", [x + wet * (a + b) for x, a, b in zip(send, *stem.sides)])
    tail = samples(ROOM_TAIL)
    wet = [w[tail:] for w in room(svf(send[-tail:] + send, ROOM_FLOOR, 0.7, "high"), ROOM_FEEDBACK)]
    keep_stem("room", wet)
    return master(total.add(wet).sides)
