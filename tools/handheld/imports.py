"""Binds the program's calls to the handheld's libraries.

Every export of a library gets a short piece of code under its own name, which jumps through a word that the loader fills,
and that word under the name "__imp_<name>".  The linker keeps the ones in use; what it kept becomes the import tables.
"""

import pathlib
import struct

# Calls whose result is 16 bits wide: the handheld's libraries leave anything above them, the compiler trusts that they do
# not.  These get a jump that comes back and clears (or fills, for signed ones) what is above.
NARROW_RESULTS = {"GetAsyncKeyState": "asr", "GetKeyState": "asr", "GetSystemDefaultLangID": "lsr",
                  "GetUserDefaultLangID": "lsr", "GlobalAddAtomW": "lsr", "GlobalDeleteAtom": "lsr",
                  "GlobalFindAtomW": "lsr", "RegisterClassW": "lsr", "fgetwc": "lsr", "towlower": "lsr", "towupper": "lsr"}

LIBRARIES = ("aygshell", "commctrl", "coredll")  # in the order of the words in image.ld
WORD_PREFIX = "__imp_"
ORDINAL_FLAG = 0x80000000


def read_exports(folder):
    """{library: {name: ordinal or None}}.  A line is a name, or "name @ordinal" where the library has no name for it."""
    exports = {}
    for library in LIBRARIES:
        rows = exports[library] = {}
        for line in pathlib.Path(folder, library + ".txt").read_text().splitlines():
            name, _, ordinal = line.partition("@")
            if name.strip() and not line.startswith("#"):
                rows[name.strip()] = int(ordinal) if ordinal else None
    return exports


def _jump(name):
    if name not in NARROW_RESULTS:
        return "ldr ip, 1f\nldr pc, [ip]\n"
    return ("str lr, [sp, #-4]!\nldr ip, 1f\nmov lr, pc\nldr pc, [ip]\n"
            f"lsl r0, r0, #16\n{NARROW_RESULTS[name]} r0, r0, #16\nldr pc, [sp], #4\n")


def import_source(exports):
    """Assembler text: one jump and one word for every export; the core library's come first where two have a name."""
    parts, seen = [".syntax unified\n.arm\n"], set()
    for library in reversed(LIBRARIES):
        for name in sorted(set(exports[library]) - seen):
            seen.add(name)
            parts.append(
                f'.section ".text.import.{name}","ax",%progbits\n'
                f'.weak "{name}"\n.type "{name}",%function\n"{name}":\n'
                f"{_jump(name)}"
                f'1: .word "{WORD_PREFIX}{name}"\n.size "{name}", . - "{name}"\n'
                f'.section ".iat.{library}.{name}","aw",%progbits\n'
                f'.globl "{WORD_PREFIX}{name}"\n"{WORD_PREFIX}{name}": .word 0\n')
    return "".join(parts)


def bound_imports(elf, exports):
    """{library: [(address of the word, name, ordinal or None)]} of what the program uses, in order of the words."""
    words = sorted((value, name[len(WORD_PREFIX):]) for name, value in elf.named().items()
                   if name.startswith(WORD_PREFIX))
    home = {name: library for library in LIBRARIES for name in exports[library]}
    bound = {}
    for address, name in words:
        library = home[name]
        bound.setdefault(library, []).append((address, name, exports[library][name]))
    return bound


def import_directory(bound, rva, base):
    """The import section's bytes for that address, its descriptors first, and {address of a word: what it holds on disk}."""
    descriptors_size = 20 * (len(bound) + 1)
    tables_size = sum(4 * (len(rows) + 1) for rows in bound.values())
    names_at = rva + descriptors_size + tables_size
    descriptors, tables, names, words = b"", b"", b"", {}

    def add_name(text):
        nonlocal names
        at = names_at + len(names)
        names += text + b"\0" * (2 - len(text) % 2)  # ended by a zero, the next one at an even address
        return at

    for library, rows in bound.items():
        table_at = rva + descriptors_size + len(tables)
        for address, name, ordinal in rows:
            entry = add_name(b"\0\0" + name.encode()) if ordinal is None else ORDINAL_FLAG | ordinal
            tables += struct.pack("<I", entry)
            words[address] = entry
        tables += bytes(4)
        library_name = add_name(library.encode() + b".dll")
        descriptors += struct.pack("<5I", table_at, 0, 0, library_name, rows[0][0] - base)
    return descriptors + bytes(20) + tables + names, words
