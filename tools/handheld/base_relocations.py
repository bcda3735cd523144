"""Lists the words of the image that hold addresses, so that a loader can put it elsewhere than at its base."""

import itertools
import struct

PAGE = 0x1000
WHOLE_WORD = 3 << 12

R_ARM_PC24, R_ARM_ABS32, R_ARM_REL32, R_ARM_CALL, R_ARM_JUMP24, R_ARM_TARGET1, R_ARM_V4BX, R_ARM_PREL31 = (
    1, 2, 3, 28, 29, 38, 40, 42)
ADDRESSES = {R_ARM_ABS32, R_ARM_TARGET1}
DISTANCES = {R_ARM_PC24, R_ARM_REL32, R_ARM_CALL, R_ARM_JUMP24, R_ARM_V4BX, R_ARM_PREL31}  # right at any base


def address_words(elf):
    return sorted({relocation.address for relocation in elf.relocations if relocation.kind in ADDRESSES})


def relocation_blocks(addresses, base):
    """The base relocation section's bytes."""
    blocks = b""
    for page, group in itertools.groupby(sorted(addresses), lambda address: (address - base) // PAGE * PAGE):
        entries = [WHOLE_WORD | (address - base - page) for address in group]
        if len(entries) % 2:
            entries.append(0)  # blocks are whole words
        blocks += struct.pack(f"<II{len(entries)}H", page, 8 + 2 * len(entries), *entries)
    return blocks
