#!/usr/bin/python3
"""Links the handheld's executable: ELF objects in, a Windows CE 3.0 program for ARM out.

    link.py --exports FOLDER --libgcc FILE --output zelcamera.exe FILE...

FILE: objects, libraries, and the one object of the resource compiler, in any order.

Beside the executable it leaves zelcamera.elf (the same code with names), zelcamera.map and zelcamera.imports.s.
When the image would not run on the handheld, no executable is written and every reason is told in a sentence.
"""

import argparse
import functools
import pathlib
import struct
import subprocess
import sys

import base_relocations
import imports
import pe
import refusals
from coff_resources import Resources
from elf import Elf
from link_map import Places, read_map

TOOL = "arm-linux-gnueabi-"
SCRIPT = pathlib.Path(__file__).with_name("image.ld")
COFF_I386 = b"\x4c\x01"  # what the resource compiler makes


class Refused(Exception):
    pass


def run(*command):
    result = subprocess.run([str(part) for part in command], stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
    if result.returncode != 0:
        raise Refused(result.stderr.strip() or f"{command[0]} ended with {result.returncode}")
    return result.stdout


def is_resources(path):
    with open(path, "rb") as file:
        return file.read(2) == COFF_I386


def link_objects(options, exports, files):
    """Leaves the linked ELF file beside the output and gives its path."""
    source = options.output.with_suffix(".imports.s")
    source.write_text(imports.import_source(exports))
    imports_object = options.output.with_suffix(".imports.o")
    run(TOOL + "as", "-march=armv4", "-meabi=5", "-o", imports_object, source)
    linked = options.output.with_suffix(".elf")
    # Symbols that stay open are named later, with their users; relocations are kept for the base relocations; a section
    # without a place in the script is no part of the image.
    run(TOOL + "ld", "-T", SCRIPT, "--gc-sections", "--fix-v4bx", "--emit-relocs", "--unresolved-symbols=ignore-all",
        "--orphan-handling=error", "--fatal-warnings", "--no-enum-size-warning", "--no-wchar-size-warning",
        "--no-warn-execstack", "-Map", options.output.with_suffix(".map"), "-o", linked,
        "--start-group", *files, options.libgcc, "--end-group", imports_object)
    return linked


def check(elf, linked, map_file):
    @functools.lru_cache(maxsize=None)
    def demangle(name):
        return run(TOOL + "c++filt", name).strip()

    places = Places(elf, read_map(map_file.read_text()), demangle)
    reasons = (refusals.unknown_symbols(elf, places) + refusals.open_relocations(elf, places)
               + refusals.fractions(elf, places) + refusals.thumb_code(elf, places)
               + refusals.late_instructions(run(TOOL + "objdump", "-d", linked), places))
    if reasons:
        raise Refused("\n".join(reasons))


def stored(elf, name, words=None):
    """A section's bytes as they lie in the file."""
    section = elf.section(name)
    data = bytearray(section.data)
    for address, word in (words or {}).items():
        struct.pack_into("<I", data, address - section.address, word)
    return bytes(data)


def make_image(elf, exports, resources):
    def rva(name):
        return elf.section(name).address - pe.BASE

    named = elf.named()
    import_rva = named["kImageEnd"] - pe.BASE
    bound = imports.bound_imports(elf, exports)
    directory, words = imports.import_directory(bound, import_rva, pe.BASE)
    resource_rva = pe.rounded(import_rva + len(directory), pe.PAGE)
    resource_data = resources.at(resource_rva)
    relocation_rva = pe.rounded(resource_rva + len(resource_data), pe.PAGE)
    relocations = base_relocations.relocation_blocks(base_relocations.address_words(elf), pe.BASE)

    sections = [
        pe.Section(".text", rva(".text"), stored(elf, ".text"), pe.CODE | pe.EXECUTE | pe.READ),
        pe.Section(".rdata", rva(".rdata"), stored(elf, ".rdata"), pe.CONTENT | pe.READ),
        pe.Section(".data", rva(".data"), stored(elf, ".data", words), pe.CONTENT | pe.READ | pe.WRITE,
                   named["kDataEnd"] - elf.section(".data").address),
        pe.Section(".idata", import_rva, directory, pe.CONTENT | pe.READ),
        pe.Section(".rsrc", resource_rva, resource_data, pe.CONTENT | pe.READ),
        pe.Section(".reloc", relocation_rva, relocations, pe.CONTENT | pe.READ | pe.DISCARDABLE)]
    first_word, last_word = min(words), max(words)
    return pe.image(sections, elf.entry, {
        pe.IMPORT: (import_rva, 20 * (len(bound) + 1)),
        pe.RESOURCE: (resource_rva, len(resource_data)),
        pe.RELOCATION: (relocation_rva, len(relocations)),
        pe.IMPORT_WORDS: (first_word - pe.BASE, last_word + 8 - first_word)})


def link(options):
    exports = imports.read_exports(options.exports)
    resources = [path for path in options.file if is_resources(path)]
    if len(resources) != 1:
        raise Refused(f"one object of resources is needed, {len(resources)} were given")
    linked = link_objects(options, exports, [path for path in options.file if path not in resources])
    elf = Elf(linked.read_bytes())
    check(elf, linked, options.output.with_suffix(".map"))
    options.output.write_bytes(make_image(elf, exports, Resources(resources[0].read_bytes())))


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--exports", type=pathlib.Path, required=True, help="folder with the libraries' lists of exports")
    parser.add_argument("--libgcc", type=pathlib.Path, required=True)
    parser.add_argument("--output", type=pathlib.Path, required=True)
    parser.add_argument("--group", "--end-group", action="store_true",
                        help="marks of a group of libraries that call each other; here all may")
    parser.add_argument("file", type=pathlib.Path, nargs="+")
    options = parser.parse_intermixed_args()
    options.output.unlink(missing_ok=True)
    try:
        link(options)
    except Refused as refused:
        print(f"{options.output.name} is not made:\n{refused}", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
