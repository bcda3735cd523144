"""Measures the JPEG decoder beside libjpeg-turbo, stb_image and libavcodec, and prints the tables of ratios.

Times: everybody decodes the same frames in turn, in one thread; a ratio is taken within each round, and its median and
quartiles are printed.  ARM: instructions of the decode call alone, counted under qemu, exact and always the same.
A ratio in bold misses its target.
"""

import argparse
import json
import os
import pathlib
import platform
import subprocess
import sys

import figures
import instruction_counts
import stages
import tables
import turbo_for_arm
from targets import TARGETS

ROOT = pathlib.Path(__file__).resolve().parents[1]
BUILD = ROOT / "build"
CORPUS = BUILD / "corpus"
DOCUMENT = ROOT / "docs" / "performance.md"
BEGIN, END = "<!-- ./bench --markdown writes from here -->", "<!-- to here -->"

ROUNDS, QUICK_ROUNDS = 60, 9
NATIVE_TARGETS = ["make_corpus", "decode_times", "sample_decodes", "region_counter"]
ARM_TARGETS = ["count_decodes", "count_turbo"]
STAGE_WORKS = ["preview-444:8", "preview-420:8", "still-422:8", "still-422:10"]


def build(preset, targets, *settings):
    log = BUILD / f"{preset}-build.log"
    log.parent.mkdir(exist_ok=True)
    with log.open("w") as out:
        for command in (["cmake", "--preset", preset, *settings],
                        ["cmake", "--build", "--preset", preset, "--target", *targets]):
            if subprocess.run(command, cwd=ROOT, stdout=out, stderr=subprocess.STDOUT).returncode != 0:
                raise RuntimeError(f"the build failed; its log is {log}")


def make_corpus():
    """Set -> how many frames it has."""
    CORPUS.mkdir(exist_ok=True)
    result = subprocess.run([BUILD / "native" / "make_corpus", CORPUS], check=True, text=True, stdout=subprocess.PIPE)
    return {words[1]: int(words[3]) for words in map(str.split, result.stdout.splitlines())}


def machine():
    processor = next((line.split(":")[1].strip() for line in open("/proc/cpuinfo") if line.startswith("model name")),
                     platform.machine())
    compiler = subprocess.run(["g++", "-dumpfullversion"], check=True, stdout=subprocess.PIPE, text=True).stdout.strip()
    load = open("/proc/loadavg").read().split()[0]
    return (f"{processor}, {os.cpu_count()} processors, Linux {platform.release()}, g++ {compiler}, "
            f"libjpeg-turbo {turbo_for_arm.installed_version()}; load {load} at the start")


def measure_times(rounds, engine):
    command = [BUILD / "native" / "decode_times", CORPUS, str(rounds), *([engine] if engine else [])]
    result = subprocess.run(command, stdout=subprocess.PIPE, text=True)
    if result.returncode != 0:
        raise RuntimeError("the decoders could not be timed")
    return figures.parse_times(result.stdout.splitlines())


def measure_counts(frames):
    return {**instruction_counts.count("count_decodes", CORPUS, frames),
            **instruction_counts.count("count_turbo", CORPUS, frames)}


def measure_stages(times, counts):
    desktop = tables.engines(next(iter(times.values())))[-1]
    handheld = tables.engines(dict.fromkeys(decoder for _, decoder in counts))[-1]
    return {(what, engine): {work: share(CORPUS, work, tables.OURS + engine) for work in STAGE_WORKS}
            for what, engine, share in (("time, x86-64", desktop, stages.sampled_here),
                                        ("instructions, ARM", handheld, stages.counted_on_arm))}


def report(where, rounds, times, counts, split, frames):
    return "\n\n".join([
        f"Machine: {where}.",
        f"Time per frame, ours / libjpeg-turbo with its SIMD: median (quartiles) of {rounds} rounds.", tables.ratio_table(times),
        "Microseconds per frame, medians:", tables.time_table(times, frames),
        "Instructions per frame on ARM, and frames a second that they allow at 206 MHz without waiting for memory:",
        tables.arm_table(counts),
        "Where it goes:", tables.stage_table(split)])


def write_document(text):
    before, begin, rest = DOCUMENT.read_text(encoding="utf-8").partition(BEGIN)
    _, end, after = rest.partition(END)
    if not begin or not end:
        raise RuntimeError(f"{DOCUMENT} has lost the marks between which the tables go")
    DOCUMENT.write_text(f"{before}{BEGIN}\n\n{text}\n\n{END}{after}", encoding="utf-8")


def parse():
    parser = argparse.ArgumentParser(prog="./bench", description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--quick", action="store_true", help=f"{QUICK_ROUNDS} rounds instead of {ROUNDS}")
    parser.add_argument("--engine", metavar="NAME", help="of our decoder's engines only this one is timed")
    parser.add_argument("--json", metavar="FILE", type=pathlib.Path, help="also write all figures, unrounded")
    parser.add_argument("--markdown", action="store_true", help=f"also put the tables into {DOCUMENT.relative_to(ROOT)}")
    return parser.parse_args()


def main():
    options = parse()
    rounds = QUICK_ROUNDS if options.quick else ROUNDS
    where = machine()
    print("building", flush=True)
    build("native", NATIVE_TARGETS)
    build("arm", ARM_TARGETS, f"-DZEL_TURBO={turbo_for_arm.provide()}")
    print("making the corpus", flush=True)
    frames = make_corpus()
    print("timing", flush=True)
    times = measure_times(rounds, options.engine)
    print("counting", flush=True)
    counts = measure_counts(max(frames.values()))
    split = measure_stages(times, counts)
    text = report(where, rounds, times, counts, split, frames)
    print(f"\n{text}")
    if options.json:
        options.json.write_text(json.dumps({
            "machine": where, "nanoseconds": times,
            "instructions": {f"{work} {decoder}": count for (work, decoder), count in counts.items()},
            "targets": {work: target._asdict() for work, target in TARGETS.items()}}, indent=1) + "\n")
    if options.markdown:
        write_document(text)
    return 0


if __name__ == "__main__":
    try:
        sys.exit(main())
    except (OSError, RuntimeError, subprocess.CalledProcessError) as error:
        sys.exit(f"bench: {error}")
