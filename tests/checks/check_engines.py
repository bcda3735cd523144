#!/usr/bin/python3
"""The files compiled for an instruction set define nothing that others could call by accident: a plain inline function,
compiled for AVX2 there, might be the copy that the linker keeps for everybody."""

import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
PRESETS = ["native", "desktop"]
OWN = re.compile(r"Lanes|jpeg::decodeStrips(Sse|Avx2)\(")


def strangers(path):
    """Functions that the object defines for all, and that do not name its lanes."""
    lines = subprocess.run(["nm", "-C", "--defined-only", path], capture_output=True, text=True, check=True).stdout
    defined = re.findall(r"^[0-9a-f]* ?([TWVu]) (.*)$", lines, re.MULTILINE)
    return [name for kind, name in defined if kind in "TW" and not OWN.search(name)]


def main():
    failed = False
    for preset in PRESETS:
        objects = sorted((ROOT / "build" / preset / "jpeg").glob("**/engine_*.cpp.o*"))
        objects = [path for path in objects if path.suffix in (".o", ".obj")]
        if not objects:
            print(f"skipped {preset} engine objects: not built")
        for path in objects:
            found = strangers(path)
            name = f"{preset} {path.name} defines only its own"
            print(f"FAILED {name}: {', '.join(found)}" if found else f"ok {name}")
            failed |= bool(found)
    return 1 if failed else 0


sys.exit(main())
