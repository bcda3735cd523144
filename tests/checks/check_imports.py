#!/usr/bin/python3
"""The program may call only what the handheld's libraries export: checks the finished image and its objects."""

import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
BUILD = ROOT / "build" / "desktop"
LISTS = ROOT / "platform" / "exports"
TOOL = "x86_64-w64-mingw32-"

PROGRAM_FOLDERS = ["app", "capture", "device", "framework", "jpeg", "liveview", "settings"]

# What the compiler's own start-up and C++ library take from the desktop, as the linked image shows; what the program's
# own sources call is read from their objects instead.
RUNTIME = set((ROOT / "tests" / "checks" / "desktop_runtime.txt").read_text().split())

# Symbols that the compiler itself adds to objects.
COMPILER = re.compile(r"^(_Z|__gxx|__cxa|_Unwind|___chkstk|__main$|__dso|_pei386|atexit$|\.refptr|__emutls|_tls)")


def exported(library):
    names = (LISTS / f"{library}.txt").read_text().splitlines()
    return {name.partition("@")[0].strip() for name in names if name and not name.startswith("#")}


def output(*command):
    return subprocess.run(command, check=True, stdout=subprocess.PIPE, text=True).stdout


def imports(image):
    """(library, name) of every import of an image."""
    library = None
    for line in output(TOOL + "objdump", "-p", str(image)).splitlines():
        if match := re.match(r"\s*DLL Name: (.*)", line):
            library = match.group(1).lower().removesuffix(".dll")
        elif library and (match := re.match(r"\s+[0-9a-f]+\s+\d+\s+(\S+)$", line)):
            yield library, match.group(1)


def check_image(lists, report):
    foreign = []
    for library, name in imports(BUILD / "zelcamera.exe"):
        if library in lists:
            if name not in lists[library]:
                foreign.append(f"{name} is imported from {library}.dll, which has no such name on the handheld")
        elif name not in RUNTIME:
            foreign.append(f"{name} is imported from {library}.dll, which the handheld does not have")
    report("image imports only what the handheld exports", foreign)


def check_objects(lists, report):
    known = set().union(*lists.values())
    defined, wanted = set(), {}
    for folder in PROGRAM_FOLDERS:
        for item in sorted((BUILD / folder).rglob("*.obj")):
            for line in output(TOOL + "nm", str(item)).splitlines():
                kind, symbol = line.split()[-2:]
                symbol = symbol.removeprefix("__imp_")
                if kind in "Uw":
                    wanted.setdefault(symbol, item.name)
                else:
                    defined.add(symbol)
    foreign = [f"{user} calls {symbol}" for symbol, user in sorted(wanted.items())
               if symbol not in known and symbol not in defined and not COMPILER.match(symbol)]
    if not wanted:
        foreign.append("no objects were found")
    report("objects call only what the handheld exports", foreign)


def check_companions(report):
    """The program never brings code of the stand-ins."""
    missing = [name for name in ("coredll.dll", "aygshell.dll", "commctrl.dll", "sio.dll", "Localization.dll")
               if not (BUILD / name).exists()]
    report("stand-ins lie beside the program", [f"{name} is missing" for name in missing])


def main():
    failed = False

    def report(name, problems):
        nonlocal failed
        print(f"FAILED {name}: " + "; ".join(problems) if problems else f"ok {name}")
        failed |= bool(problems)

    lists = {library: exported(library) for library in ("coredll", "aygshell", "commctrl")}
    check_image(lists, report)
    check_objects(lists, report)
    check_companions(report)
    return failed


if __name__ == "__main__":
    sys.exit(main())
