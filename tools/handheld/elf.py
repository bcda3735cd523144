"""Reads what a 32-bit little-endian ELF file says of its sections, symbols and relocations."""

import dataclasses
import struct

SYMBOL_TABLE, RELOCATIONS, NO_CONTENT = 2, 9, 8
ALLOCATED, EXECUTABLE = 2, 4
FUNCTION = 2
UNDEFINED = 0


@dataclasses.dataclass
class Section:
    name: str
    kind: int
    flags: int
    address: int
    data: bytes
    size: int
    link: int
    info: int


@dataclasses.dataclass
class Symbol:
    name: str
    value: int
    size: int
    kind: int
    section: int

    @property
    def undefined(self):
        return self.section == UNDEFINED


@dataclasses.dataclass
class Relocation:
    address: int
    kind: int
    symbol: Symbol
    section: Section  # the one that is changed


def _text(table, offset):
    return table[offset:table.index(b"\0", offset)].decode()


class Elf:
    def __init__(self, data):
        if data[:6] != b"\x7fELF\x01\x01":
            raise ValueError("not a 32-bit little-endian ELF file")
        header = struct.unpack_from("<HHIIIIIHHHHHH", data, 16)
        self.entry = header[3]
        table, entry_size, count, names = header[5], header[10], header[11], header[12]
        raw = [struct.unpack_from("<10I", data, table + index * entry_size) for index in range(count)]
        strings = data[raw[names][4]:raw[names][4] + raw[names][5]]
        self.sections = [
            Section(_text(strings, name), kind, flags, address,
                    b"" if kind == NO_CONTENT else data[offset:offset + size], size, link, info)
            for name, kind, flags, address, offset, size, link, info, _, _ in raw]
        self.symbols = self._read_symbols()
        self.relocations = self._read_relocations()

    def _read_symbols(self):
        table = next((section for section in self.sections if section.kind == SYMBOL_TABLE), None)
        if table is None:
            return []
        strings = self.sections[table.link].data
        return [Symbol(_text(strings, name), value, size, info & 15, index)
                for name, value, size, info, _, index in struct.iter_unpack("<IIIBBH", table.data)]

    def _read_relocations(self):
        """Of sections that are loaded; the others' are for debuggers."""
        return [Relocation(address, info & 0xFF, self.symbols[info >> 8], self.sections[table.info])
                for table in self.sections
                if table.kind == RELOCATIONS and self.sections[table.info].flags & ALLOCATED
                for address, info in struct.iter_unpack("<II", table.data)]

    def section(self, name):
        return next(section for section in self.sections if section.name == name)

    def named(self):
        """Value of every defined symbol, by name."""
        return {symbol.name: symbol.value for symbol in self.symbols if symbol.name and not symbol.undefined}

    def functions(self):
        """(address, end, name) of every function, in order of address."""
        return sorted((symbol.value, symbol.value + symbol.size, symbol.name)
                      for symbol in self.symbols if symbol.kind == FUNCTION and not symbol.undefined)
