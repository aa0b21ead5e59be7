#!/usr/bin/env python3
"""Plays two short pieces into MySound1.mp3 (Shur, santur) and MySound2.mp3 (Mahur, setar): plucked strings after Karplus and
Strong, a drone, tombak and daf, a small room; then lame makes MP3 of it. Everything is seeded, so each run gives the same music.
"""

import array
import math
import pathlib
import random
import subprocess
import tempfile
import wave

TARGET = pathlib.Path(__file__).resolve().parent.parent.parent / "Resources"
RATE = 32000
BITRATE = 80  # kbit/s
DRIVE = 2.3  # how far the highest peak is pushed into the soft limiter
STRING_LEVEL = 0.22  # the root mean square of a tone's first quarter of a second, so that high and low notes sound alike

# Cents above the tonic. Shur's second stands a quarter tone below the major one, and its fifth may sink by a quarter tone.
SHUR = (0, 150, 300, 500, 700, 800, 1000)
MAHUR = (0, 200, 395, 500, 700, 900, 1090)

# One bar of six to a word. Figures are scale degrees from 0; ' is an octave up, , an octave down, k a quarter tone lower;
# - lets the string ring, ~ is a tremolo on the last note, . is the low pedal string.
SHUR_OPENING = (("0", 1.5), ("1", .5), ("0", .35), ("1", .35), ("2~", 1.9), ("1", .3), ("2", .3), ("3", .3), ("2", .3), ("1~", 1.5),
                ("0", .35), ("6,", .35), ("0~", 2.0), ("", .5))
SHUR_BARS = ("0 . . 0 1 0", "2 . 1 0 . .", "0 . . 0 1 2", "3 . 2 1 . .",
             "2 2 3 4 . 3", "2 . 3 2 1 .", "1 1 2 3 . 2", "1 . 2 1 0 .",
             "4 . . 4 5 4", "3 . 4 5 6 5", "4k . 3 4k 3 2", "3~ - - 2 1 .",
             "0' . 6 5 4 .", "6 . 5 4k 3 .", "5 4 3 4k 3 2", "3 2 1 2 1 0",
             "2 . 1 0 1 2", "1 . 0 6, 0 1", "0 . . 0 . 6,", "0~ - - - - -")
MAHUR_BARS = ("0 - 2 4 - 2", "5 4 3 2 - .", "1 - 3 5 - 3", "4 3 2 1 - .",
              "0 2 4 0' - 6", "5 6 0' 5 4 -", "3 5 4 3 2 1", "2 1 6, 0 - .",
              "4 - 4 5 6 0'", "1' - 0' 6 5 -", "3 - 3 4 5 6", "0' - 6 5 4 -",
              "2' 1' 0' 1' 0' 6", "0' 6 5 6 5 4", "5 4 3 4 3 2", "3 2 1 2 1 0",
              "0 - 2 4 - 2", "5 4 3 2 - 4", "0' 6 5 4 3 2", "1 2 1 0 6, 1",
              "0~ - - - - -")


def frequency(note, scale, tonic):
    cents = scale[int(note[0])] + 1200 * note.count("'") - 1200 * note.count(",") - 50 * note.count("k")
    return tonic * 2 ** (cents / 1200)


class Strings:
    """One instrument's plucked tones, each computed once. `courses` strings sound together, a few cents apart."""

    def __init__(self, courses, brightness, ring, pick, seed):
        self.courses, self.brightness, self.ring, self.pick = courses, brightness, ring, pick
        self.random = random.Random(seed)
        self.known = {}

    def tone(self, pitch):
        key = round(pitch, 2)
        if key not in self.known:
            spread = (0, 3.2, -2.6, 1.4)[:self.courses]
            voices = [self._string(pitch * 2 ** (cents / 1200)) for cents in spread]
            mixed = [sum(samples) for samples in zip(*voices)]
            onset = mixed[:RATE // 4]
            level = STRING_LEVEL / math.sqrt(sum(value * value for value in onset) / len(onset))
            self.known[key] = [value * level for value in mixed]
        return self.known[key]

    def _string(self, pitch):
        period = RATE / pitch
        length = int(period - 0.5)
        rest = period - 0.5 - length
        tuning = (1 - rest) / (1 + rest)  # an all-pass takes the part of a sample that the line's length can't
        line = self._excitation(length)
        loss = 0.001 ** (period / RATE / self.ring)
        out, previous, passed, last = [], 0.0, 0.0, 0.0
        for i in range(int(RATE * self.ring * 0.8)):
            at = i % length
            value = line[at]
            out.append(value)
            averaged = loss * 0.5 * (value + previous)
            previous = value
            passed = tuning * (averaged - passed) + last
            last = averaged
            line[at] = passed
        return out

    def _excitation(self, length):
        noise, level = [], 0.0
        for _ in range(length):
            level += self.brightness * (self.random.uniform(-1, 1) - level)
            noise.append(level)
        mean = sum(noise) / length
        offset = max(1, int(length * self.pick))
        shaped = [noise[i] - 0.9 * noise[i - offset] - 0.1 * mean for i in range(length)]
        peak = max(abs(v) for v in shaped)
        return [v / peak for v in shaped]


class Tape:
    """Two channels of the recording."""

    def __init__(self, seconds):
        self.length = int(seconds * RATE)
        self.left, self.right = [0.0] * self.length, [0.0] * self.length

    def add(self, start, samples, gain, pan=0.0):
        begin = int(start * RATE)
        left, right = gain * math.sqrt(0.5 - pan / 2), gain * math.sqrt(0.5 + pan / 2)
        for i, value in enumerate(samples[:max(0, self.length - begin)], begin):
            self.left[i] += left * value
            self.right[i] += right * value

    def add_room(self, wet):
        for channel, spread in ((self.left, 0), (self.right, 23)):
            room = reverberated(channel, spread)
            for i, value in enumerate(room):
                channel[i] += wet * value

    def fade_and_save(self, path, seconds):
        fade = int(seconds * RATE)
        peak = max(max(map(abs, self.left)), max(map(abs, self.right)))
        data = array.array("h")
        for i in range(self.length):
            gain = 29000 * min(1.0, (self.length - i) / fade) ** 1.5
            data.append(int(math.tanh(self.left[i] * DRIVE / peak) * gain))
            data.append(int(math.tanh(self.right[i] * DRIVE / peak) * gain))
        with wave.open(str(path), "wb") as out:
            out.setnchannels(2)
            out.setsampwidth(2)
            out.setframerate(RATE)
            out.writeframes(data.tobytes())


def reverberated(signal, spread):
    """Schroeder's room: four combs side by side, then two all-passes in a row."""
    total = [0.0] * len(signal)
    for delay, feedback in ((1187, .80), (1277, .79), (1433, .77), (1559, .76)):
        line, at, low = [0.0] * (delay + spread), 0, 0.0
        for i, value in enumerate(signal):
            echo = line[at]
            low += 0.55 * (echo - low)
            line[at] = value + feedback * low
            total[i] += 0.25 * echo
            at = at + 1 if at + 1 < len(line) else 0
    for delay in (347, 113):
        line, at = [0.0] * (delay + spread), 0
        for i, value in enumerate(total):
            echo = line[at]
            line[at] = value + 0.5 * echo
            total[i] = echo - 0.5 * line[at]
            at = at + 1 if at + 1 < len(line) else 0
    return total


def tombak_low():
    out, phase = [], 0.0
    for i in range(int(RATE * .38)):
        t = i / RATE
        phase += math.tau * (74 + 60 * math.exp(-t * 38)) / RATE
        out.append(math.sin(phase) * math.exp(-t * 11))
    return out


def tombak_high(source):
    out, slow = [], 0.0
    for i in range(int(RATE * .11)):
        t = i / RATE
        noise = source.uniform(-1, 1)
        slow += 0.35 * (noise - slow)
        out.append((.55 * (noise - slow) * math.exp(-t * 75)) + .6 * math.sin(math.tau * 392 * t) * math.exp(-t * 48))
    return out


def daf_rings(source):
    partials = [(source.uniform(4200, 8800), source.uniform(0, math.tau)) for _ in range(9)]
    return [sum(math.sin(math.tau * f * i / RATE + p) for f, p in partials) / 9 * math.exp(-i / RATE * 26) * min(1, i / 120)
            for i in range(int(RATE * .16))]


def drone(tape, pitches, start, end, gain):
    length = int((end - start) * RATE)
    for number, pitch in enumerate(pitches):
        step = math.tau * pitch / RATE
        swell = math.tau * (.11 + .05 * number) / RATE
        samples = []
        for i in range(length):
            envelope = min(1.0, i / RATE / 2.5, (length - i) / RATE / 2.0) * (.75 + .25 * math.sin(swell * i))
            angle = step * i
            samples.append(envelope * (math.sin(angle) + .35 * math.sin(2.003 * angle) + .16 * math.sin(3.001 * angle)))
        tape.add(start, samples, gain / (number + 1), pan=.4 if number % 2 else -.4)


class Player:
    """A hand that never strikes twice alike: small changes of time and force, and tremolos."""

    def __init__(self, tape, strings, scale, tonic, pan, seed):
        self.tape, self.strings, self.scale, self.tonic, self.pan = tape, strings, scale, tonic, pan
        self.random = random.Random(seed)

    def strike(self, time, note, force):
        tone = self.strings.tone(frequency(note, self.scale, self.tonic))
        self.tape.add(max(0.0, time + self.random.gauss(0, .004)), tone, force * self.random.uniform(.88, 1.08), self.pan + self.random.uniform(-.12, .12))

    def tremolo(self, time, note, seconds, force):
        at, step = 0.0, .118
        while at < seconds:
            shape = .45 + .4 * math.sin(math.pi * min(1.0, at / seconds) ** .8)
            self.strike(time + at, note, force * (1.0 if at == 0 else shape))
            at += step
            step = max(.072, step * .985)

    def free(self, time, notes):
        for note, seconds in notes:
            if note.endswith("~"):
                self.tremolo(time, note[:-1], seconds * .92, .8)
            elif note:
                self.strike(time, note, .8)
            time += seconds
        return time

    def bars(self, time, bars, eighth, pedals):
        for bar in bars:
            for place, sign in enumerate(bar.split()):
                accent = (1.0, .68, .74, .86, .66, .72)[place]
                if sign == ".":
                    self.strike(time, pedals[place % len(pedals)], .48)
                elif sign.endswith("~"):
                    self.tremolo(time, sign[:-1], eighth * (bar.split()[place + 1:].count("-") + .8), .85)
                elif sign != "-":
                    self.strike(time, sign, accent)
                    if place == 0:
                        self.strike(time, pedals[0], .38)
                time += eighth
        return time


def rhythm(tape, start, bars, eighth, pattern, gain, seed):
    """Drums under whole bars: T the tombak's middle, k its rim, r the daf's rings."""
    source = random.Random(seed)
    low, high, rings = tombak_low(), tombak_high(source), daf_rings(source)
    for bar in range(bars):
        for place, sign in enumerate(pattern[bar % len(pattern)]):
            time = start + (bar * 6 + place) * eighth + source.gauss(0, .003)
            if sign == "T":
                tape.add(time, low, gain * source.uniform(.9, 1.1), .1)
            if sign in "kK":
                tape.add(time, high, gain * (.55 if sign == "K" else .3) * source.uniform(.8, 1.1), .2)
            if place in (0, 3):
                tape.add(time, rings, gain * .22 * source.uniform(.6, 1.1), -.45)


def shur():
    tape, tonic, eighth = Tape(37.0), 293.66, .197
    player = Player(tape, Strings(courses=3, brightness=.62, ring=3.0, pick=.13, seed=3), SHUR, tonic, -.08, 31)
    drone(tape, (tonic / 4, tonic * 3 / 8, tonic / 2), 0, 36.5, .075)
    start = player.free(.6, SHUR_OPENING)
    player.bars(start, SHUR_BARS, eighth, ("0,", "4,", "0,"))
    rhythm(tape, start + 12 * eighth, len(SHUR_BARS) - 3, eighth, ("T.kK.k", "T.kKkk", "T.kK.k", "TkkKTk"), .36, 8)
    tape.add_room(.42)
    return tape


def mahur():
    tape, tonic, eighth = Tape(32.0), 261.63, .212
    player = Player(tape, Strings(courses=2, brightness=.85, ring=1.9, pick=.09, seed=12), MAHUR, tonic, .08, 17)
    drone(tape, (tonic / 4, tonic * 3 / 8, tonic / 2), 0, 31.5, .06)
    start = 1.2
    player.bars(start, MAHUR_BARS, eighth, ("0,", "4,", "0,"))
    low = Player(tape, Strings(courses=2, brightness=.35, ring=2.6, pick=.2, seed=5), MAHUR, tonic / 2, -.3, 23)
    for bar in range(4, len(MAHUR_BARS) - 1):
        root = ("0", "3", "4", "0")[bar % 4]
        low.strike(start + bar * 6 * eighth, root, .42)
        low.strike(start + (bar * 6 + 3) * eighth, "4" if root == "0" else "0", .3)
    rhythm(tape, start + 24 * eighth, len(MAHUR_BARS) - 5, eighth, ("T.kKTk", "TkkK.k", "T.kKTk", "TkTKkk"), .34, 19)
    tape.add_room(.34)
    return tape


def encode(tape, name, title, fade):
    with tempfile.TemporaryDirectory() as folder:
        source = pathlib.Path(folder) / "a.wav"
        tape.fade_and_save(source, fade)
        subprocess.run(["lame", "--quiet", "-m", "j", "-b", str(BITRATE), "--resample", str(RATE / 1000), "--tt", title, source, TARGET / name], check=True)
    print(f"{name}: {(TARGET / name).stat().st_size} bytes")


def main():
    TARGET.mkdir(exist_ok=True)
    encode(shur(), "MySound1.mp3", "Shur", 4.0)
    encode(mahur(), "MySound2.mp3", "Mahur", 3.5)


if __name__ == "__main__":
    main()
