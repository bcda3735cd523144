#!/usr/bin/python3
"""What takes the room in the handheld's executable: prints tables, or with --write puts them into docs/handheld.md."""

import collections
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests" / "support"))

from link_map import read_map  # noqa: E402
from pe_file import PeFile  # noqa: E402

BUILD = ROOT / "build" / "handheld"
PAGE = ROOT / "docs" / "handheld.md"
MARKED = re.compile(r"(<!-- sizes -->\n).*(<!-- end of sizes -->)", re.DOTALL)

KIND = {".text": "code", ".rodata": "constants", ".init_array": "constants", ".fini_array": "constants",
        ".data": "data", ".iat": "data", ".bss": "data"}
COLUMNS = ("code", "constants", "data")
RESOURCE_KINDS = {2: "bitmaps", 3: "icons", 4: "menus", 5: "dialogs", 6: "texts", "WAVE": "sounds"}
OTHER_HOMES = {"preview": "device", "libgcc": "compiler's library"}
LARGEST = 8


def home(piece):
    """The folder that a piece of the image comes from."""
    if piece.library.startswith("platform/"):
        return "start-up, C++ library"
    if piece.library.endswith(".imports.o"):
        return "calls of the system"
    first = re.split(r"[/_.]", piece.library)[0]
    return OTHER_HOMES.get(first, first)


def kind(piece):
    return KIND.get("." + piece.section.split(".")[1])


def table(heads, rows):
    lines = ["| " + " | ".join(heads) + " |", "|" + "---|" + "---:|" * (len(heads) - 1)]
    lines += ["| " + " | ".join(f"{cell:,}" if isinstance(cell, int) else cell for cell in row) + " |" for row in rows]
    return "\n".join(lines) + "\n"


def part_table(pieces):
    parts = collections.defaultdict(collections.Counter)
    for piece in pieces:
        if kind(piece):
            parts[home(piece)][kind(piece)] += piece.size
    rows = [(part, *(sizes[column] for column in COLUMNS)) for part, sizes in sorted(parts.items())]
    rows.append(("**all**", *(sum(row[index] for row in rows) for index in range(1, 4))))
    return table(("part", *COLUMNS), rows)


def resource_table(image):
    kinds, counts = collections.Counter(), collections.Counter()
    for (resource_kind, _, _), data in image.resources().items():
        name = RESOURCE_KINDS.get(resource_kind, "others")
        kinds[name] += len(data)
        counts[name] += 1
    rows = [(name, counts[name], size) for name, size in kinds.most_common()]
    return table(("resources", "count", "bytes"), rows)


def readable(section):
    mangled = re.search(r"_Z\w+", section)
    if not mangled:
        return section
    return subprocess.run(["arm-linux-gnueabi-c++filt", mangled.group()], stdout=subprocess.PIPE, text=True,
                          check=True).stdout.strip()


def largest_table(image, pieces):
    things = [(piece.size, f"`{readable(piece.section)}`", kind(piece)) for piece in pieces if kind(piece)]
    things += [(len(data), f"resource {name}", RESOURCE_KINDS.get(resource_kind, "others"))
               for (resource_kind, name, _), data in image.resources().items()]
    rows = [(name, what, size) for size, name, what in sorted(things, reverse=True)[:LARGEST]]
    return table(("largest", "in", "bytes"), rows)


def report():
    image = PeFile(BUILD / "zelcamera.exe")
    pieces = read_map((BUILD / "zelcamera.map").read_text())
    total = [("file, with resources", len(image.data), 1 << 20), ("code", image.section(".text").memory, 256 << 10),
             ("static data and constants", image.section(".data").memory + image.section(".rdata").memory, 2 << 20)]
    return "\n".join((table(("", "bytes", "at most"), total), part_table(pieces), resource_table(image),
                      largest_table(image, pieces)))


def main():
    text = report()
    if sys.argv[1:] == ["--write"]:
        PAGE.write_text(MARKED.sub(lambda marks: marks.group(1) + text + marks.group(2), PAGE.read_text()))
    else:
        print(text, end="")


if __name__ == "__main__":
    main()
