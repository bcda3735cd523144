#!/usr/bin/python3
"""Starts the camera on the simulated card in a window.

Where there is no display, or with --session, a short scripted session plays on a virtual one instead
and prints the paths of what it made.
"""

import argparse
import os
import pathlib
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[1]
sys.path.insert(0, str(ROOT / "tests" / "support"))
sys.path.insert(0, str(ROOT / "tools"))

from camera_session import play_session  # noqa: E402
from language_walk import walk_languages  # noqa: E402
from wine_session import wine_session  # noqa: E402

HOME = pathlib.Path(os.environ.get("XDG_DATA_HOME", pathlib.Path.home() / ".local" / "share")) / "zel-camera"

# Option, variable of the stand-in handheld, placeholder, help.
SETTINGS = [
    ("root", "HANDHELD_ROOT", "FOLDER", "folder that holds the object store (default: %s)" % (HOME / "store")),
    ("store-kb", "HANDHELD_STORE_KB", "KIB", "size of the object store in KiB (default: 65536)"),
    ("lcid", "HANDHELD_LCID", "LCID", "default locale identifier, decimal: 1033 English, 1031 German, 1036 French, "
     "1040 Italian, 1046 Portuguese, 3082 Spanish, 1042 Korean, 2052 and 1028 Chinese (default: the desktop's)"),
    ("camera", "HANDHELD_CAMERA", "SOURCE", "what the card sees: scene, folder:PATH, none (default: scene)"),
    ("fps", "HANDHELD_FPS", "RATE", "frames per second that the card offers (default: 15)"),
    ("log", "HANDHELD_LOG", "FILE", "file that receives one line per control call and card event"),
    ("card", "HANDHELD_CARD", "FILE", "control file with faults, one word a line: unplugged, silent, refuse-still, "
     "garbage, short, long; re-read whenever it changes"),
]

KEYS = """\
The handheld's keys, on the PC keyboard and on the key pad below the screen:
  F1      application key 1: Menu
  F2      application key 2: Play
  F3      application key 3: Zoom Out
  F4      application key 4: Zoom In
  F5      action key, the round one: shutter
A key of the pad is down for as long as the mouse button is.  A click on the card pulls it out of its slot, another
puts it back; a card that stays out for a second or two ends the camera.  Beside them F10 opens the menu bar,
Escape closes a dialog and Shift+F1 opens the help.

The viewer and the help page have keys of their own:
  viewer  Left and Right step through the pictures, Up and Down zoom, Enter switches between the whole picture and
          its full size or pauses a movie, Escape goes back to the camera
  help    the arrow and page keys move, Tab and Enter follow a link, Backspace goes back, Escape closes it
"""


def build():
    log = ROOT / "build" / "desktop-build.log"
    log.parent.mkdir(exist_ok=True)
    with log.open("w") as out:
        for command in (["cmake", "--preset", "desktop"], ["cmake", "--build", "--preset", "desktop"]):
            if subprocess.run(command, cwd=ROOT, stdout=out, stderr=subprocess.STDOUT).returncode != 0:
                sys.exit(f"The build failed; its log is {log}")


def has_display():
    if not os.environ.get("DISPLAY"):
        return False
    return subprocess.run(["xdpyinfo"], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL).returncode == 0


def parse():
    parser = argparse.ArgumentParser(prog="./run", description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter,
                                     epilog=KEYS)
    for name, _, placeholder, text in SETTINGS:
        parser.add_argument("--" + name, metavar=placeholder, help=text)
    parser.add_argument("--no-keypad", action="store_true", help="only the screen, without the key pad below it "
                        "(HANDHELD_KEYPAD=off)")
    parser.add_argument("--session", action="store_true", help="play the scripted session although there is a display")
    parser.add_argument("--languages", action="store_true",
                        help="walk through every screen in all nine languages instead; pictures in out/languages")
    return parser.parse_args()


def environment_of(options):
    chosen = {}
    for name, variable, _, _ in SETTINGS:
        value = getattr(options, name.replace("-", "_"))
        if value is None:
            continue
        if name in ("root", "log", "card"):
            value = str(pathlib.Path(value).absolute())
        elif name == "camera" and value.startswith("folder:"):
            value = "folder:" + str(pathlib.Path(value[len("folder:"):]).absolute())
        chosen[variable] = value
    return chosen


def main():
    options = parse()
    build()
    chosen = environment_of(options)
    if options.languages or options.session or not has_display():
        with wine_session() as wine:
            return walk_languages(wine, chosen) if options.languages else play_session(wine, chosen)
    chosen.setdefault("HANDHELD_ROOT", str(HOME / "store"))
    chosen["HANDHELD_KEYPAD"] = "off" if options.no_keypad else "on"
    with wine_session(prefix=HOME / "wine", display=os.environ["DISPLAY"]) as wine:
        return wine.run([ROOT / "build" / "desktop" / "zelcamera.exe"], env=chosen).returncode


if __name__ == "__main__":
    sys.exit(main())
