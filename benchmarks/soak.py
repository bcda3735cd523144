#!/usr/bin/python3
"""A long run of the live view: counts what the program holds, and fails if any of it grows.

Runs the program as it is, at a rate that still leaves it time to paint every frame: where frames are always waiting,
messages keep paints back.  Build the desktop preset first.
"""

import argparse
import pathlib
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parents[1]
sys.path[:0] = [str(ROOT / "tests" / "support"), str(ROOT / "tools")]

from camera_window import camera  # noqa: E402
from processes import session_processes  # noqa: E402
from wine_session import wine_session  # noqa: E402

SIZES = {"large": "0", "small": "1"}  # setting of the video resolution

# What is counted, and how much more of it the last sample may have than the first: a few handles that are opened once,
# far fewer than there are frames, and of memory less than three bytes for each frame of a full run.  User objects and
# the server's descriptors are the whole session's.
COUNTS = {"handles": 8, "gdi": 8, "user": 8, "descriptors": 8, "server descriptors": 8,
          "private KiB": 256, "server KiB": 256, "X server KiB": 256}

WARM_UP = 2000  # frames before the first sample: heaps and caches find their size


def held(wine):
    """What the program, and what serves it, hold now."""
    result = wine.run([ROOT / "build" / "desktop" / "count_held.exe"], check=True, text=True, stdout=subprocess.PIPE,
                      timeout=120)
    words = result.stdout.split()
    sample = dict(zip(words[::2], map(int, words[1::2])))
    processes = session_processes(wine)
    program, server = processes["program"], processes["wineserver"]
    sample.update({"descriptors": program.descriptors(), "server descriptors": server.descriptors(),
                   "private KiB": program.private_kib(), "server KiB": server.private_kib(),
                   "X server KiB": processes["X server"].private_kib()})
    return sample


def print_row(label, values):
    print(f"{label:>10}" + "".join(f"{values[name]:>{max(len(name), 7) + 2}}" for name in COUNTS), flush=True)


def wait_for_frames(running, goal, limit):
    """Waits until so many frames have been read in all."""
    end = time.monotonic() + limit
    while (frames := running.frames()) < goal:
        if running.process.poll() is not None:
            raise RuntimeError(f"the program ended after {frames} frames")
        if time.monotonic() > end:
            raise RuntimeError(f"no more than {frames} frames in {limit:.0f} s")
        time.sleep(0.5)
    return frames


def soak(wine, size, options):
    """The samples, first to last."""
    environment = {"HANDHELD_FPS": str(options.fps), "HANDHELD_LCID": "1033"}
    print(f"\n{size} size, {options.frames} frames at {options.fps}/s")
    print(f"{'frames':>10}" + "".join(f"{name:>{max(len(name), 7) + 2}}" for name in COUNTS))
    samples = []
    begun = time.monotonic()
    with camera(wine, environment, aviresolution=SIZES[size]) as running:
        goals = [min(WARM_UP, options.frames // 10), *range(options.every, options.frames, options.every), options.frames]
        for goal in goals:
            reached = wait_for_frames(running, goal, 60 + options.every)
            samples.append(held(wine))
            print_row(reached, samples[-1])
    print(f"{options.frames / (time.monotonic() - begun):.0f} frames a second")
    return samples


def grown(first, last):
    """Names of what grew beyond its bound; prints the differences."""
    print_row("more", {name: last[name] - first[name] for name in COUNTS})
    print_row("allowed", COUNTS)
    return [name for name, bound in COUNTS.items() if last[name] - first[name] > bound]


def main():
    parser = argparse.ArgumentParser(prog="benchmarks/soak.py", description=__doc__)
    parser.add_argument("--frames", type=int, default=100000, help="frames to read (default: 100000)")
    parser.add_argument("--every", type=int, default=10000, help="frames between samples (default: 10000)")
    parser.add_argument("--size", choices=list(SIZES), action="append", help="only this video size (default: both)")
    parser.add_argument("--fps", type=int, default=100, help="frames per second that the card offers (default: 100)")
    options = parser.parse_args()
    failures = []
    for size in options.size or SIZES:
        with wine_session() as wine:
            samples = soak(wine, size, options)
        failures += [f"{size}: {name}" for name in grown(samples[0], samples[-1])]
    print("\n" + ("FAILED: grows: " + ", ".join(failures) if failures else "flat"))
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
