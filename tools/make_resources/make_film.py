#!/usr/bin/env python3
"""Makes Resources/Negareh/Parvaz.flv: the sun rises while a flock passes. Frames as SVG, then rsvg-convert and ffmpeg."""

import math
import pathlib
import random
import subprocess
import tempfile

import draw_gallery
from draw_pictures import TARGET, bird, sun

SECONDS, RATE = 5, 12
WIDTH, HEIGHT = draw_gallery.WIDTH, draw_gallery.HEIGHT


def flock(share):
    rng = random.Random(8)
    birds = []
    for _ in range(18):
        x, y, size, phase = rng.uniform(-WIDTH, 0), rng.uniform(60, 250), rng.uniform(9, 22), rng.uniform(0, math.tau)
        wings = size * (.75 + .25 * math.sin(phase + share * SECONDS * 9))
        birds.append(bird(round(x + share * WIDTH * 1.7, 1), round(y + 6 * math.sin(phase + share * 9), 1), round(wings, 2), "#3b3350"))
    return "".join(birds)


def picture(share):
    drawn = draw_gallery.sky("#5a6f9c", "#f4b27a") + sun(WIDTH / 2, 380 - 170 * share, 70) + draw_gallery.hills() + flock(share)
    return f'<svg xmlns="http://www.w3.org/2000/svg" width="{WIDTH}" height="{HEIGHT}" viewBox="0 0 {WIDTH} {HEIGHT}">{drawn}</svg>'


def main():
    target = TARGET / draw_gallery.FOLDER / "Parvaz.flv"
    with tempfile.TemporaryDirectory() as folder:
        for k in range(SECONDS * RATE):
            source = pathlib.Path(folder) / f"{k:03}.svg"
            source.write_text(picture(k / (SECONDS * RATE - 1)), encoding="utf-8")
            subprocess.run(["rsvg-convert", "-w", "320", "-o", source.with_suffix(".png"), source], check=True)
        subprocess.run(["ffmpeg", "-loglevel", "error", "-y", "-framerate", str(RATE), "-i", pathlib.Path(folder) / "%03d.png", "-c:v", "flv1",
                        "-q:v", "4", "-bitexact", target], check=True)
    print(f"{target.name}: {target.stat().st_size} bytes")


if __name__ == "__main__":
    main()
