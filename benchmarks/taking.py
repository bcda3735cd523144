#!/usr/bin/python3
"""How long taking a picture takes: prints one table.

From the start of the program to its first live frame, and from the shutter to the picture's file, as time that goes by
for the person in front; the tool that lets the mouse button go takes some milliseconds of it.  Build the desktop preset first.
"""

import argparse
import pathlib
import statistics
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parents[1]
sys.path[:0] = [str(ROOT / "tests" / "support"), str(ROOT / "tools")]

from camera_window import READ_FRAME, SHUTTER, Camera, camera  # noqa: E402
from wine_session import wine_session  # noqa: E402

ENGLISH = {"HANDHELD_LCID": "1033"}
SIZES = ["1280x1024", "1280x960", "640x480", "320x240"]  # by the setting "resolution"
LOOK = 0.001  # seconds between two looks
LIMIT = 30


def since(begun, condition):
    """Milliseconds from a moment until a condition holds."""
    while not condition():
        if time.monotonic() - begun > LIMIT:
            raise RuntimeError(f"nothing came within {LIMIT} s")
        time.sleep(LOOK)
    return (time.monotonic() - begun) * 1000


def row(name, times):
    lower, median, upper = statistics.quantiles(times, n=4)
    print(f"{name:36}{median:8.0f} ({lower:.0f}-{upper:.0f})", flush=True)


class TimedStart(Camera):
    """Notes when the program was started and when its first frame was read."""

    def look_at(self, program, *smallest):
        begun = time.monotonic()  # the process was started on the line before
        self.first_frame = since(begun, lambda: self.log.exists() and READ_FRAME in self.log.read_text(errors="replace"))
        super().look_at(program, *smallest)


def time_starts(wine, size, rounds):
    times = []
    for _ in range(rounds):
        running = TimedStart(wine, ENGLISH, {"aviresolution": size})
        times.append(running.first_frame)
        running.wait_frames(3)
        running.close()
    return times


def time_stills(wine, resolution, rounds):
    times = []
    with camera(wine, ENGLISH, aviresolution="0", resolution=str(resolution), **{"instant review": "0"}) as running:
        pictures = running.store / "My Documents" / "My Pictures"
        for number in range(1, rounds + 1):
            file = pictures / f"snap{number:04}.jpg"
            running.point_at(SHUTTER)
            running.hold()
            begun = time.monotonic()
            release = running.let_go()
            times.append(since(begun, file.exists))
            release.wait()
            running.wait_frames(3)
        for file in pictures.iterdir():
            file.unlink()
    return times


def main():
    parser = argparse.ArgumentParser(prog="benchmarks/taking.py", description=__doc__)
    parser.add_argument("--rounds", type=int, default=20, help="starts and pictures of each kind (default: 20)")
    options = parser.parse_args()
    load = open("/proc/loadavg").read().split()[0]
    print(f"milliseconds, median (quartiles) of {options.rounds}; load {load} at the start\n")
    with wine_session() as wine:
        for size, name in (("0", "320x240"), ("1", "160x120")):
            row(f"start to first live frame, {name}", time_starts(wine, size, options.rounds))
        for resolution, name in enumerate(SIZES):
            row(f"shutter to file, {name}", time_stills(wine, resolution, options.rounds))
    return 0


if __name__ == "__main__":
    sys.exit(main())
