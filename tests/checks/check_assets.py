#!/usr/bin/python3
"""Texts are complete and fit; pictures, icons and sounds are what their sources give."""

import pathlib
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]

COMMANDS = [
    ("texts are complete and fit", ["tools/check_texts.py"]),
    ("the text check refuses damaged texts", ["tests/unit/text/check_texts_test.py"]),
    ("bitmaps and icons are up to date", ["resources/art/render.py", "--check"]),
    ("the key pad's picture is up to date", ["handheld/keypad/art/render.py", "--check"]),
    ("sounds are up to date", ["resources/sounds/make.py", "--check"]),
]


def main():
    failed = False
    for name, command in COMMANDS:
        result = subprocess.run(["/usr/bin/python3", *command], cwd=ROOT, stdout=subprocess.PIPE,
                                stderr=subprocess.STDOUT, text=True)
        print(f"ok {name}" if result.returncode == 0 else f"FAILED {name}: {result.stdout.strip()[-1500:]}")
        failed |= result.returncode != 0
    return failed


if __name__ == "__main__":
    sys.exit(main())
