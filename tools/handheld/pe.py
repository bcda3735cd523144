"""Writes an executable as Windows CE 3.0 on ARM wants it."""

import dataclasses
import struct

BASE = 0x10000
PAGE, FILE_UNIT = 0x1000, 0x200
ARM = 0x1C0
WINDOWS_CE = 9
STACK_RESERVE, STACK_COMMIT = 0x10000, 0x1000
HEAP_RESERVE, HEAP_COMMIT = 0x100000, 0x1000

# Characteristics of the file: executable, without line numbers and symbols, 32 bits.
FILE_FLAGS = 0x0002 | 0x0004 | 0x0008 | 0x0100

CODE, CONTENT, EMPTY = 0x20, 0x40, 0x80
EXECUTE, READ, WRITE = 0x20000000, 0x40000000, 0x80000000
DISCARDABLE = 0x02000000

# Places in the table of directories.
IMPORT, RESOURCE, RELOCATION, IMPORT_WORDS = 1, 2, 5, 12


@dataclasses.dataclass
class Section:
    name: str
    rva: int
    data: bytes
    flags: int
    size: int = 0  # in memory, when more than the data

    @property
    def memory(self):
        return max(self.size, len(self.data))


def rounded(value, unit):
    return -(-value // unit) * unit


def _optional_header(sections, entry, directories):
    def total(flag):
        return sum(rounded(len(section.data), FILE_UNIT) for section in sections if section.flags & flag)

    code = next(section for section in sections if section.flags & CODE)
    data = next(section for section in sections if section.flags & WRITE)
    end = max(section.rva + section.memory for section in sections)
    empty = rounded(data.memory - len(data.data), FILE_UNIT)
    header = struct.pack(
        "<HBB9I6H4I2H6I",
        0x10B, 6, 0, total(CODE), total(CONTENT), empty, entry - BASE, code.rva, data.rva,
        BASE, PAGE, FILE_UNIT,
        4, 0, 0, 0, 3, 0,  # operating system 4.00, no version of the image's own, subsystem 3.00
        0, rounded(end, PAGE), FILE_UNIT * -(-_headers_size(sections) // FILE_UNIT), 0,
        WINDOWS_CE, 0, STACK_RESERVE, STACK_COMMIT, HEAP_RESERVE, HEAP_COMMIT, 0, 16)
    return header + b"".join(struct.pack("<II", *directories.get(index, (0, 0))) for index in range(16))


def _headers_size(sections):
    return 0x80 + 24 + 224 + 40 * len(sections)


def image(sections, entry, directories):
    """The file's bytes.  `directories`: {place in the table: (rva, size)}."""
    dos = struct.pack("<2s58xI64x", b"MZ", 0x80)
    # No time: the same sources give the same file.
    file_header = struct.pack("<4sHHIIIHH", b"PE\0\0", ARM, len(sections), 0, 0, 0, 224, FILE_FLAGS)
    headers = dos + file_header + _optional_header(sections, entry, directories)
    at = rounded(_headers_size(sections), FILE_UNIT)
    bodies = b""
    for section in sections:
        stored = rounded(len(section.data), FILE_UNIT)
        headers += struct.pack("<8sIIIIIIHHI", section.name.encode(), section.memory, section.rva,
                               stored, at + len(bodies) if stored else 0, 0, 0, 0, 0, section.flags)
        bodies += section.data.ljust(stored, b"\0")
    return headers.ljust(at, b"\0") + bodies
