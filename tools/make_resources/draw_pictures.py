#!/usr/bin/env python3
"""Draws MyBook.jpg (the cover of a collection) and MyBack.jpg (a page's background): SVG by geometry, then rsvg-convert and ImageMagick."""

import math
import pathlib
import random
import subprocess
import tempfile

import girih

TARGET = pathlib.Path(__file__).resolve().parent.parent.parent / "Resources"
GOLD, PALE_GOLD, LAPIS, NIGHT, TURQUOISE, CREAM, POMEGRANATE = (
    "#c99a3f", "#f0d894", "#173f63", "#0c2440", "#2f8f93", "#f7ecd2", "#9c2f36")


def points(polygon):
    return " ".join(f"{x:.2f},{y:.2f}" for x, y in polygon)


def polygon(shape, **style):
    return f'<polygon points="{points(shape)}"{attributes(style)}/>'


def attributes(style):
    return "".join(f' {name.replace("_", "-")}="{value}"' for name, value in style.items())


def centre_of(shape):
    return sum(p[0] for p in shape) / len(shape), sum(p[1] for p in shape) / len(shape)


def strapwork(width, height, edge, origin, strap, layers, star_fill=None, rosette=None):
    """A girih field. `layers` are (colour, share of the strap's width), drawn one over the other."""
    decagons, bow_ties = girih.tiles(width, height, edge, origin)
    parts = []
    if star_fill:
        parts += [polygon(girih.star(d), fill=star_fill) for d in decagons]
    lines = "".join("M" + " L".join(f"{x:.2f} {y:.2f}" for x, y in line)
                    for tile in decagons + bow_ties for line in girih.strap_lines(tile))
    for colour, share in layers:
        parts.append(f'<path d="{lines}" fill="none" stroke="{colour}" stroke-width="{strap * share:.2f}" '
                     'stroke-linejoin="miter" stroke-linecap="round"/>')
    if rosette:
        parts += [flower(centre_of(d), edge * 0.56, 10, *rosette) for d in decagons]
    return "\n".join(parts)


def flower(centre, radius, petals, petal_fill, heart_fill):
    x, y = centre
    shape = f"M0 0 C{radius * .30:.2f} {-radius * .35:.2f} {radius * .22:.2f} {-radius * .85:.2f} 0 {-radius:.2f} " \
            f"C{-radius * .22:.2f} {-radius * .85:.2f} {-radius * .30:.2f} {-radius * .35:.2f} 0 0Z"
    leaves = "".join(f'<path d="{shape}" transform="rotate({360 * k / petals:.2f})" fill="{petal_fill}"/>' for k in range(petals))
    return f'<g transform="translate({x:.2f} {y:.2f})">{leaves}<circle r="{radius * .24:.2f}" fill="{heart_fill}"/></g>'


def arch(left, right, spring, top, bottom):
    """A four-centred arch over a rectangular niche, as path data."""
    middle, rise = (left + right) / 2, spring - top
    half = (right - left) / 2
    return (f"M{left} {bottom} L{left} {spring} "
            f"C{left} {spring - rise * .52:.1f} {left + half * .26:.1f} {spring - rise * .70:.1f} {middle} {top} "
            f"C{right - half * .26:.1f} {spring - rise * .70:.1f} {right} {spring - rise * .52:.1f} {right} {spring} "
            f"L{right} {bottom} Z")


def cypress_half_width(t):
    """Half the width of a cypress of height 1 at height t above its lowest leaves, as a share of the height."""
    return 0.15 * (1 - t) ** 0.62 * math.sin(math.pi / 2 * min(1.0, (t + 0.004) / 0.24)) ** 0.5


def cypress(x, base, height, name, dark, light, leaf_colours, seed):
    """A cypress of teardrop leaves inside a flame-shaped outline, its tip bent a little by the wind."""
    def bend(t):
        return 0.035 * height * max(0.0, t - 0.72) ** 2 / 0.0784

    steps = [k / 60 for k in range(61)]
    right = [(x + height * cypress_half_width(t) + bend(t), base - height * t) for t in steps]
    left = [(x - height * cypress_half_width(t) + bend(t), base - height * t) for t in reversed(steps)]
    outline = points(right + left)
    rng = random.Random(seed)
    leaves = []
    row = 0.985
    while row > 0.0:
        half = height * cypress_half_width(row)
        count = max(1, int(half * 2 / (height * 0.026)))
        for k in range(count):
            side = ((k + 0.5) / count * 2 - 1) + (0.5 / count if int(row * 1000) % 2 else 0)
            leaf_x, leaf_y = x + bend(row) + side * half * 0.96, base - height * row
            size = height * (0.030 + 0.012 * (1 - row)) * rng.uniform(.9, 1.1)
            colour = leaf_colours[min(len(leaf_colours) - 1, int((side + 1) / 2 * len(leaf_colours) + rng.uniform(-.6, .6)) if side > -1 else 0)]
            leaves.append(f'<path d="M0 {size * .55:.2f} C{-size * .5:.2f} {size * .1:.2f} {-size * .2:.2f} {-size * .7:.2f} 0 {-size:.2f} '
                          f'C{size * .2:.2f} {-size * .7:.2f} {size * .5:.2f} {size * .1:.2f} 0 {size * .55:.2f}Z" fill="{colour}" '
                          f'stroke="{dark}" stroke-width="{height * .0016:.2f}" '
                          f'transform="translate({leaf_x:.2f} {leaf_y:.2f}) rotate({side * 24:.1f})"/>')
        row -= 0.0175
    trunk = height * 0.017
    return (f'<path d="M{x - trunk} {base + height * .085} Q{x - trunk * .6} {base} {x - trunk * .7} {base - height * .1} L{x + trunk * .7} {base - height * .1} '
            f'Q{x + trunk * .6} {base} {x + trunk * 1.1} {base + height * .085} Z" fill="#5d3d24"/>'
            f'<clipPath id="{name}"><polygon points="{outline}"/></clipPath>'
            f'<polygon points="{outline}" fill="{light}"/><g clip-path="url(#{name})">{"".join(leaves)}</g>'
            f'<polygon points="{outline}" fill="none" stroke="{dark}" stroke-width="{height * .004:.2f}" stroke-linejoin="round"/>')


def hill(width, level, waves, bottom):
    line = [(k * width / 60, level + sum(a * math.sin(f * k / 60 * math.tau + p) for a, f, p in waves)) for k in range(61)]
    return points(line + [(width, bottom), (0, bottom)])


def bird(x, y, size, fill):
    s = size
    return (f'<path transform="translate({x} {y})" fill="{fill}" d="M0 0 C{-s * .25} {-s * .42} {-s * .75} {-s * .45} {-s} {-s * .18} '
            f'C{-s * .62} {-s * .26} {-s * .3} {-s * .05} 0 {s * .16} C{s * .3} {-s * .05} {s * .62} {-s * .26} {s} {-s * .18} '
            f'C{s * .75} {-s * .45} {s * .25} {-s * .42} 0 0Z"/>')


def tulip(x, y, size, fill, lean):
    s = size
    return (f'<g transform="translate({x} {y}) rotate({lean})"><path d="M0 0 Q{s * .1} {-s * .8} 0 {-s * 1.6}" stroke="#3f6b3a" stroke-width="{s * .11:.2f}" fill="none"/>'
            f'<path d="M0 0 C{-s * .5} {-s * .3} {-s * .5} {-s * .9} {-s * .38} {-s * 1.15} C{-s * .3} {-s * .7} {-s * .1} {-s * .4} 0 0Z" fill="#4f7d47"/>'
            f'<path d="M0 0 C{s * .45} {-s * .3} {s * .42} {-s * .7} {s * .34} {-s * .95} C{s * .26} {-s * .6} {s * .1} {-s * .4} 0 0Z" fill="#5b8a50"/>'
            f'<path d="M0 {-s * 1.4} C{-s * .5} {-s * 1.5} {-s * .42} {-s * 2.0} {-s * .34} {-s * 2.3} Q{-s * .18} {-s * 2.1} 0 {-s * 2.42} '
            f'Q{s * .18} {-s * 2.1} {s * .34} {-s * 2.3} C{s * .42} {-s * 2.0} {s * .5} {-s * 1.5} 0 {-s * 1.4}Z" fill="{fill}"/></g>')


def sun(x, y, radius):
    rays = "".join(f'<path d="M{-radius * .075:.2f} {-radius * 1.14:.2f} Q0 {-radius * (1.62 if k % 2 else 1.38):.2f} {radius * .075:.2f} {-radius * 1.14:.2f}Z" '
                   f'transform="rotate({360 * k / 32})" fill="#d79a3a"/>' for k in range(32))
    return (f'<g transform="translate({x} {y})">{rays}<circle r="{radius}" fill="#e7b34f"/><circle r="{radius * .88:.2f}" fill="none" stroke="#fbe9b7" stroke-width="1.4"/>'
            f'{flower((0, 0), radius * .8, 16, "#f4cf7c", "#d79a3a")}</g>')


def frame(inset, width, height, colour, thickness):
    return (f'<rect x="{inset}" y="{inset}" width="{width - 2 * inset}" height="{height - 2 * inset}" fill="none" '
            f'stroke="{colour}" stroke-width="{thickness}"/>')


def landscape(left, right, top, bottom):
    """What is seen through the arch: sky, sun, mountains, meadow, pool, cypresses, tulips and birds."""
    width, middle = right - left, (left + right) / 2
    parts = [f'<rect x="{left}" y="{top}" width="{width}" height="{bottom - top}" fill="url(#sky)"/>', sun(middle, 262, 62)]
    for level, waves, colour in ((450, ((22, 1.6, .4), (9, 3.7, 1.3)), "#c79a92"), (486, ((18, 1.3, 2.6), (8, 4.1, .2)), "#8d7f96"),
                                 (520, ((14, 1.1, 4.2), (5, 3.3, 2.0)), "#5f7f7b"), (556, ((9, .9, 1.0), (4, 2.6, 3.0)), "#6e9a5e")):
        parts.append(f'<polygon transform="translate({left} 0)" points="{hill(width, level, waves, bottom)}" fill="{colour}"/>')
    parts.append(cypress(middle - 118, 566, 190, "farLeft", "#1c4234", "#2c5d43", ("#24543f", "#2f6a4a", "#3d7c55"), 5))
    parts.append(cypress(middle + 118, 566, 190, "farRight", "#1c4234", "#2c5d43", ("#24543f", "#2f6a4a", "#3d7c55"), 6))
    parts.append(cypress(middle, 594, 400, "near", "#0f3328", "#1e5540", ("#17483a", "#1f5c44", "#2b7050", "#418a5e"), 7))
    pool_top, pool_bottom = 628, 690
    parts.append(f'<path d="M{middle - 66} {pool_top} L{middle + 66} {pool_top} L{middle + 122} {pool_bottom} L{middle - 122} {pool_bottom} Z" '
                 f'fill="url(#water)" stroke="#e9d6a6" stroke-width="5"/>')
    for k, (reach, y) in enumerate(((30, 640), (52, 652), (40, 664), (74, 676))):
        shift = (-1) ** k * 12
        parts.append(f'<path d="M{middle - reach + shift} {y} q{reach / 2} -4 {reach} 0 t{reach} 0" fill="none" stroke="#d5efea" stroke-width="1.6" opacity=".7"/>')
    rng = random.Random(11)
    for k in range(34):
        side = -1 if k % 2 else 1
        y = 592 + 112 * (k / 33)
        inner = 40 + (y - 600) * .95 if y > 606 else 34
        x = middle + side * (max(inner, 34) + 22 + rng.random() * (width / 2 - max(inner, 34) - 30))
        parts.append(tulip(round(x, 1), round(y, 1), 7.5 + 5.5 * (k / 33), rng.choice((POMEGRANATE, "#c2473f", "#e2a93f", "#f3e3c3")), round(rng.uniform(-9, 9), 1)))
    parts += [bird(middle - 96, 236, 17, "#5b3c46"), bird(middle - 66, 268, 11, "#5b3c46"), bird(middle + 104, 300, 13, "#5b3c46")]
    return "\n".join(parts)


def cover():
    width, height = 600, 800
    left, right, niche_top, spring, bottom = 122, 478, 122, 330, 690
    niche = arch(left, right, spring, niche_top, bottom)
    border = strapwork(width, height, 15.2, (300, 400), 2.6, ((NIGHT, 2.0), (PALE_GOLD, .9)), star_fill="#1f6f78", rosette=(CREAM, POMEGRANATE))
    field = strapwork(width, height, 24, (300, 122), 4.6, ((NIGHT, 1.9), (GOLD, 1.25), (PALE_GOLD, .45)), star_fill="#1d5680", rosette=("#3fa5a5", PALE_GOLD))
    return f'''<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}" viewBox="0 0 {width} {height}">
<defs>
<linearGradient id="sky" x1="0" y1="0" x2="0" y2="1"><stop offset="0" stop-color="#7fb2b5"/><stop offset=".28" stop-color="#e9dcb4"/><stop offset=".6" stop-color="#f3c98b"/><stop offset="1" stop-color="#dd9d7a"/></linearGradient>
<linearGradient id="water" x1="0" y1="0" x2="0" y2="1"><stop offset="0" stop-color="#57a9ad"/><stop offset="1" stop-color="#1f6a7d"/></linearGradient>
<radialGradient id="shade" cx=".5" cy=".46" r=".75"><stop offset=".55" stop-color="#000" stop-opacity="0"/><stop offset="1" stop-color="#000" stop-opacity=".42"/></radialGradient>
<linearGradient id="spine" x1="0" y1="0" x2="1" y2="0"><stop offset="0" stop-color="#000" stop-opacity=".45"/><stop offset=".5" stop-color="#fff" stop-opacity=".10"/><stop offset="1" stop-color="#000" stop-opacity="0"/></linearGradient>
<clipPath id="niche"><path d="{niche}"/></clipPath>
<clipPath id="band"><path clip-rule="evenodd" d="M22 22H578V778H22Z M76 76V724H524V76Z"/></clipPath>
<clipPath id="panel"><path d="M88 88H512V712H88Z"/></clipPath>
</defs>
<rect width="{width}" height="{height}" fill="{NIGHT}"/>
<g clip-path="url(#band)"><rect width="{width}" height="{height}" fill="{LAPIS}"/>{border}</g>
{frame(14, width, height, GOLD, 3)}{frame(21, width, height, PALE_GOLD, 1.4)}{frame(77, width, height, PALE_GOLD, 1.4)}{frame(83, width, height, GOLD, 4)}
<g clip-path="url(#panel)"><rect width="{width}" height="{height}" fill="{LAPIS}"/>{field}</g>
{frame(89, width, height, PALE_GOLD, 1.2)}
<path d="{niche}" fill="none" stroke="{NIGHT}" stroke-width="26"/>
<path d="{niche}" fill="none" stroke="{GOLD}" stroke-width="20"/>
<path d="{niche}" fill="none" stroke="{POMEGRANATE}" stroke-width="14"/>
<g clip-path="url(#niche)">{landscape(left, right, niche_top, bottom)}</g>
<path d="{niche}" fill="none" stroke="{GOLD}" stroke-width="4"/>
<path d="{niche}" fill="none" stroke="{PALE_GOLD}" stroke-width="1.2"/>
<rect width="{width}" height="{height}" fill="url(#shade)"/>
<rect x="582" width="18" height="{height}" fill="url(#spine)" transform="rotate(180 591 400)"/>
</svg>'''


def corner_scroll(scale):
    """A spiral of leaves for a page's corner, drawn for the upper left one."""
    leaf = "M0 0 C6 -10 18 -12 26 -4 C18 4 8 6 0 0Z"
    parts = ['<path d="M18 170 C18 70 70 18 170 18" fill="none" stroke-width="2.4"/>',
             '<path d="M40 132 C34 92 60 62 88 66 C112 70 114 102 92 104 C78 105 74 90 84 86" fill="none" stroke-width="2"/>',
             '<path d="M132 40 C92 34 62 60 66 88 C70 112 102 114 104 92 C105 78 90 74 86 84" fill="none" stroke-width="2"/>']
    for x, y, turn in ((19, 150, -130), (21, 124, -50), (28, 98, -135), (42, 72, -20), (72, 42, -70), (98, 28, 45), (124, 21, -40), (150, 19, 40), (40, 120, 30), (120, 40, 60)):
        parts.append(f'<path d="{leaf}" transform="translate({x} {y}) rotate({turn}) scale(.8)" stroke="none"/>')
    return f'<g transform="scale({scale})" stroke="#b98f4c" fill="#b98f4c">{"".join(parts)}{flower((30, 30), 17, 8, "#b98f4c", "#f3e6c8")}</g>'


def background():
    width, height = 1024, 768
    field = strapwork(width, height, 34, (width / 2, height / 2), 3.0, (("#cdb07a", 1.0), ("#fbf4e2", .4)), star_fill="#efe0bd")
    corners = "".join(f'<g transform="{t}">{corner_scroll(1.0)}</g>' for t in (
        "translate(16 16)", f"translate({width - 16} 16) scale(-1 1)", f"translate(16 {height - 16}) scale(1 -1)", f"translate({width - 16} {height - 16}) scale(-1 -1)"))
    return f'''<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}" viewBox="0 0 {width} {height}">
<defs>
<radialGradient id="paper" cx=".5" cy=".46" r=".75"><stop offset="0" stop-color="#fdf8ea"/><stop offset=".65" stop-color="#f8eed6"/><stop offset="1" stop-color="#ecdab2"/></radialGradient>
<radialGradient id="fade" cx=".5" cy=".5" r=".62"><stop offset=".30" stop-color="#000"/><stop offset="1" stop-color="#fff"/></radialGradient>
<mask id="edges"><rect width="{width}" height="{height}" fill="url(#fade)"/></mask>
<filter id="fibre" x="0" y="0" width="1" height="1"><feTurbulence type="fractalNoise" baseFrequency=".9 .35" numOctaves="3" seed="4"/><feColorMatrix values="0 0 0 0 .45  0 0 0 0 .34  0 0 0 0 .16  .16 .16 0 0 -.105"/></filter>
</defs>
<rect width="{width}" height="{height}" fill="url(#paper)"/>
<g mask="url(#edges)" opacity=".62">{field}</g>
<rect width="{width}" height="{height}" filter="url(#fibre)" opacity=".8"/>
<g opacity=".62">{corners}</g>
<rect x="16" y="16" width="{width - 32}" height="{height - 32}" fill="none" stroke="#b98f4c" stroke-width="2" opacity=".55"/>
<rect x="22" y="22" width="{width - 44}" height="{height - 44}" fill="none" stroke="#b98f4c" stroke-width=".8" opacity=".55"/>
</svg>'''


def render(svg, name, quality):
    with tempfile.TemporaryDirectory() as folder:
        source, picture = pathlib.Path(folder) / "a.svg", pathlib.Path(folder) / "a.png"
        source.write_text(svg, encoding="utf-8")
        subprocess.run(["rsvg-convert", "-o", picture, source], check=True)
        subprocess.run(["convert", picture, "-strip", "-interlace", "none", "-sampling-factor", "4:2:0", "-quality", str(quality), TARGET / name], check=True)
    print(f"{name}: {(TARGET / name).stat().st_size} bytes")


def main():
    TARGET.mkdir(exist_ok=True)
    render(cover(), "MyBook.jpg", 88)
    render(background(), "MyBack.jpg", 86)


if __name__ == "__main__":
    main()
