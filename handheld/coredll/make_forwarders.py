#!/usr/bin/env python3
"""Writes forwarders.def: the names of the handheld's core library that the desktop's libraries already supply.

usage: make_forwarders.py NAMES > forwarders.def

NAMES lists the core library's exports, one a line ("#" starts a comment).  A name goes to the first desktop
library whose import library has it, by itself or with the desktop's "W" suffix (the handheld knows wide texts
only).  Names that coredll.def implements are left to it.
"""
import re
import subprocess
import sys
from pathlib import Path

LIBRARY_FOLDER = Path("/usr/x86_64-w64-mingw32/lib")
DESKTOP = ["kernel32", "user32", "gdi32", "advapi32", "winmm", "comctl32", "imm32", "msimg32", "version", "mpr",
           "comdlg32", "shell32", "msacm32", "crypt32", "msvcrt"]

# These take paths but are not mapped into the object store: forwarding them would hide that.
UNMAPPED_PATHS = {"AddFontResourceW", "CreateEnhMetaFileW", "FindFirstChangeNotificationW", "FindFirstFileExW",
                  "GetFileVersionInfoSizeW", "GetFileVersionInfoW", "GetOpenFileNameW", "GetSaveFileNameW",
                  "GetTempFileNameW", "GetTempPathW", "LoadLibraryExW", "RemoveFontResourceW", "_wfreopen"}
# The compiler's own: they work only inside the module that calls them, or are data.
COMPILER = {"setjmp", "longjmp", "__C_specific_handler", "__CxxFrameHandler", "_XcptFilter", "_purecall",
            "_HUGE", "_fltused"}
# Same name, other arguments: the headers mean the standard ones, with a size or a state.
OTHER_ARGUMENTS = {"swprintf", "vswprintf", "wcstok"}


def symbols(library, letter):
    """Names with the given type letter in nm's listing of an import library."""
    listing = subprocess.run(["x86_64-w64-mingw32-nm", LIBRARY_FOLDER / f"lib{library}.a"], check=True,
                             stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True).stdout
    return set(re.findall(rf"^[0-9a-f]+ {letter} (\S+)$", listing, re.M))


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    names = [line.strip() for line in Path(sys.argv[1]).read_text().splitlines()]
    names = sorted({name for name in names if name and not name.startswith("#")})
    own = set(re.findall(r"^ +(\w+)\s*=", (Path(__file__).parent / "coredll.def").read_text(), re.M))
    imports = {library: {name.removeprefix("__imp_") for name in symbols(library, "I")} for library in DESKTOP}
    # Where the toolchain's C library brings its own version (its swprintf takes a size, msvcrt's does not),
    # the headers mean that one.
    static = symbols("mingwex", "T")

    print("; Written by make_forwarders.py; the names that need work of their own are in coredll.def.\nEXPORTS")
    for name in names:
        if name in own | UNMAPPED_PATHS | COMPILER | OTHER_ARGUMENTS:
            continue
        for library in DESKTOP:
            target = next((n for n in (name, name + "W") if n in imports[library]), None)
            if target and not (library == "msvcrt" and name in static):
                print(f"    {name}={library}.{target}")
                break


main()
