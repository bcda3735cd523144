#!/usr/bin/python3
"""Links the program that runs the handheld's image: tests, test doubles and loader.

    link_loader.py --image zelcamera --exports FOLDER --libgcc FILE --output image_tests [--inlined OBJECT...]
        --objects OBJECT...

--image: the executable and, with names, the same as an ELF file, without their endings.

The tests call the program's functions as any caller does. Here each such call is led through a door, a jump that the
loader points into the image it has loaded; nothing of the program itself is linked. A function that the image does not
have as one of its own is taken from the objects after --inlined, which reach it on another way. A function that neither
knows ends the test that calls it as skipped, with its name.

The other way round the image's imports: each is bound to the function of its name among the objects, its double.
"""

import argparse
import pathlib
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path[:0] = [str(ROOT / "tools" / "handheld"), str(ROOT / "tests" / "support")]
from elf import FUNCTION, Elf  # noqa: E402
from imports import read_exports  # noqa: E402
from pe_file import PeFile  # noqa: E402

TOOL = "arm-linux-gnueabi-"
OBJECT = 1  # kind of a symbol that is data
BASE = 0x8000000  # far from every place where an image is put


def run(*command):
    subprocess.run([str(part) for part in command], check=True)


def names(paths, undefined):
    return {symbol.name for path in paths for symbol in Elf(path.read_bytes()).symbols
            if symbol.name and symbol.undefined == undefined}


def function(name, code):
    return f'.section .text\n.globl "{name}"\n.type "{name}",%function\n"{name}":\n{code}'


def doors(wanted, functions):
    parts = ['.syntax unified\n.arm\n.section .doors,"aw"\n.globl kDoors\nkDoors:\n']
    for name in sorted(wanted & functions.keys()):
        parts.append(function(name, "ldr ip, 1f\nldr pc, [ip]\n1: .word 2f\n")
                     + f'.section .doors,"aw"\n2: .word {functions[name]:#x}\n')
    return "".join(parts) + '.section .doors,"aw"\n.globl kDoorsEnd\nkDoorsEnd:\n'


def absences(missing):
    return "".join(function(name, f'ldr r0, 1f\nb SkipWithout\n1: .word 2f\n2: .asciz "{plain}"\n.balign 4\n')
                   for name, plain in missing)


def demangled(mangled):
    result = subprocess.run([TOOL + "c++filt"], input="\n".join(mangled), stdout=subprocess.PIPE, text=True, check=True)
    return zip(mangled, result.stdout.split("\n"))


def doubles(imports, exports, defined):
    """The table of the imports that the objects have a function for: library, name as it is bound, function."""
    rows = []
    for library, name, _ in imports:
        by_ordinal = {number: known for known, number in exports[library.removesuffix(".dll")].items() if number}
        plain, bound = (by_ordinal.get(name), f"@{name}") if isinstance(name, int) else (name, name)
        if plain in defined:
            rows.append(f'.word 1f, 2f, "{plain}"\n.pushsection .rodata.names\n1: .asciz "{library}"\n2: .asciz "{bound}"\n.popsection\n')
    return (".section .rodata.doubles\n.balign 4\n.globl kDoubles\nkDoubles:\n" + "".join(rows)
            + ".globl kDoublesEnd\nkDoublesEnd:\n")


def symbol_table(symbols):
    rows = "".join(f'.word {symbol.value:#x}, {symbol.size}, 1f\n.pushsection .rodata.names\n1: .asciz "{symbol.name}"\n.popsection\n'
                   for symbol in symbols)
    return (f".section .rodata.symbols\n.balign 4\n.globl kImageSymbols\nkImageSymbols:\n{rows}"
            ".globl kImageSymbolsEnd\nkImageSymbolsEnd:\n")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--image", type=pathlib.Path, required=True)
    parser.add_argument("--exports", type=pathlib.Path, required=True)
    parser.add_argument("--libgcc", type=pathlib.Path, required=True)
    parser.add_argument("--output", type=pathlib.Path, required=True)
    parser.add_argument("--inlined", type=pathlib.Path, nargs="*", default=[])
    parser.add_argument("--objects", type=pathlib.Path, nargs="+", required=True)
    options = parser.parse_args()

    elf = Elf(options.image.with_suffix(".elf").read_bytes())
    named = [symbol for symbol in elf.symbols
             if symbol.kind in (FUNCTION, OBJECT) and not symbol.undefined and symbol.size]
    # The compiler's helpers, whose names are not C++'s, come from its own library: they work before an image is loaded.
    functions = {symbol.name: symbol.value for symbol in named if symbol.kind == FUNCTION and symbol.name.startswith("_Z")}
    source = options.output.with_suffix(".doors.s")
    defined = names(options.objects, undefined=False)
    wanted = names([*options.objects, *options.inlined], undefined=True) - defined
    missing = sorted(name for name in wanted - functions.keys() - names(options.inlined, undefined=False)
                     if name.startswith("_Z"))
    imports = PeFile(options.image.with_suffix(".exe")).imports()
    source.write_text(doors(wanted, functions) + absences(demangled(missing))
                      + doubles(imports, read_exports(options.exports), defined) + symbol_table(named))
    doors_object = options.output.with_suffix(".doors.o")
    run(TOOL + "as", "-march=armv4", "-meabi=5", "-o", doors_object, source)
    # The doors' names come before the weak ones of what was inlined.
    run(TOOL + "ld", "--fix-v4bx", "--gc-sections", "-e", "LoaderStart", f"-Ttext-segment={BASE:#x}", "-z", "noexecstack",
        "--no-enum-size-warning", "--no-wchar-size-warning", "--no-warn-mismatch", "--demangle", "-o", options.output,
        *options.objects, doors_object, *options.inlined, options.libgcc)


if __name__ == "__main__":
    try:
        main()
    except subprocess.CalledProcessError as failed:
        sys.exit(failed.returncode)
