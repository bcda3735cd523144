"""Counts the instructions of decodes on the handheld's processor, under qemu."""

import pathlib
import subprocess
import tempfile

import figures

ROOT = pathlib.Path(__file__).resolve().parents[1]
PLUGIN = ROOT / "build" / "native" / "region_counter.so"
ARM = ROOT / "build" / "arm"


def emulate(program, arguments, options=""):
    """Runs a program of the ARM build; what it printed, and what the plugin wrote, as lines."""
    with tempfile.NamedTemporaryFile("r") as written:
        command = ["qemu-arm", "-plugin", f"{PLUGIN},out={written.name}{options}", ARM / program, *map(str, arguments)]
        result = subprocess.run(command, check=True, text=True, stdout=subprocess.PIPE)
        return result.stdout.splitlines(), written.read().splitlines()


def count(program, corpus, frames):
    """(work, decoder) -> instructions per frame, the mean over the first so many frames of each set."""
    return figures.parse_counts(*emulate(program, [corpus, frames]))
