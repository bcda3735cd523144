#!/usr/bin/python3
"""What a live frame costs: prints one table.

First the program's own thread, step by step, from the program with timers built in (live_path).  Then the program as
it is, at the card's usual rate and at twice that: what is delivered, and what everybody who has a part in it spends.
Processor time, so that other work on the machine does not count.  Build the desktop preset first.
"""

import argparse
import pathlib
import platform
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parents[1]
sys.path[:0] = [str(ROOT / "tests" / "support"), str(ROOT / "tools")]

from camera_window import camera  # noqa: E402
from processes import session_processes  # noqa: E402
from wine_session import wine_session  # noqa: E402

STREAMS = [(4, "320x240 4:4:4"), (9, "320x240 4:2:0"), (6, "160x120 4:4:4")]
STEPS = ["read", "decode", "paint", "whole"]
PARTS = ["canvas", "picture", "overlays", "readouts", "free-space", "copy"]
TIMED_RATE = 30
RATES = [15, 30]
ENGLISH = "1033"


def print_machine():
    processor = next((line.split(":")[1].strip() for line in open("/proc/cpuinfo") if line.startswith("model name")),
                     platform.machine())
    count = subprocess.run(["nproc"], stdout=subprocess.PIPE, text=True).stdout.strip()
    wine = subprocess.run(["wine", "--version"], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True).stdout
    load = open("/proc/loadavg").read().split()[0]
    print(f"{processor}, {count} processors, Linux {platform.release()}, {wine.split()[0]}, load {load} at the start")


def time_stream(wine, mode, frames):
    """Step -> (lower quartile, median, upper quartile) in microseconds, and how many frames were painted."""
    result = wine.run([ROOT / "build" / "desktop" / "live_path.exe", mode, frames], check=True, text=True,
                      stdout=subprocess.PIPE, timeout=60 + frames,
                      env={"HANDHELD_FPS": str(TIMED_RATE), "HANDHELD_LCID": ENGLISH})
    times, counts = {}, {}
    for line in result.stdout.splitlines():
        name, count, *quartiles = line.split()
        times[name] = tuple(map(float, quartiles))
        counts[name] = int(count)
    if missing := set(STEPS + PARTS) - set(times):
        raise RuntimeError(f"nothing was measured of: {', '.join(sorted(missing))}")
    return times, counts


def print_steps(wine, frames):
    # Settings of an earlier run would show as more overlays.
    wine.run(["reg", "delete", r"HKCU\Software\Zel", "/f"], stdout=subprocess.DEVNULL)
    print(f"\nThe program's thread, microseconds per frame at {TIMED_RATE}/s: median (quartiles); paint's parts: median\n")
    print(f"{'stream':14}" + "".join(f"{step:>20}" for step in STEPS) + " | " +
          "".join(f"{part:>11}" for part in PARTS) + f"{'other':>11} | painted")
    for mode, name in STREAMS:
        times, counts = time_stream(wine, mode, frames)
        medians = {step: quartiles[1] for step, quartiles in times.items()}
        other = medians["paint"] - sum(medians[part] for part in PARTS)
        cells = [f"{times[step][1]:.0f} ({times[step][0]:.0f}-{times[step][2]:.0f})" for step in STEPS]
        print(f"{name:14}" + "".join(f"{cell:>20}" for cell in cells) + " | " +
              "".join(f"{medians[part]:>11.0f}" for part in PARTS) + f"{other:>11.0f} | " +
              f"{counts['paint']} of {counts['whole']}", flush=True)


def spent(processes):
    """Nanoseconds so far, by who spent them; the card's thread is one of the program's."""
    threads = processes["program"].threads()
    own = threads.pop(processes["program"].pid)
    totals = {"program": own, "card": sum(threads.values())}
    for name in ("wineserver", "X server"):
        totals[name] = sum(processes[name].threads().values())
    return totals


def print_rates(wine, seconds):
    who = ["program", "card", "wineserver", "X server"]
    print(f"\nThe program as it is, 320x240 4:4:4, {seconds} s each: microseconds per frame, and all as part of one processor\n")
    print(f"{'offered':>14}{'delivered':>12}" + "".join(f"{name:>12}" for name in [*who, "all", "of one"]))
    for rate in RATES:
        environment = {"HANDHELD_FPS": str(rate), "HANDHELD_LCID": ENGLISH}
        with camera(wine, environment, aviresolution="0") as running:
            running.wait_frames(2 * rate)
            processes = session_processes(wine)
            begun, frames, before = time.monotonic(), running.frames(), spent(processes)
            time.sleep(seconds)
            elapsed, frames, after = time.monotonic() - begun, running.frames() - frames, spent(processes)
        used = {name: (after[name] - before[name]) / 1000 for name in who}
        total = sum(used.values())
        print(f"{rate:>12}/s{frames / elapsed:>10.1f}/s" + "".join(f"{used[name] / frames:>12.0f}" for name in who) +
              f"{total / frames:>12.0f}{total / elapsed / 10000:>11.1f}%", flush=True)


def main():
    parser = argparse.ArgumentParser(prog="benchmarks/live.py", description=__doc__)
    parser.add_argument("--frames", type=int, default=600, help="frames timed of each stream (default: 600)")
    parser.add_argument("--seconds", type=int, default=20, help="how long each rate is watched (default: 20)")
    options = parser.parse_args()
    print_machine()
    with wine_session() as wine:
        print_steps(wine, options.frames)
        print_rates(wine, options.seconds)
    return 0


if __name__ == "__main__":
    sys.exit(main())
