#!/usr/bin/env python3
"""Writes the two sounds of the program: data/sounds/click.wav, the tap of a
piece set down, and data/sounds/roll.wav, pieces swept together for a new
game. Both are short mono 16-bit files built from decaying noise and a low
knock, so that they can be made again at any time."""
import math
import random
import struct
import wave
from pathlib import Path

RATE = 22050


def knock(t, pitch, decay):
    return math.sin(2 * math.pi * pitch * t) * math.exp(-t / decay)


def click(rng, length=0.045, pitch=1900.0):
    samples = []
    for i in range(int(RATE * length)):
        t = i / RATE
        noise = rng.uniform(-1, 1) * math.exp(-t / 0.004)
        samples.append(0.55 * noise + 0.45 * knock(t, pitch, 0.008) + 0.25 * knock(t, 420.0, 0.012))
    return samples


def write(path, samples):
    peak = max(abs(s) for s in samples) or 1.0
    with wave.open(str(path), "wb") as out:
        out.setnchannels(1)
        out.setsampwidth(2)
        out.setframerate(RATE)
        out.writeframes(b"".join(struct.pack("<h", int(28000 * s / peak)) for s in samples))


def main():
    rng = random.Random(1958)
    folder = Path(__file__).resolve().parent.parent / "data" / "sounds"
    folder.mkdir(parents=True, exist_ok=True)
    write(folder / "click.wav", click(rng))

    roll = [0.0] * int(RATE * 0.42)
    at = 0.0
    for n in range(11):
        tap = click(rng, 0.04, rng.uniform(1300, 2400))
        start = int(at * RATE)
        gain = 0.5 + 0.5 * rng.random()
        for i, s in enumerate(tap):
            if start + i < len(roll):
                roll[start + i] += gain * s
        at += rng.uniform(0.02, 0.04)
    write(folder / "roll.wav", roll)


if __name__ == "__main__":
    main()
