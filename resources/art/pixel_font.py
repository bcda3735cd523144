"""The panel's pixel font: capitals six pixels high, drawn on the grid so that lettering stays crisp.

A drawing says <text x="..." y="..." fill="...">MENU</text>; expand() replaces every such element by a path of
whole pixels. x, y is the top left corner of the lettering; text-anchor (start, middle, end) and a
scale attribute (whole multiples) are honoured, nothing else.
"""

import xml.etree.ElementTree as ET

SVG = "http://www.w3.org/2000/svg"
HEIGHT = 6
GAP = 1

# Rows from top to bottom, glyphs side by side under the characters they draw.
_ROWS = """
A    B    C    D    E    F    G    H    I   J    K    L    M     N    O    P    Q    R    S    T     U    V     W     X     Y     Z
.##. ###. .### ###. #### #### .### #..# ### ..## #..# #... #...# #..# .##. ###. .##. ###. .### ##### #..# #...# #...# #...# #...# ####
#..# #..# #... #..# #... #... #... #..# .#. ...# #.#. #... ##.## ##.# #..# #..# #..# #..# #... ..#.. #..# #...# #...# .#.#. .#.#. ...#
#..# ###. #... #..# ###. ###. #.## #### .#. ...# ##.. #... #.#.# #.## #..# #..# #..# #..# .##. ..#.. #..# .#.#. #.#.# ..#.. ..#.. ..#.
#### #..# #... #..# #... #... #..# #..# .#. ...# #.#. #... #...# #..# #..# ###. #..# ###. ...# ..#.. #..# .#.#. #.#.# ..#.. ..#.. .#..
#..# #..# #... #..# #... #... #..# #..# .#. #..# #..# #... #...# #..# #..# #... #.#. #.#. ...# ..#.. #..# ..#.. ##.## .#.#. ..#.. #...
#..# ###. .### ###. #### #... .### #..# ### .##. #..# #### #...# #..# .##. #... .#.# #..# ###. ..#.. .##. ..#.. #...# #...# ..#.. ####

0    1   2    3    4     5    6    7    8    9    x   -   +     .  /
.##. .#. ###. ###. ...#. #### .##. #### .##. .##. ... ... ..... .  ...#
#..# ##. ...# ...# ..##. #... #... ...# #..# #..# #.# ... ..#.. .  ..#.
#..# .#. ...# .##. .#.#. ###. ###. ..#. .##. #..# .#. ... ..#.. .  ..#.
#..# .#. .##. ...# #..#. ...# #..# ..#. #..# .### .#. ### ##### .  .#..
#..# .#. #... ...# ##### ...# #..# .#.. #..# ...# #.# ... ..#.. .  .#..
.##. ### #### ###. ...#. ###. .##. .#.. .##. .##. ... ... ..#.. #  #...
"""


def _read_rows(text):
    glyphs = {" ": ["..."] * HEIGHT}
    for block in text.strip().split("\n\n"):
        head, *rows = block.splitlines()
        columns = [row.split() for row in rows]
        for place, character in enumerate(head.split()):
            glyphs[character] = [row[place] for row in columns]
    return glyphs


GLYPHS = _read_rows(_ROWS)


def width(text):
    """Width of the lettering in pixels."""
    return sum(len(GLYPHS[c][0]) + GAP for c in text) - GAP


def path(text, x, y, scale=1):
    """SVG path data of the lettering: one box per run of pixels."""
    boxes = []
    for character in text:
        rows = GLYPHS[character]
        for line, row in enumerate(rows):
            start = 0
            while (start := row.find("#", start)) >= 0:
                end = start
                while end < len(row) and row[end] == "#":
                    end += 1
                boxes.append(f"M{x + start * scale} {y + line * scale}h{(end - start) * scale}"
                             f"v{scale}h-{(end - start) * scale}z")
                start = end
        x += (len(rows[0]) + GAP) * scale
    return "".join(boxes)


def expand(svg_text):
    """The drawing with every <text> replaced by pixel paths."""
    ET.register_namespace("", SVG)
    ET.register_namespace("xlink", "http://www.w3.org/1999/xlink")
    root = ET.fromstring(svg_text)
    for element in root.iter(f"{{{SVG}}}text"):
        text, scale = element.text, int(element.attrib.pop("scale", "1"))
        x, y = int(element.attrib.pop("x", "0")), int(element.attrib.pop("y", "0"))
        anchor = element.attrib.pop("text-anchor", "start")
        x -= {"start": 0, "middle": width(text) * scale // 2, "end": width(text) * scale}[anchor]
        element.tag, element.text = f"{{{SVG}}}path", None
        element.set("d", path(text, x, y, scale))
        element.set("shape-rendering", "crispEdges")
    return ET.tostring(root, encoding="unicode")
