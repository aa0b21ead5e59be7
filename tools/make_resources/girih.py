"""Girih geometry: a plane of decagons and bow ties, and the strapwork lines that run through the middles of their edges.

The construction is the classical one: from the middle of every edge two lines run into the tile at 54 degrees to the edge,
and each ends where it meets its nearest partner.
"""

import math

CONTACT_ANGLE = math.radians(54)


def _add(a, b):
    return (a[0] + b[0], a[1] + b[1])


def decagon(centre, edge):
    radius = edge / (2 * math.sin(math.pi / 10))
    return [(centre[0] + radius * math.cos(math.radians(36 * k)),
             centre[1] + radius * math.sin(math.radians(36 * k))) for k in range(10)]


def _bow_tie(centre, edge, u, v):
    """The gap between the four decagons at centre, centre+u, centre+u+v and centre+v, from the edges they leave free."""
    corners = [decagon(_add(centre, shift), edge) for shift in ((0, 0), u, _add(u, v), v)]
    middle = _add(centre, ((u[0] + v[0]) / 2, (u[1] + v[1]) / 2))
    points = sorted((p for corner in corners for p in corner), key=lambda p: math.dist(p, middle))
    unique = []
    for point in points:
        if all(math.dist(point, other) > edge / 100 for other in unique):
            unique.append(point)
        if len(unique) == 6:
            break
    return sorted(unique, key=lambda p: math.atan2(p[1] - middle[1], p[0] - middle[0]))


def tiles(width, height, edge, origin=(0.0, 0.0)):
    """Decagons and bow ties that cover the rectangle, as two lists of polygons, alike to the left and right of the origin.

    Decagons touch edge to edge down each column, and the columns slip up and down in turn.
    """
    step = edge / math.tan(math.pi / 10)
    slip, across = step * math.cos(math.radians(72)), step * math.sin(math.radians(72))
    decagons, bow_ties = [], []
    for column in range(-int(origin[0] / across) - 3, int((width - origin[0]) / across) + 4):
        odd = column % 2
        for row in range(-int(origin[1] / step) - 3, int((height - origin[1]) / step) + 4):
            centre = (origin[0] + column * across, origin[1] + row * step + odd * slip)
            decagons.append(decagon(centre, edge))
            bow_ties.append(_bow_tie(centre, edge, (0.0, step), (across, -slip if odd else slip)))
    return decagons, bow_ties


def _rays(polygon):
    """Two rays for every edge: start, direction."""
    area = sum(a[0] * b[1] - b[0] * a[1] for a, b in zip(polygon, polygon[1:] + polygon[:1]))
    turn = 1 if area > 0 else -1
    for a, b in zip(polygon, polygon[1:] + polygon[:1]):
        middle = ((a[0] + b[0]) / 2, (a[1] + b[1]) / 2)
        along = math.atan2(b[1] - a[1], b[0] - a[0])
        for angle in (along + turn * CONTACT_ANGLE, along + turn * (math.pi - CONTACT_ANGLE)):
            yield middle, (math.cos(angle), math.sin(angle))


def _meeting(first, second):
    (p, d), (q, e) = first, second
    cross = d[0] * e[1] - d[1] * e[0]
    if math.dist(p, q) < 1e-6:
        return None
    if abs(cross) < 1e-9:
        ahead = (q[0] - p[0]) * d[0] + (q[1] - p[1]) * d[1]
        aside = (q[0] - p[0]) * d[1] - (q[1] - p[1]) * d[0]
        facing = d[0] * e[0] + d[1] * e[1] < 0
        if facing and ahead > 0 and abs(aside) < 1e-6:
            return math.dist(p, q), ((p[0] + q[0]) / 2, (p[1] + q[1]) / 2)
        return None
    s = ((q[0] - p[0]) * e[1] - (q[1] - p[1]) * e[0]) / cross
    t = ((q[0] - p[0]) * d[1] - (q[1] - p[1]) * d[0]) / cross
    if s < 1e-6 or t < 1e-6:
        return None
    return s + t, (p[0] + s * d[0], p[1] + s * d[1])


def strap_lines(polygon):
    """The strapwork of one tile: polylines of three points, from edge middle over the meeting point to edge middle."""
    rays = list(_rays(polygon))
    pairs = []
    for i, first in enumerate(rays):
        for j in range(i + 1, len(rays)):
            meeting = _meeting(first, rays[j])
            if meeting:
                pairs.append((round(meeting[0], 6), i, j, meeting[1]))
    used, lines = set(), []
    for _, i, j, point in sorted(pairs):
        if i in used or j in used:
            continue
        used.update((i, j))
        lines.append((rays[i][0], point, rays[j][0]))
    return lines


def star(polygon):
    """The ten-pointed star inside a decagon, as one polygon."""
    centre = (sum(p[0] for p in polygon) / 10, sum(p[1] for p in polygon) / 10)
    points = {(round(p[0], 3), round(p[1], 3)) for line in strap_lines(polygon) for p in line}
    return sorted(points, key=lambda p: math.atan2(p[1] - centre[1], p[0] - centre[0]))
