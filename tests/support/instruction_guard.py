#!/usr/bin/python3
"""Holds the decoder's instruction counts on the handheld's processor to the recorded ones.

    tests/support/instruction_guard.py                 compares, names what differs
    tests/support/instruction_guard.py --regenerate    records them anew, after a change that is meant to change them

Needs the native and the arm build.  Counts, never times: they are the same on every machine with the same compiler.
"""

import argparse
import contextlib
import filecmp
import pathlib
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.append(str(ROOT / "benchmarks"))

import instruction_counts  # noqa: E402

RECORD = ROOT / "tests" / "instructions.txt"
FRAMES = 3        # of each set; enough to tell, and quickly counted
ARM_FRAMES = 1    # made once more on the handheld's processor, which takes seconds each
TOLERANCE = 0.02  # what another compiler of the same kind may do


def make_corpus(launcher, preset, folder, frames):
    result = subprocess.run([*launcher, ROOT / "build" / preset / "make_corpus", folder, str(frames)], check=True, text=True,
                            stdout=subprocess.PIPE)
    return result.stdout.splitlines()


@contextlib.contextmanager
def corpus():
    """A folder with the first frames, and the lines that say what they are."""
    with tempfile.TemporaryDirectory(prefix="zel-corpus-") as folder:
        yield folder, make_corpus([], "native", folder, FRAMES)


def count(folder):
    """Name of a figure -> instructions per frame."""
    counts = instruction_counts.count("count_decodes", folder, FRAMES)
    return {f"instructions {work} {decoder}": round(mean) for (work, decoder), mean in counts.items()}


def parse(lines):
    """The record: the corpus's lines, and the figures."""
    figures = dict(line.rsplit(" ", 1) for line in lines if line.startswith("instructions "))
    return [line for line in lines if line.startswith("corpus ")], {name: int(value) for name, value in figures.items()}


def compare(recorded, actual):
    """(name, problem or "") for each figure that is recorded or counted."""
    for name in {**recorded, **actual}:
        if name not in actual or name not in recorded:
            yield name, "recorded, but not counted" if name in recorded else "not recorded"
        else:
            change = actual[name] - recorded[name]
            problem = f"{actual[name]}, recorded {recorded[name]} ({change / recorded[name]:+.1%})"
            yield name, problem if abs(change) > TOLERANCE * recorded[name] else ""


def differing_on_arm(folder):
    """Files that the handheld's processor makes otherwise."""
    with tempfile.TemporaryDirectory(prefix="zel-corpus-") as other:
        make_corpus(["qemu-arm"], "arm", other, ARM_FRAMES)
        names = sorted(path.name for path in pathlib.Path(other).iterdir())
        _, mismatch, errors = filecmp.cmpfiles(folder, other, names, shallow=False)
    return mismatch + errors if names else ["nothing was made"]


def check():
    """(name, problem or "") for everything that is held."""
    recorded_corpus, recorded = parse(RECORD.read_text().splitlines())
    with corpus() as (folder, lines):
        yield "corpus as recorded", "" if lines == recorded_corpus else "\n".join(lines)
        yield "corpus the same on arm", " ".join(differing_on_arm(folder))
        yield from compare(recorded, count(folder))


def regenerate():
    with corpus() as (folder, lines):
        RECORD.write_text("\n".join([*lines, *(f"{name} {value}" for name, value in count(folder).items())]) + "\n")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--regenerate", action="store_true")
    if parser.parse_args().regenerate:
        regenerate()
        return 0
    failed = False
    for name, problem in check():
        print(f"FAILED {name}: {problem}" if problem else f"ok {name}")
        failed |= bool(problem)
    return failed


if __name__ == "__main__":
    sys.exit(main())
