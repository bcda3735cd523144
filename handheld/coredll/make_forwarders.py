#!/usr/bin/env python3
"""Writes a stand-in library's forwarders.def: the names of the handheld's library that the desktop already supplies.

usage: make_forwarders.py NAMES OWN.def > forwarders.def

NAMES lists the handheld library's exports, one a line ("#" starts a comment).  A name goes to the first desktop
library whose import library has it, by itself or with the desktop's "W" suffix (the handheld knows wide texts
only).  Names that OWN.def implements are left to it.
"""
import re
import subprocess
import sys
from pathlib import Path

LIBRARY_FOLDER = Path("/usr/x86_64-w64-mingw32/lib")
DESKTOP = ["kernel32", "user32", "gdi32", "advapi32", "winmm", "comctl32", "imm32", "msimg32", "version", "mpr",
           "comdlg32", "shell32", "shlwapi", "msacm32", "crypt32", "msvcrt"]

# These take paths but are not mapped into the object store: forwarding them would hide that.
UNMAPPED_PATHS = {"AddFontResourceW", "CreateEnhMetaFileW", "FindFirstChangeNotificationW", "FindFirstFileExW",
                  "GetFileVersionInfoSizeW", "GetFileVersionInfoW", "GetOpenFileNameW", "GetSaveFileNameW",
                  "GetTempFileNameW", "GetTempPathW", "LoadLibraryExW", "RemoveFontResourceW", "_wfreopen"}
# The compiler's own: they work only inside the module that calls them, or are data.
COMPILER = {"setjmp", "longjmp", "__C_specific_handler", "__CxxFrameHandler", "_XcptFilter", "_purecall",
            "_HUGE", "_fltused"}
# The same name for another thing.  The headers mean the standard swprintf and wcstok, with a size and a state; the
# shell's calls take other records here; and nobody wants ExitWindowsEx to log off the desktop.
OTHERS = {"swprintf", "vswprintf", "wcstok", "SHChangeNotifyDeregister", "SHChangeNotifyRegister",
          "SHCreateWorkerWindow", "ExitWindowsEx"}


def symbols(library, letter):
    """Names with the given type letter in nm's listing of an import library."""
    listing = subprocess.run(["x86_64-w64-mingw32-nm", LIBRARY_FOLDER / f"lib{library}.a"], check=True,
                             stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True).stdout
    return set(re.findall(rf"^[0-9a-f]+ {letter} (\S+)$", listing, re.M))


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    names = [line.strip() for line in Path(sys.argv[1]).read_text().splitlines()]
    names = sorted({name for name in names if name and not name.startswith("#")})
    own = set(re.findall(r"^ +(\w+)", Path(sys.argv[2]).read_text(), re.M))
    imports = {library: {name.removeprefix("__imp_") for name in symbols(library, "I")} for library in DESKTOP}
    # Where the toolchain's C library brings its own version (its swprintf takes a size, msvcrt's does not),
    # the headers mean that one.
    static = symbols("mingwex", "T")

    print(f"; Written by make_forwarders.py; the names that need work of their own are in {Path(sys.argv[2]).name}.\nEXPORTS")
    for name in names:
        if name in own | UNMAPPED_PATHS | COMPILER | OTHERS:
            continue
        for library in DESKTOP:
            target = next((n for n in (name, name + "W") if n in imports[library]), None)
            if target and not (library == "msvcrt" and name in static):
                print(f"    {name}={library}.{target}")
                break


main()
