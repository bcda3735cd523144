"""Counts the instructions of decodes under qemu's user-mode emulators."""

import pathlib
import subprocess
import tempfile

import figures

ROOT = pathlib.Path(__file__).resolve().parents[1]
PLUGIN = ROOT / "build" / "native" / "region_counter.so"
EMULATORS = {"arm": ["qemu-arm"], "native": ["qemu-x86_64", "-cpu", "max"]}


def emulate(preset, program, arguments, options=""):
    """Runs a program of a build; what it printed, and what the plugin wrote, as lines."""
    with tempfile.NamedTemporaryFile("r") as written:
        command = [*EMULATORS[preset], "-plugin", f"{PLUGIN},out={written.name}{options}",
                   ROOT / "build" / preset / program, *map(str, arguments)]
        result = subprocess.run(command, check=True, text=True, stdout=subprocess.PIPE)
        return result.stdout.splitlines(), written.read().splitlines()


def count(preset, program, corpus, frames):
    """(work, decoder) -> instructions per frame, the mean over the first so many frames of each set."""
    return figures.parse_counts(*emulate(preset, program, [corpus, frames]))
