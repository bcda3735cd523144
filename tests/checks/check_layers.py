#!/usr/bin/python3
"""Who may include whom: each layer sees only the layers below it, and the program nothing of its surroundings."""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]

# The dialogs of settings/ are a layer of their own: its records stand below the card, they above it.
SETTINGS_DIALOG = re.compile(r"settings/\w+_(dlg|sheet)\.(h|cpp)$")

# Layer -> layers that it may include besides itself.
MAY_INCLUDE = {
    "jpeg": set(),
    "platform": set(),
    "framework": {"platform"},
    "settings": {"framework", "platform"},
    "device": {"settings", "platform"},
    "capture": {"device", "settings", "jpeg", "framework", "platform"},
    "liveview": {"capture", "device", "settings", "jpeg", "framework", "platform", "resources"},
    "settings dialogs": {"device", "settings", "framework", "platform", "resources"},
    "app": {"settings dialogs", "liveview", "capture", "device", "settings", "jpeg", "framework", "platform", "resources"},
    "handheld": {"device", "resources", "platform"},
    "tools": {"jpeg", "device"},
}

# Leaf headers of app/ that lower folders share; they include nothing of their own folder but each other.
SHARED_LEAVES = {"app/screen_state.h", "app/posted_messages.h", "app/text_lookup.h", "app/overlay_bitmaps.h"}
LEAF_READERS = {"capture", "liveview", "settings dialogs"}

# The portable files of a folder with both kinds include no platform header; the compiler of the native build sees to it.
INCLUDE = re.compile(r'^\s*#\s*include\s+"([^"]+)"', re.MULTILINE)


def layer_of(name):
    """The layer of a file or of an include's target, both told from the root."""
    return "settings dialogs" if SETTINGS_DIALOG.match(name) else name.split("/")[0]


def sources(layer):
    """A layer's files; its name begins with its folder's."""
    found = (path for suffix in ("*.h", "*.cpp") for path in (ROOT / layer.split()[0]).rglob(suffix))
    return sorted(path for path in found if layer_of(str(path.relative_to(ROOT))) == layer)


def problems_of(path, layer):
    for target in INCLUDE.findall(path.read_text(encoding="utf-8")):
        if "/" not in target or layer_of(target) in MAY_INCLUDE[layer] | {layer}:
            continue
        if target in SHARED_LEAVES and layer in LEAF_READERS:
            continue
        yield f"{path.relative_to(ROOT)} includes {target}"


def check_leaves():
    for leaf in sorted(SHARED_LEAVES):
        for target in INCLUDE.findall((ROOT / leaf).read_text(encoding="utf-8")):
            if target.startswith("app/") and target not in SHARED_LEAVES:
                yield f"{leaf} is shared downwards but includes {target}"


def main():
    failed = False
    groups = [(f"layer {layer}", [problem for path in sources(layer) for problem in problems_of(path, layer)])
              for layer in MAY_INCLUDE]
    groups.append(("shared leaf headers", list(check_leaves())))
    for name, problems in groups:
        print(f"FAILED {name}: " + "; ".join(problems) if problems else f"ok {name}")
        failed |= bool(problems)
    return failed


if __name__ == "__main__":
    sys.exit(main())
