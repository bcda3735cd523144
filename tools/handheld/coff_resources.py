"""Takes the resources out of the object that the resource compiler wrote, for a place of one's own in the image."""

import struct

ADDRESS_IN_IMAGE = 7  # relocation that wants an address counted from the image's start


class Resources:
    def __init__(self, data):
        sections, symbol_table, symbol_count = struct.unpack_from("<2xH4xII", data)
        optional_size = struct.unpack_from("<H", data, 16)[0]
        if sections != 1:
            raise ValueError(f"a resource object has one section, this one {sections}")
        header = struct.unpack_from("<8sIIIIIIHHI", data, 20 + optional_size)
        name, _, _, size, at, relocations, _, relocation_count = header[:8]
        if name.rstrip(b"\0") != b".rsrc":
            raise ValueError(f"a resource object has the section .rsrc, this one {name.decode()}")
        self._data = data[at:at + size]
        self._places = []
        for index in range(relocation_count):
            place, symbol, kind = struct.unpack_from("<IIH", data, relocations + 10 * index)
            if kind != ADDRESS_IN_IMAGE or symbol >= symbol_count:
                raise ValueError(f"relocation of kind {kind} among the resources")
            value = struct.unpack_from("<I", data, symbol_table + 18 * symbol + 8)[0]
            self._places.append((place, value))

    def at(self, rva):
        """The section's bytes for that address."""
        data = bytearray(self._data)
        for place, value in self._places:
            offset = struct.unpack_from("<I", data, place)[0]
            struct.pack_into("<I", data, place, offset + value + rva)
        return bytes(data)
