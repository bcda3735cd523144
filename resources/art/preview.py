#!/usr/bin/python3
"""Shows the rendered art in use: preview.py FOLDER [SCALE] writes whole screens and a contact sheet there.

The pictures behind the overlays are bright, dark and in between: that is what overlays must stand up to.
"""

import pathlib
import sys

import numpy as np
from PIL import Image, ImageDraw, ImageFont

import manifest
import render

BITMAPS = {bitmap.id: bitmap for bitmap in manifest.BITMAPS}


def load(number):
    return np.asarray(Image.open(render.HERE / f"bmp/{BITMAPS[number].name}.bmp").convert("RGB"))


def draw(canvas, number, x, y):
    """What TransparentImage does."""
    picture = load(number)
    part = canvas[y:y + picture.shape[0], x:x + picture.shape[1]]
    opaque = np.any(picture != render.TRANSPARENT, axis=-1)
    part[opaque] = picture[opaque]


def scene(kind, width, height):
    """Sky, hills and grass with texture, as bright or dark as wanted."""
    noise = np.random.default_rng(7).normal(0, 1, (height, width, 1))
    y, x = np.mgrid[0:1:height * 1j, 0:1:width * 1j]
    sky = np.stack([120 + 90 * y, 165 + 60 * y, 235 - 10 * y], -1)
    hill = np.stack([60 + 40 * x, 110 + 40 * y, 60 + 20 * x], -1)
    grass = np.stack([110 + 60 * np.sin(60 * x * y), 150 + 30 * np.sin(90 * x), 60 + 0 * x], -1)
    picture = np.where((y > 0.45 + 0.12 * np.sin(5 * x))[..., None], hill, sky)
    picture = np.where((y > 0.72 - 0.08 * x)[..., None], grass, picture) + 8 * noise
    picture = np.where(((x - 0.75) ** 2 * 1.7 + (y - 0.25) ** 2 < 0.012)[..., None], [255, 250, 220], picture)
    picture = {"bright": 190 + picture * 0.25, "dark": picture * 0.16, "middle": picture}[kind]
    return np.clip(picture, 0, 255).astype(np.uint8)


def font(size):
    return ImageFont.truetype("DejaVuSans-Bold.ttf", size)


def live_view(kind, small, video, zoom, overlays, count):
    canvas = load(460).copy() if small else scene(kind, 240, 180)
    if small:
        canvas[28:148, 40:200] = scene(kind, 160, 120)
    draw(canvas, 405 if video else 404, 23, 0)
    for number, x, y in overlays:
        draw(canvas, number, x, y)
    draw(canvas, 452, 190, 18)
    if zoom:
        draw(canvas, 450, 137, 163)
        draw(canvas, 451, (190, 226)[zoom - 1], 167)
    image = Image.fromarray(canvas)
    text = ImageDraw.Draw(image)
    text.text((237, 0), count, "white", font(17), anchor="ra")
    text.text((3, 160), "320x240" if video else "1280x960", "white", font(17))
    text.text((3, 140), "16F/S", "white", font(17))
    return np.asarray(image)


def strip(number, language, pressed=()):
    canvas = load(number).copy()
    mode = 1 if number == 265 else 0
    for line in manifest.LETTERING:
        draw(canvas, getattr(line, language)[mode], *line.at)
    for bitmap in manifest.BUTTONS:
        name, _, state = bitmap.name.removeprefix("button_").rpartition("_")
        if (state == "pressed") == (name in pressed):
            draw(canvas, bitmap.id, *bitmap.at)
    return canvas[:88]


def bar(caption, top):
    image = Image.new("RGB", (240, 26), "#23282d" if top else "#f0f0ee")
    ImageDraw.Draw(image).text((6, 5), caption, "white" if top else "black", font(11))
    return np.asarray(image)


def screen(view, panel):
    return np.concatenate([bar("Lumetta Camera", True), view, panel, bar("File   Mode", False)])


CENTRE, CARD, SMALL_CARD, TIMER, RECORDING = (83, 73), (17, 26), (52, 46), (0, 40), (2, 40)
BALANCE, COLOUR = (46, 0), (69, 0)
# Scene, small picture, video, zoom level, overlays, count; strip, lettering, pressed buttons.
SCREENS = [
    (("middle", False, False, 0, [(401, *CENTRE)], "2047"),
     (336, "english")),
    (("bright", False, False, 1, [(402, *CARD), (411, *BALANCE), (414, *COLOUR), (431, *TIMER)], "2047"),
     (336, "symbols", ["menu"])),
    (("dark", False, False, 2, [(402, *CARD), (412, *BALANCE), (415, *COLOUR), (427, *TIMER)], "12"),
     (336, "english", ["zoom_in"])),
    (("middle", True, False, 1, [(403, *SMALL_CARD), (413, *BALANCE), (415, *COLOUR), (430, *TIMER)], "88"),
     (335, "symbols", ["shutter"])),
    (("bright", False, True, 2, [(401, *CENTRE), (411, *BALANCE), (443, *RECORDING)], "318"),
     (265, "symbols", ["play"])),
    (("dark", True, True, 0, [(401, *CENTRE), (412, *BALANCE), (414, *COLOUR), (440, *RECORDING)], "318"),
     (265, "english")),
]


def contact_sheet():
    """All overlays on white, grey and black; all icons on white."""
    rows = []
    for shade in (255, 128, 0):
        sheet = np.full((190, 500, 3), shade, np.uint8)
        x = y = 4
        for bitmap in (b for b in manifest.OVERLAYS if b.id not in (402, 403)):
            width, height = bitmap.box[2:]
            if x + width > 496:
                x, y = 4, y + 44
            draw(sheet, bitmap.id, x, y)
            x += width + 4
        rows.append(sheet)
    image = Image.fromarray(np.concatenate(rows))
    icons = Image.new("RGB", (500, 56), "white")
    icons.paste(Image.fromarray(load(240)), (4, 4))
    pen = 60
    for icon in manifest.ICONS:
        path = render.HERE / f"bmp/{icon.name}.ico"
        for box in icon.box_per_size:
            picture = Image.open(path)
            picture.size = box[2:]
            picture = picture.convert("RGBA")
            icons.paste(picture, (pen, 4), picture)
            pen += box[2] + 6
    icons_array = np.asarray(icons).copy()
    draw(icons_array, 173, pen, 4)
    return np.concatenate([np.asarray(image), icons_array])


def main(folder, scale="1"):
    folder = pathlib.Path(folder)
    folder.mkdir(parents=True, exist_ok=True)
    shots = [screen(live_view(*view), strip(*panel)) for view, panel in SCREENS]
    rows = [np.concatenate(shots[:3], 1), np.concatenate(shots[3:], 1)]
    for name, picture in (("screens", np.concatenate(rows)), ("sheet", contact_sheet())):
        image = Image.fromarray(picture)
        size = (image.width * int(scale), image.height * int(scale))
        image.resize(size, Image.NEAREST).save(folder / f"{name}.png")


if __name__ == "__main__":
    if len(sys.argv) not in (2, 3):
        raise SystemExit(__doc__)
    main(*sys.argv[1:])
