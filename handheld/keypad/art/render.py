#!/usr/bin/python3
"""Renders keypad.svg to keypad.bmp: the key pad three times, one below the other.

    render.py          renders what has changed
    render.py --check  changes nothing; names the file if it is out of date, exit status 1 then

From top to bottom: all keys raised and the card in its slot; all keys pressed; the card pulled out. The pad's window
puts what it shows together from these.  Needs rsvg-convert, PIL and numpy.
"""

import io
import pathlib
import re
import subprocess
import sys

import numpy as np
from PIL import Image

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parents[2] / "resources" / "art"))

import pixel_font  # noqa: E402

# What each picture leaves out.
HIDDEN = [("pressed", "out"), ("raised", "out"), ("pressed", "in")]


def picture(svg, hidden):
    for name in hidden:
        svg, found = re.subn(f'<g class="{name}">', '<g display="none">', svg)
        if found == 0:
            raise SystemExit(f"keypad.svg has no group {name}")
    png = subprocess.run(["rsvg-convert", "--format=png"], input=pixel_font.expand(svg).encode(), check=True,
                         stdout=subprocess.PIPE)
    return np.asarray(Image.open(io.BytesIO(png.stdout)).convert("RGB"))


def rendered():
    svg = (HERE / "keypad.svg").read_text(encoding="utf-8")
    out = io.BytesIO()
    Image.fromarray(np.concatenate([picture(svg, hidden) for hidden in HIDDEN]), "RGB").save(out, "BMP")
    return out.getvalue()


def main(arguments):
    if arguments not in ([], ["--check"]):
        raise SystemExit(__doc__)
    target = HERE / "keypad.bmp"
    data = rendered()
    if target.is_file() and target.read_bytes() == data:
        return 0
    if arguments:
        print(f"out of date: {target.name}")
        return 1
    target.write_bytes(data)
    print(target.name)
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
