#!/usr/bin/python3
"""Audits the handheld's finished executable: header, imports, instructions, resources, sizes, and a second build."""

import bisect
import json
import pathlib
import re
import shutil
import struct
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path[:0] = [str(ROOT / "tests" / "support"), str(ROOT / "tools" / "handheld")]

from elf import Elf  # noqa: E402
from pe_file import PeFile  # noqa: E402

BUILD = ROOT / "build" / "handheld"
TWIN = ROOT / "build" / "handheld-twin"
EXPORTS = ROOT / "platform" / "exports"
DOCUMENTED = ROOT / "tests" / "checks" / "ce3_documented.txt"

KIB = 1024
MIB = 1024 * KIB

# Field of the optional header: (offset, bytes, value).
HEADER = {
    "image base": (28, 4, 0x10000), "section alignment": (32, 4, 0x1000), "file alignment": (36, 4, 0x200),
    "operating system": (40, 2, 4), "operating system, minor": (42, 2, 0),
    "subsystem version": (48, 2, 3), "subsystem version, minor": (50, 2, 0), "subsystem": (68, 2, 9),
    "stack": (72, 4, 0x10000)}

# Words that ARMv4 does not execute, or executes as something else: (mask, value, what).
LATER = [
    (0x0FFFFFF0, 0x012FFF10, "bx"), (0x0FFFFFF0, 0x012FFF20, "bxj"), (0x0FFFFFF0, 0x012FFF30, "blx"),
    (0xFE000000, 0xFA000000, "blx"), (0x0FFF0FF0, 0x016F0F10, "clz"), (0xFFF000F0, 0xE1200070, "bkpt"),
    (0x0F9000F0, 0x01000050, "qadd"), (0x0F900090, 0x01000080, "smla"), (0x0E1000D0, 0x000000D0, "ldrd or strd"),
    (0x0FF00000, 0x03000000, "movw"), (0x0FF00000, 0x03400000, "movt"), (0x0FFFF000, 0x0320F000, "a hint"),
    (0x0F000010, 0x06000010, "a media instruction"),
    (0x0FF000F0, 0x00600090, "mls"), (0x0FF000F0, 0x00400090, "umaal"), (0x0F8000F0, 0x01800090, "ldrex or strex"),
    (0x0C000000, 0x0C000000, "a coprocessor instruction or swi"), (0xF0000000, 0xF0000000, "an unconditional instruction")]

# Calls with results of 16 bits: what their jumps do to the result, to the left and back, with the sign or without.
NARROW = {"RegisterClassW": (0xE1A00800, 0xE1A00820), "GetKeyState": (0xE1A00800, 0xE1A00840),
          "GetAsyncKeyState": (0xE1A00800, 0xE1A00840)}

# The compiler's functions that compute with fractions; nobody but they themselves may call them.
FRACTIONS = re.compile(r"__aeabi_(c?[df]\w+|u?[il]2[df])$|__\w+[ds]f[23]?$|__fix\w+|__float\w+|ldexp$")


class Code:
    """The words of the image that are instructions, and the functions they belong to."""

    def __init__(self, elf, text):
        self.text, self.start = text, elf.section(".text").address
        self.functions = elf.functions()
        self.starts = [begin for begin, _, _ in self.functions]
        marks = sorted((symbol.value, symbol.name[:2]) for symbol in elf.symbols if symbol.name[:2] in ("$a", "$d", "$t"))
        self.thumb = [address for address, mark in marks if mark == "$t"]
        self.ranges = [(address, end) for (address, mark), (end, _) in zip(marks, marks[1:] + [(self.start + len(text), "")])
                       if mark == "$a" and self.start <= address < self.start + len(text)]

    def words(self):
        for begin, end in self.ranges:
            for address in range(begin, min(end, self.start + len(self.text)), 4):
                yield address, struct.unpack_from("<I", self.text, address - self.start)[0]

    def function(self, address):
        """Assembled library functions tell no size: what follows a function's start is its own until the next one's."""
        index = bisect.bisect_right(self.starts, address) - 1
        return self.functions[index][2] if index >= 0 else hex(address)

    def calls(self):
        """(caller, callee) of every branch from one function to another's start."""
        starts = {begin: name for begin, _, name in self.functions}
        for address, word in self.words():
            if word & 0x0E000000 == 0x0A000000:
                distance = (word & 0xFFFFFF) - ((word & 0x800000) << 1)
                target = address + 8 + 4 * distance
                if target in starts:
                    yield self.function(address), starts[target]


def demangled(name):
    return subprocess.run(["arm-linux-gnueabi-c++filt", name], stdout=subprocess.PIPE, text=True, check=True).stdout.strip()


def names_in(path):
    lines = path.read_text().splitlines()
    return {line.partition("@")[0].strip() for line in lines if line and not line.startswith("#")}


def check_header(image):
    if (image.machine, image.wide) != (0x1C0, False):
        yield f"machine {image.machine:#x}"
    if image.flags & 0x0102 != 0x0102:
        yield f"file flags {image.flags:#x}: not an executable of 32 bits"
    if image.flags & 1:
        yield "relocations are said to be stripped"
    if image.time:
        yield "the header holds a time, so that no two builds are the same"
    for name, (offset, size, value) in HEADER.items():
        if image.optional(offset, size) != value:
            yield f"{name} is {image.optional(offset, size):#x}, not {value:#x}"
    entry, text = image.optional(16), image.section(".text")
    if not text.rva <= entry < text.rva + text.memory:
        yield f"the entry {entry:#x} is outside the code"


def check_imports(image):
    documented = names_in(DOCUMENTED)
    for library, name, _ in image.imports():
        listed = EXPORTS / library.replace(".dll", ".txt")
        if not listed.exists() or name not in names_in(listed):
            yield f"{name} of {library} is in no list"
        elif name not in documented:
            yield f"{name} of {library} is not known to be in Windows CE 3.0"


def check_instructions(code):
    if code.thumb:
        yield f"Thumb code at {code.thumb[0]:#x}"
    count = 0
    for address, word in code.words():
        count += 1
        for mask, value, what in LATER:
            # The tables read conditions; 0xF is none.
            if word & mask == value and (word >> 28 != 0xF or mask >> 28):
                yield f"{what} ({word:#010x}) at {address:#x} in {code.function(address)}"
    if count < 10000:
        yield f"only {count} instructions were found"


def check_fractions(code):
    for caller, callee in sorted(set(code.calls())):
        if FRACTIONS.match(callee) and not FRACTIONS.match(caller):
            yield f"{demangled(caller)} calls {callee}"


def check_narrow_results(image, elf):
    addresses = {name: begin for begin, _, name in elf.functions()}
    text, start = elf.section(".text").data, elf.section(".text").address
    used = [name for _, name, _ in image.imports() if name in NARROW]
    for name in used:
        jump = text[addresses[name] - start:addresses[name] - start + 32]
        if struct.pack("<II", *NARROW[name]) not in jump:
            yield f"{name} comes back with whatever stands above its 16 bits"
    if not used:
        yield "none is called any more"


def check_same_code(elf, image):
    """What is audited by names is what lies in the image."""
    if image.content(".text") != elf.section(".text").data:
        yield "zelcamera.elf and zelcamera.exe differ in their code"
    if not image.relocated_words():
        yield "no base relocations"
    yield from (f"an address is misaligned at {rva:#x}" for rva in image.relocated_words() if rva % 4)


def check_resources(image, desktop):
    here, there = image.resources(), desktop.resources()
    for key in sorted(here.keys() | there.keys(), key=str):
        if here.get(key) != there.get(key):
            yield f"resource {key} differs from the desktop's"
    if not here:
        yield "no resources"


def check_sizes(image):
    for name, size, most in (
            ("the program", len(image.data), MIB), ("its code", image.section(".text").memory, 256 * KIB),
            ("its static data", image.section(".data").memory + image.section(".rdata").memory, 2 * MIB)):
        if size > most:
            yield f"{name} takes {size} bytes of {most}"


def check_layouts():
    for preset in ("desktop", "layout", "handheld"):
        commands = json.loads((ROOT / "build" / preset / "compile_commands.json").read_text())
        if not any(command["file"].endswith("platform/ce_layout.cpp") for command in commands):
            yield f"the {preset} build does not compile platform/ce_layout.cpp"


def check_twin():
    """Built once more, elsewhere and from nothing: the same bytes."""
    shutil.rmtree(TWIN, ignore_errors=True)
    try:
        for command in (["cmake", "--preset", "handheld", "-B", TWIN], ["cmake", "--build", TWIN, "--target", "zelcamera"]):
            result = subprocess.run(command, cwd=ROOT, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
            if result.returncode:
                yield f"the second build failed: {result.stdout[-300:]}"
                return
        if (TWIN / "zelcamera.exe").read_bytes() != (BUILD / "zelcamera.exe").read_bytes():
            yield "two builds give different files"
    finally:
        shutil.rmtree(TWIN, ignore_errors=True)


def main():
    failed = False

    def report(name, problems):
        nonlocal failed
        problems = list(problems)
        failed |= bool(problems)
        print(f"FAILED handheld {name}: " + "; ".join(problems[:5]) if problems else f"ok handheld {name}", flush=True)

    image, desktop = PeFile(BUILD / "zelcamera.exe"), PeFile(ROOT / "build" / "desktop" / "zelcamera.exe")
    elf = Elf((BUILD / "zelcamera.elf").read_bytes())
    code = Code(elf, image.content(".text"))
    report("header", check_header(image))
    report("imports", check_imports(image))
    report("instructions are ARMv4", check_instructions(code))
    report("no floating point", check_fractions(code))
    report("narrow results are widened", check_narrow_results(image, elf))
    report("code is the code with names", check_same_code(elf, image))
    report("resources are the desktop's", check_resources(image, desktop))
    report("sizes", check_sizes(image))
    report("record layouts are asserted in every build", check_layouts())
    report("two builds are the same", check_twin())
    return failed


if __name__ == "__main__":
    sys.exit(main())
