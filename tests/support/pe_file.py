"""Reads a finished Windows executable, the handheld's or the desktop's."""

import dataclasses
import pathlib
import struct

IMPORTS, RESOURCES, RELOCATIONS = 1, 2, 5


@dataclasses.dataclass
class Section:
    name: str
    memory: int
    rva: int
    stored: int
    offset: int
    flags: int


class PeFile:
    def __init__(self, path):
        self.data = data = pathlib.Path(path).read_bytes()
        at = self._word(0x3C)
        if data[:2] != b"MZ" or data[at:at + 4] != b"PE\0\0":
            raise ValueError(f"{path} is not a Windows executable")
        self.machine, count, self.time, _, _, optional_size, self.flags = struct.unpack_from("<HHIIIHH", data, at + 4)
        self._optional = at + 24
        self.wide = self._half(self._optional) == 0x20B
        table = self._optional + optional_size
        self.sections = [
            Section(name.rstrip(b"\0").decode(), *fields[:4], fields[-1])
            for name, *fields in (struct.unpack_from("<8s4I12xI", data, table + 40 * index) for index in range(count))]

    def _half(self, at):
        return struct.unpack_from("<H", self.data, at)[0]

    def _word(self, at):
        return struct.unpack_from("<I", self.data, at)[0]

    def optional(self, offset, size=4):
        """A field of the optional header, whose places are the same in both kinds up to the subsystem (base aside)."""
        return int.from_bytes(self.data[self._optional + offset:self._optional + offset + size], "little")

    def directory(self, index):
        return struct.unpack_from("<II", self.data, self._optional + (112 if self.wide else 96) + 8 * index)

    def section(self, name):
        return next(section for section in self.sections if section.name == name)

    def content(self, name):
        section = self.section(name)
        return self.data[section.offset:section.offset + min(section.memory, section.stored)]

    def at(self, rva):
        """The place in the file of an address counted from the image's start."""
        for section in self.sections:
            if section.rva <= rva < section.rva + section.stored:
                return section.offset + rva - section.rva
        raise ValueError(f"nothing is stored for address {rva:#x}")

    def _text(self, rva):
        at = self.at(rva)
        return self.data[at:self.data.index(b"\0", at)].decode()

    def imports(self):
        """(library, name or ordinal, address of its word)"""
        at = self.at(self.directory(IMPORTS)[0])
        size = 8 if self.wide else 4
        while (row := struct.unpack_from("<5I", self.data, at))[3]:
            names, words = row[0] or row[4], row[4]
            while entry := int.from_bytes(self.data[self.at(names):self.at(names) + size], "little"):
                by_ordinal = entry >> (8 * size - 1)
                yield self._text(row[3]), entry & 0xFFFF if by_ordinal else self._text(entry + 2), words
                names, words = names + size, words + size
            at += 20

    def resources(self):
        """{(type, name, language): bytes}"""
        root = self.at(self.directory(RESOURCES)[0])
        found = {}

        def key(value):
            if not value >> 31:
                return value
            at = root + (value & 0x7FFFFFFF)
            return self.data[at + 2:at + 2 + 2 * self._half(at)].decode("utf-16-le")

        def walk(at, path):
            for index in range(self._half(at + 12) + self._half(at + 14)):
                name, target = struct.unpack_from("<II", self.data, at + 16 + 8 * index)
                if target >> 31:
                    walk(root + (target & 0x7FFFFFFF), (*path, key(name)))
                else:
                    rva, size = struct.unpack_from("<II", self.data, root + target)
                    found[(*path, key(name))] = self.data[self.at(rva):self.at(rva) + size]

        walk(root, ())
        return found

    def relocated_words(self):
        """Addresses, counted from the image's start, of the words that hold addresses."""
        rva, size = self.directory(RELOCATIONS)
        at, words = self.at(rva), []
        end = at + size
        while at < end:
            page, length = struct.unpack_from("<II", self.data, at)
            entries = struct.unpack_from(f"<{(length - 8) // 2}H", self.data, at + 8)
            words += [page + (entry & 0xFFF) for entry in entries if entry >> 12 == 3]
            at += length
        return words
