#!/usr/bin/python3
"""Builds the models of Models/ in the data directory, their textures and their table.

A model is a list of groups of flat faces. There is no light in a scene: each face looks up, in the texture of its
model, how bright its material is in the direction it faces, and how dark near the ground. The same script gives the
same bytes.
"""

import math
import pathlib
import random
import struct
import zlib

MODELS = pathlib.Path(__file__).resolve().parent.parent / "Models"
LIGHT = (0.44, 0.80, 0.40)
SHADES = 64
BAND = 16
SEASONS = ("Spring", "Summer", "Autumn", "Winter")


# Vectors

def add(a, b):
    return tuple(x + y for x, y in zip(a, b))


def sub(a, b):
    return tuple(x - y for x, y in zip(a, b))


def mul(a, factor):
    return tuple(x * factor for x in a)


def cross(a, b):
    return (a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0])


def dot(a, b):
    return sum(x * y for x, y in zip(a, b))


def unit(a):
    return mul(a, 1 / (math.sqrt(dot(a, a)) or 1))


def mix(a, b, share):
    return tuple(x + (y - x) * share for x, y in zip(a, b))


def brightness(normal):
    """From 0.45 in the shade to 1.1 in the sun."""
    return 0.62 + 0.42 * max(0, dot(normal, unit(LIGHT))) + 0.12 * normal[1] - 0.06 * max(0, -normal[0])


# Pictures

def write_png(path, width, height, pixels):
    """pixels are rows from the top, of tuples of three or four numbers, alike."""
    channels = len(pixels[0])

    def chunk(tag, data):
        return struct.pack(">I", len(data)) + tag + data + struct.pack(">I", zlib.crc32(tag + data))

    def byte(value):
        return max(0, min(255, int(value + 0.5)))

    rows = b"".join(
        b"\0" + bytes(byte(value) for pixel in pixels[row * width:(row + 1) * width] for value in pixel)
        for row in range(height))
    header = struct.pack(">IIBBBBB", width, height, 8, 6 if channels == 4 else 2, 0, 0, 0)
    path.write_bytes(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(rows, 9))
                     + chunk(b"IEND", b""))


def colour(text):
    return tuple(int(text[i:i + 2], 16) for i in range(0, len(text), 2))


def write_palette(path, materials):
    """A band for each material, the first one at the bottom: darker to the left, and towards the band's lower edge."""
    height = BAND
    while height < BAND * len(materials):
        height *= 2
    pixels = []
    for y in reversed(range(height)):
        material = materials[min(y // BAND, len(materials) - 1)]
        depth = 0.74 + 0.26 * (y % BAND) / (BAND - 1)
        for x in range(SHADES):
            shade = (0.40 + 0.80 * x / (SHADES - 1)) * depth
            # What is dark is bluish, as under an open sky.
            tint = (1, 1, 1) if shade > 1 else (1 - 0.10 * (1 - shade), 1 - 0.04 * (1 - shade), 1 + 0.06 * (1 - shade))
            pixels.append(tuple(v * shade * t for v, t in zip(material, tint)) + tuple(material[3:]))
    write_png(path, SHADES, height, pixels)
    return height


# Shapes

class Model:
    """Faces by groups. A face is a material, and corners of a position and a height in the material's band."""

    def __init__(self, materials):
        self.materials = materials
        self.groups = []

    def group(self):
        self.groups.append([])
        return self

    def face(self, material, points, heights=None):
        normal = unit(cross(sub(points[1], points[0]), sub(points[2], points[0])))
        shade = max(0.0, min(1.0, (brightness(normal) - 0.40) / 0.80))
        band = self.materials.index(material)
        corners = []
        for point, height in zip(points, heights or [1.0] * len(points)):
            u = (0.5 + shade * (SHADES - 1)) / SHADES
            v = (band * BAND + 1.5 + height * (BAND - 3)) / self.texture_height()
            corners.append((point, (u, v)))
        self.groups[-1].append(corners)

    def texture_height(self):
        height = BAND
        while height < BAND * len(self.materials):
            height *= 2
        return height

    def hexahedron(self, material, low, high, dark=0.0):
        """low and high are four corners each, counter-clockwise from above; high is the top."""
        for i in range(4):
            j = (i + 1) % 4
            self.face(material, [low[i], high[i], high[j], low[j]], [dark, 1, 1, dark])
        self.face(material, list(reversed(high)) if normal_y(high) < 0 else high)
        self.face(material, low if normal_y(low) < 0 else list(reversed(low)), [dark] * 4)

    def box(self, material, low, high, dark=0.3):
        (x0, y0, z0), (x1, y1, z1) = low, high
        ring = [(x0, z0), (x1, z0), (x1, z1), (x0, z1)]
        self.hexahedron(material, [(x, y0, z) for x, z in ring], [(x, y1, z) for x, z in ring], dark)

    def beam(self, material, start, end, width, depth=None):
        """A beam of a rectangular section."""
        depth = depth or width
        along = unit(sub(end, start))
        side = unit(cross(along, (0, 1, 0) if abs(along[1]) < 0.9 else (0, 0, 1)))
        up = cross(side, along)
        corners = [add(mul(side, a * width / 2), mul(up, b * depth / 2)) for a, b in
                   ((-1, -1), (1, -1), (1, 1), (-1, 1))]
        for i in range(4):
            j = (i + 1) % 4
            self.face(material, [add(start, corners[j]), add(start, corners[i]), add(end, corners[i]),
                                 add(end, corners[j])])
        self.face(material, [add(start, c) for c in corners])
        self.face(material, [add(end, c) for c in reversed(corners)])

    def lathe(self, material, base, axis, profile, sides, dark=0.0):
        """Turns a profile, of distances along the axis and radii, around it."""
        axis = unit(axis)
        across = unit(cross(axis, (0, 0, 1) if abs(axis[2]) < 0.9 else (1, 0, 0)))
        other = cross(axis, across)
        length = profile[-1][0] - profile[0][0] or 1

        def ring(distance, radius):
            return [add(add(base, mul(axis, distance)),
                        add(mul(across, radius * math.cos(2 * math.pi * i / sides)),
                            mul(other, radius * math.sin(2 * math.pi * i / sides)))) for i in range(sides)]

        for (d0, r0), (d1, r1) in zip(profile, profile[1:]):
            h0 = dark + (1 - dark) * (d0 - profile[0][0]) / length
            h1 = dark + (1 - dark) * (d1 - profile[0][0]) / length
            lower, upper = ring(d0, r0), ring(d1, r1)
            for i in range(sides):
                j = (i + 1) % sides
                points = [lower[i], lower[j], upper[j], upper[i]]
                heights = [h0, h0, h1, h1]
                kept = [k for k in range(4) if points[k] not in points[:k]]
                if len(kept) >= 3:
                    self.face(material, [points[k] for k in kept], [heights[k] for k in kept])

    def clump(self, material, centre, radii, numbers):
        """A rough ball: an icosahedron whose corners are moved about."""
        t = (1 + math.sqrt(5)) / 2
        corners = [(-1, t, 0), (1, t, 0), (-1, -t, 0), (1, -t, 0), (0, -1, t), (0, 1, t), (0, -1, -t), (0, 1, -t),
                   (t, 0, -1), (t, 0, 1), (-t, 0, -1), (-t, 0, 1)]
        faces = [(0, 11, 5), (0, 5, 1), (0, 1, 7), (0, 7, 10), (0, 10, 11), (1, 5, 9), (5, 11, 4), (11, 10, 2),
                 (10, 7, 6), (7, 1, 8), (3, 9, 4), (3, 4, 2), (3, 2, 6), (3, 6, 8), (3, 8, 9), (4, 9, 5), (2, 4, 11),
                 (6, 2, 10), (8, 6, 7), (9, 8, 1)]
        placed = []
        for corner in corners:
            size = numbers.uniform(0.86, 1.12)
            placed.append(tuple(c + r * x * size for c, r, x in zip(centre, radii, unit(corner))))
        for face in faces:
            points = [placed[i] for i in face]
            self.face(material, points, [0.5 + 0.5 * (p[1] - centre[1]) / (1.12 * radii[1]) for p in points])

    def write_text(self, path):
        """Group by group, so that the extent of each is that of the groups up to it."""
        lines = []
        positions, coordinates = {}, {}
        for index, faces in enumerate(self.groups):
            body = []
            for corners in faces:
                line = "f"
                for point, coordinate in corners:
                    position = tuple(f"{x + 0.0:.4f}" for x in point)
                    pair = tuple(f"{x:.5f}" for x in coordinate)
                    if position not in positions:
                        positions[position] = len(positions) + 1
                        lines.append("v " + " ".join(position))
                    if pair not in coordinates:
                        coordinates[pair] = len(coordinates) + 1
                        lines.append("vt " + " ".join(pair))
                    line += f" {positions[position]}/{coordinates[pair]}/1"
                body.append(line)
            if index == 0:
                lines.append("vn 0 1 0")
            lines.append(f"g group{index + 1}")
            lines += body
        path.write_text("\n".join(lines) + "\n", encoding="ascii")

    def write_binary(self, path):
        data = struct.pack("<ci3f", b"n", 1, 0, 1, 0)
        count = 0
        for faces in self.groups:
            triangles = [t for c in faces for t in ([c[:3], [c[0], c[2], c[3]]] if len(c) == 4 else [c])]
            corners = [corner for triangle in triangles for corner in triangle]
            unique = list(dict.fromkeys(corners))
            number = {corner: count + i + 1 for i, corner in enumerate(unique)}
            count += len(unique)
            data += struct.pack("<ci", b"v", len(unique)) + b"".join(struct.pack("<3f", *p) for p, _ in unique)
            data += struct.pack("<ci", b"t", len(unique)) + b"".join(struct.pack("<2f", *t) for _, t in unique)
            data += struct.pack("<ci", b"f", len(triangles))
            data += b"".join(struct.pack("<3i", number[c], number[c], 1) for c in corners)
        path.write_bytes(data)


def normal_y(points):
    return cross(sub(points[1], points[0]), sub(points[2], points[0]))[1]


# The greenhouse: 3.2 wide along x, 5 long along z, with a bay for each unit of its length.

HALF_WIDTH, HALF_LENGTH, EAVES, RIDGE, PLINTH = 1.6, 2.5, 1.65, 2.65, 0.35
VENT_LENGTH = 0.72
VENT_BAYS = (-2, 0, 2)
SLOPE = math.hypot(HALF_WIDTH, RIDGE - EAVES)


def roof_point(side, share, z):
    """share is 0 at the ridge and 1 at the eaves."""
    return (side * HALF_WIDTH * share, RIDGE + (EAVES - RIDGE) * share, z)


def greenhouse():
    model = Model(["brick", "frame", "floor", "wood", "soil", "leaf", "bloom"])
    numbers = random.Random(1)
    # First, and small: it is what a touch on the model is measured by, which is to leave the vents alone.
    model.group().box("floor", (-0.08, 0, -0.08), (0.08, 0.012, 0.08))
    model.group().box("floor", (-HALF_WIDTH, -0.1, -HALF_LENGTH), (HALF_WIDTH, 0.01, HALF_LENGTH))
    model.group()
    w, l, t = HALF_WIDTH, HALF_LENGTH, 0.07
    for low, high in (((-w - t, -0.1, -l - t), (-w + t, PLINTH, l + t)), ((w - t, -0.1, -l - t), (w + t, PLINTH, l + t)),
                      ((-w, -0.1, -l - t), (w, PLINTH, -l + t)), ((-w, -0.1, l - t), (-0.5, PLINTH, l + t)),
                      ((0.5, -0.1, l - t), (w, PLINTH, l + t))):
        model.box("brick", low, high, 0.1)
    model.group()
    size = 0.085
    for i in range(6):
        z = -l + i
        for side in (-1, 1):
            model.beam("frame", (side * w, PLINTH, z), (side * w, EAVES, z), size)
            model.beam("frame", roof_point(side, 0, z), roof_point(side, 1, z), size)
    for side in (-1, 1):
        model.beam("frame", (side * w, EAVES, -l - 0.05), (side * w, EAVES, l + 0.05), 0.12)
        model.beam("frame", (side * w, 1.0, -l), (side * w, 1.0, l), 0.05)
        for end in (-l, l):
            model.beam("frame", (side * 0.5, PLINTH if end < 0 else 0, end), (side * 0.5, RIDGE - 0.31, end), 0.07)
    model.beam("frame", (0, RIDGE, -l - 0.06), (0, RIDGE, l + 0.06), 0.14)
    for end in (-l, l):
        model.beam("frame", (-w, EAVES, end), (w, EAVES, end), 0.07)
    for side in (-1, 1):
        for bay in VENT_BAYS:
            share = VENT_LENGTH / SLOPE
            model.beam("frame", roof_point(side, share, bay - 0.5), roof_point(side, share, bay + 0.5), 0.06)
    # Benches with what grows on them.
    model.group()
    for side in (-1, 1):
        x0, x1 = sorted((side * 0.6, side * 1.45))
        model.box("wood", (x0, 0.46, -2.3), (x1, 0.62, 2.3))
        model.box("soil", (x0 + 0.05, 0.62, -2.25), (x1 - 0.05, 0.645, 2.25))
        for z in (-2.1, 0, 2.1):
            for x in (x0 + 0.08, x1 - 0.08):
                model.box("wood", (x - 0.05, 0, z - 0.05), (x + 0.05, 0.46, z + 0.05))
    model.group()
    for side in (-1, 1):
        for i in range(8):
            z = -2.05 + i * 0.586
            for x in (0.83, 1.22):
                height = numbers.uniform(0.16, 0.30)
                centre = (side * x, 0.62 + height * 0.8, z + numbers.uniform(-0.04, 0.04))
                model.clump("leaf", centre, (0.17, height, 0.17), numbers)
                if (i + (x > 1)) % 2 == 0:
                    top = add(centre, (0, height * 0.75, 0.05))
                    model.clump("bloom", top, (0.075, 0.075, 0.075), numbers)
    return model


def glass():
    model = Model(["glass"])
    w, l = HALF_WIDTH, HALF_LENGTH
    model.group()
    for side in (-1, 1):
        for bay in range(-2, 3):
            top = VENT_LENGTH / SLOPE if bay in VENT_BAYS else 0
            a, b = bay - 0.5, bay + 0.5
            model.face("glass", [roof_point(side, top, a), roof_point(side, 1, a), roof_point(side, 1, b),
                                 roof_point(side, top, b)])
    model.group()
    for side in (-1, 1):
        x = side * w
        model.face("glass", [(x, PLINTH, -l), (x, PLINTH, l), (x, EAVES, l), (x, EAVES, -l)])
        z = side * l
        for x0, x1 in ((-w, -0.5), (-0.5, 0.5), (0.5, w)):
            low = 0 if side > 0 and x0 == -0.5 else PLINTH
            model.face("glass", [(x0, low, z), (x1, low, z), (x1, EAVES, z), (x0, EAVES, z)])
        model.face("glass", [(-w, EAVES, z), (w, EAVES, z), (0, RIDGE, z)])
    return model


def vent():
    """Level, around its centre; its hinge is at the lower x."""
    model = Model(["frame", "pane"])
    x, z, size = VENT_LENGTH / 2, 0.46, 0.07
    model.group()
    for side in (-1, 1):
        model.beam("frame", (-x, 0, side * (z - size / 2)), (x, 0, side * (z - size / 2)), size, 0.05)
        model.beam("frame", (side * (x - size / 2), 0, -z), (side * (x - size / 2), 0, z), size, 0.05)
    model.beam("frame", (-x, 0, 0), (x, 0, 0), 0.04, 0.04)
    model.group()
    for y, turn in ((0.01, 1), (-0.01, -1)):
        points = [(-x + size, y, -z + size), (-x + size, y, z - size), (x - size, y, z - size), (x - size, y, -z + size)]
        model.face("pane", points[::turn], [1, 1, 0, 0][::turn])
    return model


def tank():
    """Around its centre, 1.8 high."""
    model = Model(["body", "band", "foot", "gauge"])
    profile = [(0, 0.56), (0.04, 0.62), (1.34, 0.62), (1.5, 0.50), (1.58, 0.24), (1.6, 0)]
    model.group().lathe("body", (0, -0.75, 0), (0, 1, 0), profile, 20, 0.1)
    model.group()
    for y in (-0.55, 0.02, 0.50):
        model.lathe("band", (0, y, 0), (0, 1, 0), [(0, 0.62), (0, 0.645), (0.07, 0.645), (0.07, 0.62)], 20, 0.6)
    model.lathe("band", (0, 0.82, 0), (0, 1, 0), [(0, 0.14), (0.1, 0.14), (0.1, 0)], 12, 0.6)
    model.beam("gauge", (0.47, -0.5, 0.47), (0.47, 0.45, 0.47), 0.06)
    model.group()
    for i in range(4):
        angle = math.pi / 4 + i * math.pi / 2
        x, z = 0.46 * math.cos(angle), 0.46 * math.sin(angle)
        model.box("foot", (x - 0.07, -0.95, z - 0.07), (x + 0.07, -0.7, z + 0.07), 0)
    # A ladder of five rungs.
    for x in (-0.13, 0.13):
        model.beam("foot", (x, -0.95, -0.70), (x, 0.72, -0.70), 0.035)
    for i in range(6):
        model.beam("foot", (-0.13, -0.75 + 0.27 * i, -0.70), (0.13, -0.75 + 0.27 * i, -0.70), 0.03)
    return model


def pump():
    """Around its motor's middle, 0.35 above the ground; its outlet is at x 0.55."""
    model = Model(["motor", "metal", "base"])
    model.group().lathe("motor", (-0.36, 0, 0), (1, 0, 0), [(0, 0), (0, 0.15), (0.04, 0.19), (0.40, 0.19), (0.44, 0.15),
                                                            (0.44, 0.08)], 14, 0.8)
    for i in range(10):
        angle = 2 * math.pi * i / 10
        y, z = math.cos(angle), math.sin(angle)
        model.beam("motor", (-0.30, 0.2 * y, 0.2 * z), (0.02, 0.2 * y, 0.2 * z), 0.03)
    model.group()
    model.lathe("metal", (0.08, 0, 0), (1, 0, 0), [(0, 0.06), (0.06, 0.22), (0.20, 0.22), (0.26, 0.10), (0.40, 0.10)],
                14, 0.5)
    model.lathe("metal", (0.44, 0, 0), (1, 0, 0), [(0, 0.10), (0, 0.15), (0.05, 0.15), (0.05, 0)], 14, 0.6)
    model.lathe("metal", (0.21, 0.18, 0), (0, 1, 0), [(0, 0.09), (0.15, 0.09), (0.15, 0.13), (0.2, 0.13), (0.2, 0)], 12,
                0.5)
    model.group()
    model.box("base", (-0.42, -0.35, -0.24), (0.5, -0.26, 0.24), 0)
    for x in (-0.28, 0.1):
        model.box("base", (x, -0.26, -0.16), (x + 0.12, -0.1, 0.16), 0.2)
    return model


def valve():
    """Around its body, through which the pipe goes along x."""
    model = Model(["body", "wheel", "stem"])
    model.group()
    model.lathe("body", (-0.26, 0, 0), (1, 0, 0), [(0, 0), (0, 0.15), (0.05, 0.15), (0.05, 0.10), (0.16, 0.10),
                                                  (0.20, 0.16), (0.32, 0.16), (0.36, 0.10), (0.47, 0.10), (0.47, 0.15),
                                                  (0.52, 0.15), (0.52, 0)], 14, 0.6)
    model.lathe("body", (0, 0.12, 0), (0, 1, 0), [(0, 0.10), (0.12, 0.08), (0.12, 0)], 12, 0.4)
    model.group().beam("stem", (0, 0.2, 0), (0, 0.42, 0), 0.045)
    model.group()
    ring = [(0.2 * math.cos(2 * math.pi * i / 14), 0.40, 0.2 * math.sin(2 * math.pi * i / 14)) for i in range(14)]
    for i in range(14):
        model.beam("wheel", ring[i], ring[(i + 1) % 14], 0.05)
    for i in range(0, 14, 7):
        model.beam("wheel", ring[i], (0, 0.40, 0), 0.04)
    model.beam("wheel", ring[3], (0, 0.40, 0), 0.04)
    model.beam("wheel", ring[10], (0, 0.40, 0), 0.04)
    return model


def pipe():
    """A length of one, along x from the origin."""
    model = Model(["pipe"])
    model.group().lathe("pipe", (0, 0, 0), (0.06, 0, 0), [(0, 0), (0, 0.13), (0.05, 0.13), (0.05, 0.075)], 12, 0.5)
    model.group().lathe("pipe", (0.05, 0, 0), (1, 0, 0), [(0, 0.075), (0.90, 0.075)], 12, 0.5)
    model.lathe("pipe", (0.95, 0, 0), (1, 0, 0), [(0, 0.075), (0, 0.13), (0.05, 0.13), (0.05, 0)], 12, 0.5)
    return model


def tree():
    model = Model(["trunk", "crown", "crown2"])
    numbers = random.Random(7)
    model.group().lathe("trunk", (0, 0, 0), (0, 1, 0), [(0, 0.13), (0.12, 0.09)], 7, 0)
    model.group().lathe("trunk", (0, 0.12, 0), (0, 1, 0), [(0, 0.09), (0.55, 0.06)], 7, 0.3)
    model.group()
    model.clump("crown", (0, 0.95, 0), (0.46, 0.44, 0.46), numbers)
    model.clump("crown2", (0.18, 1.32, 0.06), (0.30, 0.30, 0.30), numbers)
    model.clump("crown2", (-0.24, 1.12, -0.16), (0.26, 0.26, 0.26), numbers)
    return model


# The terrain: a round island with soft hills around, and earth at its side. Its map covers the square around it.

ISLAND, RINGS, SECTORS, EARTH = 5.4, 15, 48, 0.125
MAP = 256


def height_at(x, z):
    distance = max(abs(x) / 2.3, abs(z) / 3.2)
    # Level, too, where the tank stands, and where the beds are.
    distance = min(distance, 1 + 0.8 * max(0, max(abs(x - 3.3) / 1.1, abs(z + 0.1) / 1.8) - 1),
                   1 + 0.8 * max(0, max(abs(x + 3.4) / 1.1, abs(z + 0.45) / 2.0) - 1))
    rise = max(0, min(1, (distance - 1) / 0.8))
    hills = 0.28 * math.sin(1.3 * x + 0.6) * math.cos(1.1 * z - 0.4) + 0.16 * math.sin(2.1 * z + 1.7 * x)
    return rise * rise * (3 - 2 * rise) * hills - 0.015


def terrain():
    model = Model(["map"])

    def put(points, coordinates):
        model.groups[-1].append([(tuple(p), tuple(c)) for p, c in zip(points, coordinates)])

    def coordinate(point):
        return ((point[0] / ISLAND + 1) / 2, EARTH + (1 - EARTH) * (0.004 + 0.992 * (1 - point[2] / ISLAND) / 2))

    def ground(ring, sector):
        angle = 2 * math.pi * (sector % SECTORS) / SECTORS
        x, z = ISLAND * ring / RINGS * math.cos(angle), ISLAND * ring / RINGS * math.sin(angle)
        return (x, height_at(x, z), z)

    # A stone in the middle, by which a touch is measured.
    model.group()
    put([(-0.05, -0.1, -0.05), (0.05, -0.1, -0.05), (0, -0.1, 0.05)], [(0.5, 0.02)] * 3)
    model.group()
    for sector in range(SECTORS):
        for ring in range(RINGS):
            points = [ground(ring, sector), ground(ring, sector + 1), ground(ring + 1, sector + 1),
                      ground(ring + 1, sector)]
            points = points[1:] if ring == 0 else points
            put(points, [coordinate(point) for point in points])
    model.group()
    for sector in range(SECTORS):
        points = []
        for end in (sector, sector + 1):
            x, y, z = ground(RINGS, end)
            ragged = -0.72 - 0.16 * math.sin(2.7 * (end % SECTORS)) - 0.10 * math.sin(1.1 * (end % SECTORS) + 2)
            points += [(x, y, z), (0.93 * x, ragged, 0.93 * z)]
        angle = 2 * math.pi * (sector + 0.5) / SECTORS
        shade = max(0.02, min(0.98, (brightness((math.cos(angle), 0, math.sin(angle))) - 0.5) / 0.45))
        put([points[0], points[2], points[3], points[1]], [(shade, EARTH * high) for high in (0.92, 0.92, 0.08, 0.08)])
    return model


def smooth_noise(numbers, cells):
    """Numbers from -1 to 1 over the map, with this many cells a side."""
    grid = [[numbers.uniform(-1, 1) for _ in range(cells + 1)] for _ in range(cells + 1)]

    def value(x, y):
        fx, fy = x * cells, y * cells
        i, j = min(int(fx), cells - 1), min(int(fy), cells - 1)
        sx, sy = fx - i, fy - j
        sx, sy = sx * sx * (3 - 2 * sx), sy * sy * (3 - 2 * sy)
        top = grid[j][i] + (grid[j][i + 1] - grid[j][i]) * sx
        low = grid[j + 1][i] + (grid[j + 1][i + 1] - grid[j + 1][i]) * sx
        return top + (low - top) * sy

    return value


SEASON_COLOURS = {
    "Spring": {"grass": "86b84e", "grass2": "9cc95c", "path": "cbbd9b", "soil": "7b5a3c", "crop": "8fd062",
               "spot": "f3d9ec", "spots": 0.010},
    "Summer": {"grass": "6f9e40", "grass2": "84ad49", "path": "d6c69f", "soil": "86633f", "crop": "4f8f34",
               "spot": "f2dc5a", "spots": 0.004},
    "Autumn": {"grass": "94943f", "grass2": "a8923f", "path": "bfae8b", "soil": "6d4c31", "crop": "c08a35",
               "spot": "c4622b", "spots": 0.020},
    "Winter": {"grass": "e4ebf1", "grass2": "f4f8fb", "path": "c4c6c8", "soil": "cfd6dc", "crop": "b3bcc2",
               "spot": "ffffff", "spots": 0.002},
}


def write_terrain_map(path, season):
    numbers = random.Random(3)
    colours = {key: colour(value) for key, value in SEASON_COLOURS[season].items() if isinstance(value, str)}
    coarse, fine = smooth_noise(numbers, 9), smooth_noise(numbers, 40)
    earth_rows = int(MAP * EARTH)
    pixels = []
    for row in range(MAP - earth_rows):
        for column in range(MAP):
            u, v = (column + 0.5) / MAP, (row + 0.5) / (MAP - earth_rows)
            x, z = (2 * u - 1) * ISLAND, (2 * v - 1) * ISLAND
            wobble = 0.05 * fine(u, v)
            ground = mix(colours["grass"], colours["grass2"], round(3 * (0.5 + 0.5 * coarse(u, v))) / 3)
            ground = mul(ground, 1 + 0.035 * round(2 * fine(u, v)))
            if numbers.random() < SEASON_COLOURS[season]["spots"]:
                ground = mix(ground, colours["spot"], 0.8)
            # Beds at one side, in rows along z.
            if -4.4 < x < -2.5 and -2.4 < z < 1.5:
                inside = (x + 4.45) % 0.65
                ground = mul(colours["soil"], 1 + 0.06 * round(2 * fine(u, v)))
                if 0.2 < inside < 0.52 and int(z * 5 + 50) % 2 == 0:
                    ground = mul(colours["crop"], 1 + 0.1 * round(fine(u, v)))
            # A path around the house, and one to the edge.
            around = abs(x) < 2.15 + wobble and abs(z) < 3.05 + wobble
            to_edge = abs(x - 0.35 * math.sin(1.2 * (z - 3))) < 0.42 + wobble and z > 2.5
            yard = abs(x - 3.2) < 1.05 + wobble and abs(z + 0.1) < 1.75 + wobble
            if around or to_edge or yard:
                ground = mul(colours["path"], 1 + 0.04 * round(2 * fine(v, u)))
            # The house's shadow falls away from the light.
            if abs(x + 0.5) < 1.75 and abs(z + 0.35) < 2.65:
                ground = mul(ground, 0.82)
            e = 0.05
            normal = unit((height_at(x - e, z) - height_at(x + e, z), 2 * e, height_at(x, z - e) - height_at(x, z + e)))
            light = 1 + 0.65 * (dot(normal, unit(LIGHT)) - unit(LIGHT)[1])
            pixels.append(mul(ground, light))
    # Earth, in layers, lighter to the right.
    top = mul(mix(colours["grass"], colours["soil"], 0.25), 0.8)
    for row in range(earth_rows):
        for column in range(MAP):
            layer = colour("7a5638") if row < earth_rows * 0.45 else colour("694a33")
            if row > earth_rows * 0.75:
                layer = colour("5a4233")
            ground = top if row < earth_rows * 0.24 else layer
            pixels.append(mul(ground, 0.72 + 0.42 * column / MAP))
    write_png(path, MAP, MAP, pixels)


# What there is

PALETTES = {
    "House/Greenhouse-White.png": ("b5694e", "f2f5f4", "c9c4b6", "a9794a", "5d4330", "5fa03c", "e2574c"),
    "House/Greenhouse-Green.png": ("a99f93", "3f7f63", "c2bfb4", "8d6a48", "5d4330", "6aa83f", "f0b73d"),
    "House/Vent.png": ("f2f5f4ff", "bfe6f2a0"),
    "Water/Tank-Steel.png": ("c3ccd4", "8b98a4", "6f7780", "3d8fd1"),
    "Water/Tank-Blue.png": ("5b9bd0", "3f72a3", "59636d", "e8f2fa"),
    "Water/Tank-Alarm.png": ("dd4a38", "8f2b22", "6f7780", "f4e9d8"),
    "Water/Pump-Blue.png": ("3f7fc4", "aab4bd", "5d666f"),
    "Water/Pump-Green.png": ("4f9b58", "aab4bd", "5d666f"),
    "Water/Pump-Alarm.png": ("f0a02c", "c9b089", "5d666f"),
    "Water/Valve.png": ("c8a04e", "d4483f", "9aa3ab"),
    "Water/Pipe.png": ("9fb0bd",),
    "Garden/Tree-Spring.png": ("8a6544", "8fc35a", "e9b7cf"),
    "Garden/Tree-Summer.png": ("7d5a3c", "4f8f3d", "62a347"),
    "Garden/Tree-Autumn.png": ("7d5a3c", "d08a34", "c2602f"),
    "Garden/Tree-Winter.png": ("6e5847", "dfe8ee", "f3f7fa"),
}

TABLE = """<?xml version="1.0" encoding="UTF-8"?>
<!-- Written by scripts/models; change data/art/models.py instead. -->
<Models>
  <Category id="House" path="House">
    <Model id="Greenhouse" file="Greenhouse.obj">
      <Variant id="White" file="Greenhouse-White.png" default="True"/>
      <Variant id="Green" file="Greenhouse-Green.png"/>
    </Model>
    <Model id="Glass" file="Glass.obj">
      <Colour id="Roof" colour="AliceBlue"/>
      <Colour id="Walls" colour="LightSkyBlue"/>
    </Model>
    <Model id="Vent" file="Vent.obj">
      <Variant id="White" file="Vent.png" default="True"/>
    </Model>
  </Category>
  <Category id="Water" path="Water">
    <Model id="Tank" file="Tank.obj">
      <Variant id="Steel" file="Tank-Steel.png" default="True"/>
      <Variant id="Blue" file="Tank-Blue.png"/>
      <Variant id="Alarm" file="Tank-Alarm.png"/>
      <Colour id="Body" colour="SteelBlue"/>
      <Colour id="Bands" colour="LightSteelBlue"/>
      <Colour id="Feet" colour="DimGray"/>
    </Model>
    <Model id="Pump" file="Pump.obj">
      <Variant id="Blue" file="Pump-Blue.png" default="True"/>
      <Variant id="Green" file="Pump-Green.png"/>
      <Variant id="Alarm" file="Pump-Alarm.png"/>
    </Model>
    <Model id="Valve" file="Valve.obj">
      <Variant id="Brass" file="Valve.png" default="True"/>
    </Model>
    <Model id="Pipe" file="Pipe.obj">
      <Variant id="Steel" file="Pipe.png" default="True"/>
    </Model>
  </Category>
  <Category id="Garden" path="Garden">
    <Model id="Terrain" file="Terrain.bobj">
{terrain}
    </Model>
    <Model id="Tree" file="Tree.obj">
{tree}
    </Model>
  </Category>
</Models>
"""


def variants(name):
    return "\n".join(f'      <Variant id="{season}" file="{name}-{season}.png"'
                     + (' default="True"' if season == "Summer" else "") + "/>" for season in SEASONS)


def main():
    for folder in ("House", "Water", "Garden"):
        (MODELS / folder).mkdir(parents=True, exist_ok=True)
    greenhouse().write_text(MODELS / "House/Greenhouse.obj")
    glass().write_text(MODELS / "House/Glass.obj")
    vent().write_text(MODELS / "House/Vent.obj")
    tank().write_text(MODELS / "Water/Tank.obj")
    pump().write_text(MODELS / "Water/Pump.obj")
    valve().write_text(MODELS / "Water/Valve.obj")
    pipe().write_text(MODELS / "Water/Pipe.obj")
    tree().write_text(MODELS / "Garden/Tree.obj")
    terrain().write_binary(MODELS / "Garden/Terrain.bobj")
    for name, materials in PALETTES.items():
        write_palette(MODELS / name, [colour(material) for material in materials])
    for season in SEASONS:
        write_terrain_map(MODELS / f"Garden/Terrain-{season}.png", season)
    (MODELS / "Models.xml").write_text(TABLE.format(terrain=variants("Terrain"), tree=variants("Tree")),
                                       encoding="utf-8")


if __name__ == "__main__":
    main()
