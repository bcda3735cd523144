#!/usr/bin/python3
"""Who may include whom: each folder sees only the folders below it, and the program nothing of its surroundings."""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]

# Folder -> folders that it may include besides itself.
MAY_INCLUDE = {
    "jpeg": set(),
    "platform": set(),
    "framework": {"platform"},
    "settings": {"framework", "platform"},
    "device": {"settings", "platform"},
    "capture": {"device", "settings", "jpeg", "framework", "platform"},
    "liveview": {"capture", "device", "settings", "jpeg", "framework", "platform", "resources"},
    "app": {"liveview", "capture", "device", "settings", "jpeg", "framework", "platform", "resources"},
    "handheld": {"device", "resources", "platform"},
    "tools": {"jpeg", "device"},
}

# Leaf headers of app/ that lower folders share; they include nothing of their own folder but each other.
SHARED_LEAVES = {"app/screen_state.h", "app/posted_messages.h", "app/text_lookup.h", "app/overlay_bitmaps.h"}
LEAF_READERS = {"capture", "liveview", "settings"}

# The portable files of a folder with both kinds include no platform header; the compiler of the native build sees to it.
INCLUDE = re.compile(r'^\s*#\s*include\s+"([^"]+)"', re.MULTILINE)


def sources(folder):
    return sorted(path for suffix in ("*.h", "*.cpp") for path in (ROOT / folder).rglob(suffix))


def problems_of(path, folder):
    for target in INCLUDE.findall(path.read_text(encoding="utf-8")):
        top = target.split("/")[0]
        if "/" not in target or top == folder or top in MAY_INCLUDE[folder]:
            continue
        if target in SHARED_LEAVES and folder in LEAF_READERS:
            continue
        yield f"{path.relative_to(ROOT)} includes {target}"


def check_leaves():
    for leaf in sorted(SHARED_LEAVES):
        for target in INCLUDE.findall((ROOT / leaf).read_text(encoding="utf-8")):
            if target.startswith("app/") and target not in SHARED_LEAVES:
                yield f"{leaf} is shared downwards but includes {target}"


def main():
    failed = False
    groups = [(f"layer {folder}", [problem for path in sources(folder) for problem in problems_of(path, folder)])
              for folder in MAY_INCLUDE]
    groups.append(("shared leaf headers", list(check_leaves())))
    for name, problems in groups:
        print(f"FAILED {name}: " + "; ".join(problems) if problems else f"ok {name}")
        failed |= bool(problems)
    return failed


if __name__ == "__main__":
    sys.exit(main())
