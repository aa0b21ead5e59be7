#!/usr/bin/env python3
"""Draws the pictures of Resources/Negareh, a small gallery of ornaments and gardens, with the means of draw_pictures.py."""

import math
import random

from draw_pictures import (CREAM, GOLD, LAPIS, NIGHT, PALE_GOLD, POMEGRANATE, TARGET, TURQUOISE, arch, bird, cypress, flower,
                           frame, hill, render, strapwork, sun, tulip)

FOLDER = "Negareh"
WIDTH, HEIGHT = 640, 480
MIDDLE = WIDTH / 2
QUALITY = 84
HILLS = ((300, ((20, 1.6, .4), (8, 3.7, 1.3)), "#b08a97"), (340, ((16, 1.3, 2.6), (7, 4.1, .2)), "#7f8fa0"),
         (380, ((12, 1.1, 4.2), (5, 3.3, 2.0)), "#5f8f7b"), (420, ((9, .9, 1.0), (4, 2.6, 3.0)), "#7ba35f"))


def sky(top, bottom):
    return (f'<defs><linearGradient id="sky" x1="0" y1="0" x2="0" y2="1"><stop offset="0" stop-color="{top}"/>'
            f'<stop offset="1" stop-color="{bottom}"/></linearGradient></defs><rect width="{WIDTH}" height="{HEIGHT}" fill="url(#sky)"/>')


def hills(count=4):
    return "".join(f'<polygon points="{hill(WIDTH, level, waves, HEIGHT)}" fill="{colour}"/>' for level, waves, colour in HILLS[-count:])


def girih():
    return (f'<rect width="{WIDTH}" height="{HEIGHT}" fill="{LAPIS}"/>'
            + strapwork(WIDTH, HEIGHT, 38, (MIDDLE, HEIGHT / 2), 7, ((NIGHT, 1.9), (GOLD, 1.25), (PALE_GOLD, .45)),
                        star_fill="#1d5680", rosette=("#3fa5a5", PALE_GOLD)))


def khatam():
    return (f'<rect width="{WIDTH}" height="{HEIGHT}" fill="#5b2f1c"/>'
            + strapwork(WIDTH, HEIGHT, 21, (MIDDLE, HEIGHT / 2), 4, ((NIGHT, 1.7), (CREAM, 1.0)), star_fill="#8c4a25", rosette=(PALE_GOLD, POMEGRANATE))
            + frame(14, WIDTH, HEIGHT, PALE_GOLD, 5) + frame(24, WIDTH, HEIGHT, NIGHT, 2))


def cypresses():
    leaves = ("#17483a", "#1f5c44", "#2b7050", "#418a5e")
    row = "".join(cypress(MIDDLE + side * 118, 436 + abs(side) * 6, 300 - abs(side) * 58, f"c{side + 2}", "#0f3328", "#1e5540", leaves, 7 + side)
                  for side in (-2, 2, -1, 1, 0))
    return sky("#86b8c4", "#f2dfb0") + hills() + row


def tulips():
    rng = random.Random(3)
    field = []
    for k in range(130):
        y = 300 + 180 * (k / 129)
        colour = rng.choice((POMEGRANATE, POMEGRANATE, "#c2473f", "#e2a93f", CREAM))
        field.append(tulip(round(rng.uniform(-10, WIDTH + 10), 1), round(y, 1), round(7 + 15 * (k / 129), 1), colour, round(rng.uniform(-9, 9), 1)))
    return sky("#9cc7d8", "#fbe9c4") + hills(3) + "".join(field)


def sunrise():
    return sky("#5a6f9c", "#f4b27a") + sun(MIDDLE, 250, 86) + hills()


def birds():
    rng = random.Random(21)
    flock = "".join(bird(round(rng.uniform(40, WIDTH - 40), 1), round(rng.uniform(50, 290), 1), round(rng.uniform(9, 24), 1), "#3b3350") for _ in range(26))
    return sky("#3f7f95", "#f6d6a0") + flock + hills(2)


def arcade():
    niches = []
    for k in range(3):
        left = 40 + 190 * k
        path = arch(left, left + 180, 210, 70, 450)
        niches.append(f'<clipPath id="n{k}"><path d="{path}"/></clipPath><g clip-path="url(#n{k})"><rect x="{left}" width="180" height="{HEIGHT}" fill="#f0dcae"/>'
                      f'{sun(left + 90, 200, 34)}{cypress(left + 90, 410, 190, f"a{k}", "#1c4234", "#2c5d43", ("#24543f", "#2f6a4a", "#3d7c55"), 30 + k)}'
                      f'<rect x="{left}" y="410" width="180" height="60" fill="#7ba35f"/></g>'
                      f'<path d="{path}" fill="none" stroke="{GOLD}" stroke-width="7"/>')
    wall = strapwork(WIDTH, HEIGHT, 17, (MIDDLE, 60), 3, ((NIGHT, 2.0), (PALE_GOLD, .9)), star_fill="#1f6f78", rosette=(CREAM, POMEGRANATE))
    return f'<rect width="{WIDTH}" height="{HEIGHT}" fill="{TURQUOISE}"/>{wall}{"".join(niches)}'


def pool():
    rings = "".join(f'<ellipse cx="{MIDDLE}" cy="330" rx="{60 + 44 * k}" ry="{22 + 16 * k}" fill="none" stroke="#d5efea" stroke-width="2" opacity="{.75 - .13 * k:.2f}"/>'
                    for k in range(5))
    lotus = flower((MIDDLE, 318), 46, 12, CREAM, POMEGRANATE)
    stars = "".join(flower((60 + 104 * k, 60 + 16 * math.sin(k)), 22, 8, PALE_GOLD, GOLD) for k in range(6))
    return (f'<rect width="{WIDTH}" height="{HEIGHT}" fill="{NIGHT}"/>{stars}'
            f'<path d="M120 190 L520 190 L620 460 L20 460 Z" fill="#2b7f93" stroke="{PALE_GOLD}" stroke-width="9"/>{rings}{lotus}')


PICTURES = {"Girih.jpg": girih, "Howz.jpg": pool, "Khatam.jpg": khatam, "Khorshid.jpg": sunrise, "Laleh.jpg": tulips, "Parandeh.jpg": birds,
            "Sarv.jpg": cypresses, "Taq.jpg": arcade}


def main():
    (TARGET / FOLDER).mkdir(parents=True, exist_ok=True)
    for name, draw in PICTURES.items():
        svg = f'<svg xmlns="http://www.w3.org/2000/svg" width="{WIDTH}" height="{HEIGHT}" viewBox="0 0 {WIDTH} {HEIGHT}">{draw()}</svg>'
        render(svg, f"{FOLDER}/{name}", QUALITY)


if __name__ == "__main__":
    main()
