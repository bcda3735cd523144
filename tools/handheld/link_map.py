"""Reads the linker's map: which object every piece of the image comes from."""

import bisect
import dataclasses
import re

ENTRY = re.compile(r"^ (\.\S+|COMMON)\s+0x([0-9a-f]+)\s+0x([0-9a-f]+) (\S.*)$")
LONG_NAME = re.compile(r"^ (\.\S+)$")
MEMBER = re.compile(r"^.*?([^/]+)\(([^()]+)\)$")


@dataclasses.dataclass(frozen=True)
class Piece:
    address: int
    size: int
    section: str
    library: str  # or the object itself
    source: str


def _piece(section, address, size, path):
    member = MEMBER.match(path)
    library, object_name = member.groups() if member else (path, path.rsplit("/", 1)[-1])
    return Piece(address, size, section, library, object_name.removesuffix(".obj"))


def read_map(text):
    """Pieces that were kept, by address."""
    text = text.partition("Linker script and memory map")[2]
    pieces, name = [], None
    for line in text.splitlines():
        if long_name := LONG_NAME.match(line):
            name = long_name.group(1)  # its figures are on the next line
            continue
        match = ENTRY.match(f" {name}{line}" if name and line.startswith("  ") else line)
        name = None
        if match:
            address, size = int(match.group(2), 16), int(match.group(3), 16)
            if address and size:
                pieces.append(_piece(match.group(1), address, size, match.group(4)))
    return sorted(pieces, key=lambda piece: piece.address)


class Places:
    """Tells of an address in words where it lies."""

    def __init__(self, elf, pieces, demangle):
        self._functions, self._pieces, self._demangle = elf.functions(), pieces, demangle

    def piece(self, address):
        index = bisect.bisect_right(self._pieces, address, key=lambda piece: piece.address) - 1
        found = self._pieces[index] if index >= 0 else None
        return found if found and address < found.address + found.size else None

    def words(self, address):
        piece = self.piece(address)
        index = bisect.bisect_right(self._functions, address, key=lambda function: function[0]) - 1
        name = hex(address)
        if index >= 0 and address < self._functions[index][1]:
            name = self._demangle(self._functions[index][2])
        elif piece:
            name = f"a table ({self._demangle(piece.section.rsplit('.', 1)[-1])})"
        return f"{name} in {piece.source}" if piece else name
