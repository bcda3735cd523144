#!/usr/bin/python3
"""Renders the drawings in svg/ to the program's bitmaps and icons; writes art.rc and lettering_layout.h.

    render.py          renders what has changed
    render.py --check  changes nothing; names every file that is out of date, exit status 1 if there is one

Needs rsvg-convert, PIL and numpy. manifest.py lists the bitmaps; the same drawings always give the same bytes.
"""

import functools
import io
import pathlib
import struct
import subprocess
import sys

import numpy as np
from PIL import Image

import manifest
import pixel_font

HERE = pathlib.Path(__file__).resolve().parent
TRANSPARENT = (255, 0, 255)
OUTLINE = (12, 14, 18)
# Coverage from which a pixel of a glyph counts as solid and gets an outline around it.
SOLID = 0.45
# Coverage below which a pixel is left to what lies behind.
FAINT = 0.06


@functools.cache
def drawing(source):
    """A drawing, or several laid over each other ("a.svg+b.svg"): array (height, width, RGBA), 0..1."""
    result = None
    for name in source.split("+"):
        svg = pixel_font.expand((HERE / "svg" / name).read_text(encoding="utf-8"))
        png = subprocess.run(["rsvg-convert", "--format=png"], input=svg.encode(), check=True,
                             stdout=subprocess.PIPE)
        layer = np.asarray(Image.open(io.BytesIO(png.stdout)).convert("RGBA"), dtype=np.float64) / 255
        result = layer if result is None else over(layer, result)
    return result


def over(top, bottom):
    alpha = top[..., 3:] + bottom[..., 3:] * (1 - top[..., 3:])
    colour = top[..., :3] * top[..., 3:] + bottom[..., :3] * bottom[..., 3:] * (1 - top[..., 3:])
    return np.concatenate([colour / np.maximum(alpha, 1e-9), alpha], axis=-1)


def crop(image, box):
    x, y, width, height = box
    part = image[y:y + height, x:x + width]
    if part.shape[:2] != (height, width):
        raise SystemExit(f"box {box} lies outside its drawing of {image.shape[1]} x {image.shape[0]}")
    return part


def spread(mask):
    """The mask and its eight neighbours."""
    padded = np.pad(mask, 1)
    height, width = mask.shape
    return np.any([padded[y:y + height, x:x + width] for y in range(3) for x in range(3)], axis=0)


def blend(image, colour):
    return image[..., :3] * image[..., 3:] + np.asarray(colour) * (1 - image[..., 3:])


def keyed(colours, opaque):
    """Bytes of the picture; what is not opaque takes the transparent colour."""
    pixels = np.rint(colours * 255).astype(np.uint8)
    red, green, blue = (pixels[..., i].astype(int) for i in range(3))
    if np.any(opaque & (red >= 248) & (green < 4) & (blue >= 248)):
        raise SystemExit("a drawing uses the transparent colour")
    pixels[~opaque] = TRANSPARENT
    return pixels


def finish(bitmap):
    image = crop(drawing(bitmap.source), bitmap.box)
    alpha = image[..., 3]
    if bitmap.finish == manifest.PANEL:
        return np.rint(blend(image, (0, 0, 0)) * 255).astype(np.uint8)
    if bitmap.finish == manifest.OVERLAY:
        return keyed(blend(image, np.array(OUTLINE) / 255), spread(alpha >= SOLID))
    if bitmap.finish == manifest.ON_STRIP:
        strip = crop(drawing(manifest.STRIP[0].source), (*bitmap.at, *bitmap.box[2:]))
        return keyed(blend(image, strip[..., :3]), alpha >= FAINT)
    return keyed(image[..., :3], alpha >= SOLID)


def bmp_bytes(pixels):
    out = io.BytesIO()
    Image.fromarray(pixels, "RGB").save(out, "BMP")
    return out.getvalue()


def icon_image(source, box):
    """One picture of an icon: 24 bits a pixel and a mask, the richest form that the handheld understands."""
    image = crop(drawing(source), box)
    opaque = image[..., 3] >= SOLID
    height, width = opaque.shape
    pixels = np.rint(image[..., :3] * 255).astype(np.uint8)
    pixels[~opaque] = 0
    header = struct.pack("<IiiHHIIiiII", 40, width, 2 * height, 1, 24, 0, 0, 0, 0, 0, 0)
    colours = b"".join(row[:, ::-1].tobytes() for row in pixels[::-1])
    mask = b"".join(np.packbits(~row).tobytes().ljust((width + 31) // 32 * 4, b"\0") for row in opaque[::-1])
    return header + colours + mask


def ico_bytes(icon):
    images = [icon_image(icon.source, box) for box in icon.box_per_size]
    out = struct.pack("<HHH", 0, 1, len(images))
    offset = len(out) + 16 * len(images)
    for box, image in zip(icon.box_per_size, images):
        out += struct.pack("<BBBBHHII", box[2], box[3], 0, 0, 1, 24, len(image), offset)
        offset += len(image)
    return out + b"".join(images)


def resource_script():
    lines = ["// Written by render.py from manifest.py."]
    lines += [f'{icon.id} ICON "bmp/{icon.name}.ico"' for icon in manifest.ICONS]
    lines += [f'{bitmap.id} BITMAP "bmp/{bitmap.name}.bmp"' for bitmap in manifest.BITMAPS]
    return "\n".join(lines) + "\n"


def layout_header():
    places = [f"{{{line.at[0]}, {line.at[1]}}}," for line in manifest.LETTERING]
    width = max(map(len, places))
    rows = "\n".join(f"    {place:{width}}  // slots {2 * i} and {2 * i + 1}: {line.name}"
                     for i, (place, line) in enumerate(zip(places, manifest.LETTERING)))
    return f"""// Written by render.py from manifest.py.
#pragma once

namespace art {{

struct LetteringPlace {{
    short x, y;
}};

// Top left corner of the lettering on the strip, one entry per pair of slots: the first slot of a pair is for
// the Still strips, the second for the Video strip. The bitmap brings its own size.
constexpr LetteringPlace kLetteringPlaces[] = {{
{rows}
}};

}}  // namespace art
"""


def verify():
    """What the program relies on when it puts the panel together."""
    buttons = {(*bitmap.at, *bitmap.box[2:]) for bitmap in manifest.BUTTONS}
    for box in buttons:
        grounds = [crop(drawing(bitmap.source), box) for bitmap in manifest.STRIP]
        if any(np.any(ground != grounds[0]) for ground in grounds):
            raise SystemExit(f"the strips differ under the button at {box}: it repaints from the first one")
    for language in ("symbols", "english"):
        ink = drawing(f"lettering_{language}.svg")[..., 3] > 0
        for top in (0, 108):
            if any(ink[y + top:, x:][:height, :width].any() for x, y, width, height in buttons):
                raise SystemExit(f"{language} lettering lies under a button")
            for line in manifest.LETTERING:
                ink[line.at[1] + top:, line.at[0]:][:line.size[1], :line.size[0]] = False
        if ink.any():
            row, column = np.argwhere(ink)[0]
            raise SystemExit(f"{language} lettering reaches beyond its boxes at row {row}, column {column}")


def outputs():
    """Every file this script owns, with its contents."""
    for bitmap in manifest.BITMAPS:
        yield f"bmp/{bitmap.name}.bmp", bmp_bytes(finish(bitmap))
    for icon in manifest.ICONS:
        yield f"bmp/{icon.name}.ico", ico_bytes(icon)
    yield "art.rc", resource_script().encode()
    yield "lettering_layout.h", layout_header().encode()


def main(arguments):
    if arguments not in ([], ["--check"]):
        raise SystemExit(__doc__)
    verify()
    wanted = dict(outputs())
    stale = [name for name, data in wanted.items()
             if not (HERE / name).is_file() or (HERE / name).read_bytes() != data]
    stray = sorted({f"bmp/{path.name}" for path in (HERE / "bmp").iterdir()} - wanted.keys())
    if arguments:
        for name in stale + stray:
            print(f"out of date: {name}")
        return 1 if stale or stray else 0
    for name in stale:
        (HERE / name).write_bytes(wanted[name])
        print(name)
    for name in stray:
        (HERE / name).unlink()
        print(f"{name} removed")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
