"""What must not be in the handheld's image.  Each check gives sentences that name the offender and where it is."""

import re

import base_relocations

# The compiler's helpers, and those that the core library exports for the handheld's own compiler.
FRACTION_HELPER = re.compile(
    r"__(aeabi_(c?[df][a-z]\w*|u?[il]2[df])|"
    r"(add|sub|mul|div|neg|eq|ne|lt|le|gt|ge|cmp|unord|powi)[sd][fc][23]?|"
    r"(fix|fixuns|float|floatun|floatuns|extend|trunc)\w*[sd]f\w*|"
    r"(add|sub|mul|div|cmp|eq|ne|lt|le|gt|ge|neg)[sd]|[iu](64)?to[sd]|[sd]to[iu](64)?|stod|dtos)$|"
    r"(a?(sin|cos|tan)h?|atan2|ceil|exp|fabs|floor|fmod|frexp|ldexp|log|log10|modf|pow|sqrt|atof|strtod|_?hypot)f?$")

# Everything an ARMv4 executes, without the T of later ones: no bx, no clz, no long loads.
CONDITION = "(eq|ne|cs|cc|hs|lo|mi|pl|vs|vc|hi|ls|ge|lt|gt|le|al)?"
ARMV4 = re.compile(
    "((and|eor|sub|rsb|add|adc|sbc|rsc|orr|mov|bic|mvn|lsl|lsr|asr|ror|rrx|mul|mla|[us]mull|[us]mlal)s?|"
    "tst|teq|cmp|cmn|ldrs?[bh]?|ldrb?t|str[bh]?|strb?t|(ldm|stm)(ia|ib|da|db|fd|ea|ed|fa)?|push|pop|bl?|swpb?|mrs|msr|nop)"
    + CONDITION + "$")


def unknown_symbols(elf, places):
    wanted = {}
    for relocation in elf.relocations:
        if relocation.symbol.undefined and relocation.symbol.name:
            wanted.setdefault(relocation.symbol.name, relocation.address)
    return [f"{places.words(address)} needs {name}, which no library of the handheld exports"
            for name, address in sorted(wanted.items())]


def open_relocations(elf, places):
    settled = base_relocations.ADDRESSES | base_relocations.DISTANCES
    return [f"{places.words(relocation.address)} has a relocation of kind {relocation.kind}"
            f" towards {relocation.symbol.name or 'nothing'} that the image cannot hold"
            for relocation in elf.relocations if relocation.kind not in settled]


def fractions(elf, places):
    callers = set()
    for relocation in elf.relocations:
        piece = places.piece(relocation.address)
        if not FRACTION_HELPER.match(relocation.symbol.name) or piece is None:
            continue
        if not piece.library.startswith("libgcc"):
            callers.add((places.words(relocation.address), relocation.symbol.name))
    return [f"{caller} computes in floating point ({helper}), which the handheld's processor does not have"
            for caller, helper in sorted(callers)]


def thumb_code(elf, places):
    return [f"{places.words(symbol.value)} is Thumb code from {symbol.value:#x} on, which ARMv4 does not know"
            for symbol in elf.symbols if symbol.name == "$t" or symbol.name.startswith("$t.")]


def late_instructions(disassembly, places):
    """`disassembly`: objdump's lines, "address: word, tab, mnemonic, tab, operands"."""
    found = []
    for line in disassembly.splitlines():
        columns = line.split("\t")
        if len(columns) < 3 or not columns[0].strip().endswith(":"):
            continue
        address, mnemonic = int(columns[0].strip(" :"), 16), columns[2].strip()
        hint = columns[3:4] == ["{0}"]  # later processors' own nop; ours is a move
        if not mnemonic.startswith(".") and (hint or not ARMV4.match(mnemonic)):
            found.append(f"{places.words(address)} has the instruction {' '.join(columns[2:])} at {address:#x},"
                         " which ARMv4 does not know")
    return found
