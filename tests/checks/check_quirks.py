#!/usr/bin/python3
"""Every test that docs/quirks.md or a comment names as holding an oddity exists."""

import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]

DEFINED = re.compile(r"\bTEST(?:_F|_P)?\(\s*(\w+),\s*(\w+)\s*\)")
NAMED_IN_COMMENT = re.compile(r"//.*?\((\w+\.\w+)(?:, (\w+\.\w+))*\)\s*$")
NAMED_IN_TABLE = re.compile(r"`([A-Z]\w+\.(?:\w+|\*))`")


def tracked(*patterns):
    names = subprocess.run(["git", "ls-files", "-co", "--exclude-standard", *patterns], cwd=ROOT, check=True,
                           stdout=subprocess.PIPE, text=True).stdout.split("\n")
    return [ROOT / name for name in names if name]


def defined_tests():
    found = set()
    for path in tracked("tests/**.cpp"):
        found |= {".".join(pair) for pair in DEFINED.findall(path.read_text(encoding="utf-8"))}
    return found


def exists(name, tests):
    if name.endswith(".*"):
        return any(test.startswith(name[:-1]) for test in tests)
    return name in tests


def main():
    tests = defined_tests()
    failed = False

    def report(what, missing):
        nonlocal failed
        print(f"FAILED {what}: no such test: {', '.join(missing)}" if missing else f"ok {what}")
        failed |= bool(missing)

    quirks = (ROOT / "docs" / "quirks.md").read_text(encoding="utf-8")
    report("docs/quirks.md names real tests", sorted({name for name in NAMED_IN_TABLE.findall(quirks) if not exists(name, tests)}))
    missing = set()
    for path in tracked("*.cpp", "*.h"):
        for line in path.read_text(encoding="utf-8").splitlines():
            if match := NAMED_IN_COMMENT.search(line):
                missing |= {f"{name} ({path.relative_to(ROOT)})" for name in match.groups() if name and not exists(name, tests)}
    report("comments name real tests", sorted(missing))
    return failed


if __name__ == "__main__":
    sys.exit(main())
