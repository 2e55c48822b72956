#!/usr/bin/env python3
"""Makes the seeds of the fuzz targets, a folder for each in OUTPUT, of the files that are shipped and of the tests'
cases; and their dictionaries, of those in the folder dictionaries and of the schemas. Usage: seeds.py OUTPUT

Small seeds are worth more than large ones, so files are cut where they can be, and left out where they can't.
"""

import copy
import pathlib
import re
import shutil
import struct
import sys
import xml.etree.ElementTree as xml
import zlib

ROOT = pathlib.Path(__file__).resolve().parent.parent
DATA = ROOT / "data"
GREENHOUSE = ROOT / "demo/greenhouse"
TESTS = ROOT / "tests/data"


def read(path):
    return path.read_bytes()


def cut(path, kept):
    """A file's parts of at most so many of the root element's children, each in a root element of its own."""
    root = xml.parse(path).getroot()
    for start in range(0, len(root), kept):
        part = copy.copy(root)
        part[:] = root[start : start + kept]
        yield xml.tostring(part)


def cut_twice(path, kept):
    """The same by the children of the root element's children."""
    root = xml.parse(path).getroot()
    for child in root:
        for start in range(0, max(len(child), 1), kept):
            part = copy.copy(child)
            part[:] = child[start : start + kept]
            whole = copy.copy(root)
            whole[:] = [part]
            yield xml.tostring(whole)


def layouts():
    for path in sorted((GREENHOUSE / "Layouts").glob("*.xml")):
        yield from cut_twice(path, 1)


def bobj():
    def record(tag, layout, *items):
        return tag + struct.pack("<i", len(items)) + b"".join(struct.pack(layout, *item) for item in items)

    points = record(b"v", "<3f", (0, 0, 0), (1, 0, 0), (0, 1, 0), (0, 0, -1.5))
    coordinates = record(b"t", "<2f", (0, 0), (1, 0), (0, 1))
    normals = record(b"n", "<3f", (0, 0, 1))
    triangles = record(b"f", "<9i", (1, 1, 1, 2, 2, 1, 3, 3, 1), (1, 1, 1, 3, 2, 1, 4, 3, 1))
    yield points + coordinates + normals + triangles
    yield points + coordinates + triangles + points + triangles
    yield points + coordinates + record(b"f", "<9i", (0, 1, 1, 9, 2, 1, -1, 3, 1))
    yield points[:-5]
    yield b"v" + struct.pack("<i", -1)


def png(width, height, colour_type, depth=8, interlaced=0):
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    channels = {0: 1, 2: 3, 3: 1, 4: 2, 6: 4}[colour_type]
    row = b"\0" + bytes(range(1, 1 + width * channels * depth // 8))
    palette = chunk(b"PLTE", bytes(range(48))) if colour_type == 3 else b""
    head = struct.pack(">2I5B", width, height, depth, colour_type, 0, 0, interlaced)
    pixels = chunk(b"IDAT", zlib.compress(row * height))
    return b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", head) + palette + pixels + chunk(b"IEND", b"")


def pngs():
    return [png(3, 2, 2), png(3, 2, 6), png(4, 4, 6, interlaced=1), png(2, 2, 0), png(2, 2, 3), png(2, 2, 2, depth=16)]


def evdev():
    def stream(first, *events):
        return bytes([first]) + b"".join(struct.pack("<qqHHi", 0, 0, *event) for event in events)

    syn, down, up = (0, 0, 0), (1, 0x14A, 1), (1, 0x14A, 0)
    for first, x, y in ((1, 3, 2), (0, 0, 1), (3, 3, 2), (2, 0, 1)):
        touch = stream(first, down, (3, x, 2000), (3, y, 2500), syn, (3, x, 2100), syn, up, syn)
        yield touch
        yield touch[:-7]
    yield stream(0, (3, 0, 1000), (3, 1, 1000), syn, syn, (3, 0, 1010), syn, up, syn)
    yield stream(1, (3, 3, -(2**31)), (3, 2, 2**31 - 1), down, syn, (0, 3, 0), (3, 0x35, 5), syn)


def greenhouse():
    def tap(x, y):
        return bytes([9, x * 256 // 800, y * 256 // 480])

    paint, step = b"\x08", b"\x07"
    rail = [tap(50, y) for y in range(60, 480, 60)]
    yield b"".join(page + paint for page in rail)
    for page in rail:
        yield page + step + b"".join(tap(x, y) for x in range(150, 800, 130) for y in range(60, 480, 80)) + paint
    yield rail[3] + bytes([3, 100, 100, 200, 150, 6, 200]) + step * 20 + paint
    yield b"".join(bytes([4, letter]) for letter in b"abc123") + bytes([5, 8, 5, 13]) + paint


def styles():
    """The tests' own three files in one, and each with a part of what is shipped."""
    def joined(*parts):
        root = xml.Element("Gfx")
        for part in parts:
            node = xml.fromstring(part)
            root.extend(node if node.tag == "Gfx" else [node])
        return xml.tostring(root)

    theme = read(TESTS / "Configuration/ThemeConfig.xml")
    textures = read(TESTS / "TextureMaps/TextureConfig.xml")
    yield joined(read(TESTS / "Configuration/GfxConfig.xml"), theme, textures)
    for part in cut(DATA / "Configuration/GfxConfig.xml", 1):
        yield joined(part, theme, textures)
    for part in cut_twice(DATA / "Configuration/ThemeConfig.xml", 20):
        yield joined(part, textures)


CALIBRATION = b"""# The panel
[gfx]
cal_a=-0.200846
cal_b=0.00276
cal_c=808.74646
cal_d=-0.002662
cal_e=0.126323
cal_f=-14.403945
calibrated=true

[network]
address=10.0.0.1
"""

# By target: what its seeds are, and what its dictionary is made of.
TARGETS = {
    "BobjFuzz": (bobj, []),
    "CalibrationFuzz": (lambda: [CALIBRATION, CALIBRATION.replace(b"true", b"false"), CALIBRATION.replace(b"8", b"e9"),
                                 b"[gfx]\ncalibrated=1\ncal_a=nan\ncal_b=inf\n"], ["calibration.dict"]),
    "CatalogueFuzz": (lambda: cut(GREENHOUSE / "Localisation/de.xml", 20), ["xml.dict", "localisation.xsd"]),
    "ConfigFuzz": (lambda: [read(TESTS / "Configuration/GfxConfig.xml"),
                            *cut(DATA / "Configuration/GfxConfig.xml", 1)], ["xml.dict", "configuration.xsd"]),
    "EvdevFuzz": (evdev, []),
    "GreenhouseFuzz": (greenhouse, []),
    "ImageFuzz": (pngs, ["png.dict"]),
    "KeyboardFuzz": (lambda: [read(TESTS / "Configuration/OSK.xml"), *cut(DATA / "Configuration/OSK.xml", 1)],
                     ["xml.dict", "keyboards.xsd"]),
    "LayoutFuzz": (lambda: [*map(read, sorted(TESTS.glob("LayoutCases/*.xml"))), *layouts()],
                   ["xml.dict", "layouts.dict", "layouts.xsd", "properties.md"]),
    "ModelsFuzz": (lambda: [read(DATA / "Models/Models.xml"), *cut_twice(DATA / "Models/Models.xml", 1)],
                   ["xml.dict", "models.xsd"]),
    "ObjFuzz": (lambda: map(read, sorted(DATA.glob("Models/*/*.obj"))), ["obj.dict"]),
    "PngFuzz": (pngs, ["png.dict"]),
    "StyleFuzz": (styles, ["xml.dict", "configuration.xsd", "themes.xsd", "textures.xsd"]),
    "TextureFuzz": (lambda: [read(TESTS / "TextureMaps/TextureConfig.xml"),
                             *cut_twice(DATA / "TextureMaps/TextureConfig.xml", 10)], ["xml.dict", "textures.xsd"]),
    "ThemeFuzz": (lambda: [read(TESTS / "Configuration/ThemeConfig.xml"),
                           *cut_twice(DATA / "Configuration/ThemeConfig.xml", 20)], ["xml.dict", "themes.xsd"]),
}

LARGEST = 16 * 1024


def words(part):
    """The words of a dictionary, of the tables of a page, or of the documents of a schema, as lines of a dictionary."""
    if part.endswith(".dict"):
        return (ROOT / "fuzz/dictionaries" / part).read_text(encoding="utf-8").splitlines()
    if part.endswith(".md"):
        text = (ROOT / "docs" / part).read_text(encoding="utf-8")
        return [f'"{word}"' for word in sorted(set(re.findall(r"^\| `(\w+)` \|", text, re.MULTILINE)))]
    schema = xml.parse(ROOT / "docs/schemas" / part).getroot()
    space = "{http://www.w3.org/2001/XMLSchema}"
    found = set()
    for node in schema.iter():
        if node.tag == space + "element" and "name" in node.attrib:
            found.add("<" + node.get("name"))
        elif node.tag == space + "attribute" and "name" in node.attrib:
            found.add(" " + node.get("name") + "=")
        elif node.tag == space + "enumeration":
            found.add(node.get("value"))
    return ['"' + word.replace("\\", r"\x5c").replace('"', r"\x22") + '"' for word in sorted(found) if word]


def main():
    output = pathlib.Path(sys.argv[1])
    shutil.rmtree(output, ignore_errors=True)
    for target, (make, parts) in TARGETS.items():
        folder = output / target
        folder.mkdir(parents=True)
        for number, seed in enumerate(make()):
            if len(seed) <= LARGEST:
                (folder / f"{number:03}").write_bytes(seed)
        lines = [word for part in parts for word in words(part)]
        (output / f"{target}.dict").write_text("\n".join(lines) + "\n", encoding="utf-8")


if __name__ == "__main__":
    main()
