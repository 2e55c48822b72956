#!/usr/bin/python3
"""Draws the texture pages and writes their tables.

Reads elements.ini, palette.ini and svg/ beside this file. Writes TextureMaps/<theme>.png, TextureMaps/TextureConfig.xml
and Configuration/ThemeConfig.xml in the data directory. The same drawings give the same bytes.
"""

import configparser
import io
import pathlib
import re
import subprocess
import sys
import xml.etree.ElementTree
from xml.sax.saxutils import quoteattr

from PIL import Image

ART = pathlib.Path(__file__).resolve().parent
DATA = ART.parent
COLOURS = ".Colours"
PAGE_WIDTH = 512
LARGEST_HEIGHT = 1024
HEIGHT_STEP = 32
# What linear filtering and the first mipmaps read beyond an element's edge.
GUTTER = 4
BORDERS = ("border", "border-top", "border-bottom", "border-left", "border-right")
HEADER = """<?xml version="1.0" encoding="UTF-8"?>
<!-- Written by scripts/art; change data/art instead. -->
"""


def read_ini(name):
    parser = configparser.ConfigParser(interpolation=None)
    parser.optionxform = str
    with open(ART / name, encoding="utf-8") as file:
        parser.read_file(file)
    return parser


def fill_in(name, element, palette):
    """The drawing of an element in a theme's colours. ${...} holds a variable, or a sum of variables and numbers."""
    variables = dict(palette) | {key: palette.get(value, value) for key, value in element.items()}

    def value_of(match):
        expression = match.group(1)
        if expression in variables:
            return variables[expression]
        numbers = re.sub(r"[A-Za-z_]\w*", lambda variable: variables[variable.group()], expression)
        if not re.fullmatch(r"[\d.\s+*/()-]+", numbers):
            raise ValueError(f"{expression} isn't a number")
        return f"{eval(numbers):g}"

    try:
        svg = (ART / "svg" / (element["svg"] + ".svg")).read_text(encoding="utf-8")
        return re.sub(r"\$\{([^}]+)\}", value_of, svg)
    except (KeyError, OSError, ValueError) as error:
        sys.exit(f"{name}: {error}")


def draw(name, svg):
    try:
        xml.etree.ElementTree.fromstring(svg)
        drawn = subprocess.run(["rsvg-convert"], input=svg.encode(), stdout=subprocess.PIPE, check=True).stdout
    except (xml.etree.ElementTree.ParseError, subprocess.CalledProcessError) as error:
        sys.exit(f"{name}: {error}")
    return Image.open(io.BytesIO(drawn)).convert("RGBA")


def place(images):
    """The corners of the elements on their page, in rows, the tallest first; and the page's height."""
    corners = {}
    left = top = row_height = 0
    for name, image in sorted(images.items(), key=lambda item: (-item[1].height, -item[1].width, item[0])):
        width, height = image.width + 2 * GUTTER, image.height + 2 * GUTTER
        if left + width > PAGE_WIDTH:
            left, top, row_height = 0, top + row_height, 0
        corners[name] = (left + GUTTER, top + GUTTER)
        left += width
        row_height = max(row_height, height)
    page_height = -(-(top + row_height) // HEIGHT_STEP) * HEIGHT_STEP
    if page_height > LARGEST_HEIGHT:
        sys.exit(f"the page would be {page_height} pixels high")
    return corners, page_height


def extruded(image):
    """The image with its edge pixels repeated around it."""
    width, height = image.size
    wide = Image.new("RGBA", (width + 2 * GUTTER, height))
    wide.paste(image, (GUTTER, 0))
    for step in range(GUTTER):
        wide.paste(image.crop((0, 0, 1, height)), (step, 0))
        wide.paste(image.crop((width - 1, 0, width, height)), (GUTTER + width + step, 0))
    result = Image.new("RGBA", (wide.width, height + 2 * GUTTER))
    result.paste(wide, (0, GUTTER))
    for step in range(GUTTER):
        result.paste(wide.crop((0, 0, wide.width, 1)), (0, step))
        result.paste(wide.crop((0, height - 1, wide.width, height)), (0, GUTTER + height + step))
    return result


def tag(name, attributes, end="/>"):
    return f"<{name}" + "".join(f" {key}={quoteattr(str(value))}" for key, value in attributes.items()) + end + "\n"


def main():
    elements = read_ini("elements.ini")
    palettes = read_ini("palette.ini")
    themes = [section for section in palettes.sections() if not section.endswith(COLOURS)]
    textures = HEADER + "<Textures>\n"
    redirections = HEADER + tag("Themes", {"default": themes[0]}, ">")
    for theme in themes:
        palette = palettes[theme]
        images = {name: draw(name, fill_in(name, elements[name], palette)) for name in elements.sections()}
        corners, height = place(images)
        page = Image.new("RGBA", (PAGE_WIDTH, height))
        textures += "  " + tag("Image", {"file": f"{theme}.png", "width": PAGE_WIDTH, "height": height}, ">")
        redirections += "  " + tag("Theme", {"id": theme}, ">")
        for name, value in palettes[theme + COLOURS].items():
            redirections += "    " + tag("Element", {"id": name, "value": value})
        for name, image in images.items():
            left, top = corners[name]
            page.paste(extruded(image), (left - GUTTER, top - GUTTER))
            attributes = {"name": palette["prefix"] + name, "left": left, "top": top, "width": image.width,
                          "height": image.height}
            attributes |= {border: elements[name][border] for border in BORDERS if border in elements[name]}
            textures += "    " + tag("Element", attributes)
            if palette["prefix"]:
                redirections += "    " + tag("Element", {"id": name, "value": palette["prefix"] + name})
        textures += "  </Image>\n"
        redirections += "  </Theme>\n"
        page.save(DATA / "TextureMaps" / f"{theme}.png", optimize=True)
        print(f"{theme}.png: {len(images)} elements, {PAGE_WIDTH} by {height}")
    (DATA / "TextureMaps/TextureConfig.xml").write_text(textures + "</Textures>\n", encoding="utf-8")
    (DATA / "Configuration/ThemeConfig.xml").write_text(redirections + "</Themes>\n", encoding="utf-8")


if __name__ == "__main__":
    main()
