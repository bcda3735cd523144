#!/usr/bin/python3
"""Builds every preset and runs every test.  The last line counts them: N passed, N failed, N skipped."""

import argparse
import concurrent.futures
import json
import os
import pathlib
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, str(pathlib.Path(__file__).parent))
import instruction_guard  # noqa: E402
from wine_session import ROOT, TEST_ZONE, wine_session  # noqa: E402

PRESETS = ["native", "sanitize", "memory", "arm", "layout", "desktop", "handheld"]

# Programs and scripts that print "ok NAME", "skipped NAME: why" or "FAILED NAME: why" for each thing they check.
CHECKS = sorted((ROOT / "tests").glob("*/check_*.py"))

GOLDEN = "tests/golden/decoder.txt"
FUZZ_RUNS = 50000
# The C++ library that this one uses is not built for the sanitizer of uninitialised memory.
SEED_MAKER = ROOT / "build" / "sanitize" / "tests" / "make_fuzz_seeds"
HOSTILE_SHARE = {"native": 1, "sanitize": 40}  # every n-th of the damaged streams
LIMIT = 1800  # seconds for one test program


class Tally:
    def __init__(self):
        self.passed, self.failed, self.skipped = 0, 0, 0
        self.failures = []

    def add(self, name, outcome, detail=""):
        if outcome == "ok":
            self.passed += 1
        elif outcome == "skipped":
            self.skipped += 1
        else:
            self.failed += 1
            self.failures.append(name)
            print(f"FAILED {name}\n{detail}".rstrip(), flush=True)


def build(preset, tally):
    started = time.monotonic()
    for command in (["cmake", "--preset", preset], ["cmake", "--build", "--preset", preset]):
        result = subprocess.run(command, cwd=ROOT, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
        if result.returncode != 0:
            tally.add(f"build {preset}", "failed", result.stdout[-6000:])
            return False
    tally.add(f"build {preset}", "ok")
    print(f"built {preset} in {time.monotonic() - started:.0f} s", flush=True)
    return True


def run_gtest(label, run, program, tally):
    """Runs a GoogleTest program and counts its tests from its own report."""
    started = time.monotonic()
    with tempfile.TemporaryDirectory(prefix="zel-report-") as folder:
        report = pathlib.Path(folder) / "report.json"
        try:
            result = run(program, [f"--gtest_output=json:{report}"])
            output, code = result.stdout, result.returncode
        except subprocess.TimeoutExpired as late:
            output, code = late.stdout or "", f"no end within {LIMIT} s"
        if isinstance(output, bytes):
            output = output.decode(errors="replace")
        tests = []
        if report.exists():
            for suite in json.loads(report.read_text())["testsuites"]:
                tests += [(f"{suite['name']}.{test['name']}", test) for test in suite["testsuite"]]
    bad = 0
    for name, test in tests:
        if test.get("result") == "SKIPPED":
            tally.add(f"{label} {name}", "skipped")
        elif "failures" in test:
            bad += 1
            tally.add(f"{label} {name}", "failed", "\n".join(item["failure"] for item in test["failures"]))
        else:
            tally.add(f"{label} {name}", "ok")
    if not tests or (code != 0 and bad == 0):
        tally.add(f"{label} {program.name}", "failed", f"ended with {code}\n{output[-4000:]}")
    print(f"{label} {program.stem}: {len(tests)} tests in {time.monotonic() - started:.1f} s", flush=True)


def run_script(script):
    return subprocess.run(["/usr/bin/python3", script], cwd=ROOT, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                          text=True, timeout=LIMIT)


def run_checks(tally):
    """Side by side: most wait for programs that they start."""
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for script, result in zip(CHECKS, pool.map(run_script, CHECKS)):
            count_check(script, result, tally)


def count_check(script, result, tally):
    counted = 0
    for line in result.stdout.splitlines():
        outcome, _, name = line.partition(" ")
        if outcome in ("ok", "skipped", "FAILED"):
            counted += 1
            tally.add(name, outcome)
    if counted == 0 or (result.returncode != 0 and not any(
            line.startswith("FAILED ") for line in result.stdout.splitlines())):
        tally.add(script.stem, "failed", result.stdout[-4000:])
    print(f"{script.stem}: {counted} checks", flush=True)


def captured(command, environment=None):
    """Runs a program to its end. Its output goes to a file: a pipe would wait for whatever it leaves running."""
    with tempfile.TemporaryFile() as output:
        result = subprocess.run(command, stdout=output, stderr=subprocess.STDOUT, timeout=LIMIT,
                                env=environment, cwd=ROOT, stdin=subprocess.DEVNULL)
        output.seek(0)
        return subprocess.CompletedProcess(command, result.returncode, output.read())


def programs(preset, pattern="*"):
    folder = ROOT / "build" / preset / "tests"
    return sorted(path for path in folder.glob(pattern) if path.is_file() and os.access(path, os.X_OK))


def run_command(name, command, tally, environment=None):
    """Counts one command: its exit status says whether it passed."""
    try:
        result = captured(command, environment)
        output, failed = result.stdout.decode(errors="replace"), result.returncode != 0
    except subprocess.TimeoutExpired:
        output, failed = f"no end within {LIMIT} s", True
    tally.add(name, "failed" if failed else "ok", output[-4000:])
    print(f"{name}: {'FAILED' if failed else 'ok'}", flush=True)


def run_golden(preset, launcher, tally, environment=None):
    program = next(iter(programs(preset, "golden_decoder*")), None)
    if program:
        run_command(f"{preset} golden decodes", [*launcher, program, GOLDEN], tally, environment)


def run_fuzzers(presets, tally):
    """A bounded run of each target; a fixed seed makes it the same every time."""
    for preset in [preset for preset in ("sanitize", "memory") if preset in presets]:
        with tempfile.TemporaryDirectory(prefix="zel-fuzz-") as corpus:
            captured([SEED_MAKER, corpus])
            for target in programs(preset, "fuzz_*"):
                run_command(f"{preset} {target.name} {FUZZ_RUNS} executions",
                            [target, f"-runs={FUZZ_RUNS}", "-seed=1", "-max_len=800", "-dict=tests/fuzz/jpeg.dict",
                             f"-artifact_prefix={corpus}/", f"{corpus}/{target.name}"], tally)


def run_hostile(presets, tally):
    for preset, share in HOSTILE_SHARE.items():
        if preset in presets:
            for program in programs(preset, "hostile_decoder"):
                run_command(f"{preset} hostile decodes", [program, "--every", str(share)], tally)


# How each portable build's programs are started.
LAUNCHERS = {"native": [], "sanitize": [], "arm": ["qemu-arm"]}


def run_portable(presets, tally):
    launchers = {preset: launcher for preset, launcher in LAUNCHERS.items() if preset in presets}
    for preset, launcher in launchers.items():
        run_golden(preset, launcher, tally)
    run_hostile(presets, tally)
    run_fuzzers(presets, tally)
    for preset, launcher in launchers.items():
        for program in programs(preset, "unit_*"):
            run_gtest(preset, lambda path, options: captured([*launcher, path, *options]), program, tally)


def run_instruction_guard(tally):
    try:
        for name, problem in instruction_guard.check():
            tally.add(name, "failed" if problem else "ok", problem)
    except (OSError, subprocess.SubprocessError, ValueError) as error:
        tally.add("instruction counts", "failed", str(error))
    print("instruction counts compared", flush=True)


def run_desktop(tally):
    with wine_session() as wine:
        def run(path, options):
            converted = [option.replace("json:/", "json:Z:/") for option in options]
            return captured(["wine", str(path), *converted], {**wine.environment, **TEST_ZONE})
        run_golden("desktop", ["wine"], tally, wine.environment)
        for program in programs("desktop", "unit_*.exe") + programs("desktop", "desktop_*.exe"):
            run_gtest("desktop", run, program, tally)


def main():
    parser = argparse.ArgumentParser(prog="./test", description=__doc__)
    parser.add_argument("--preset", action="append", choices=PRESETS, help="only these builds and their tests")
    options = parser.parse_args()
    presets = options.preset or PRESETS
    tally = Tally()
    built = [preset for preset in presets if build(preset, tally)]
    if set(built) >= set(PRESETS):
        run_checks(tally)
    run_portable(built, tally)
    if {"native", "arm"} <= set(built):
        run_instruction_guard(tally)
    if "desktop" in built:
        run_desktop(tally)
    for name in tally.failures:
        print(f"failed: {name}")
    print(f"{tally.passed} passed, {tally.failed} failed, {tally.skipped} skipped", flush=True)
    return 1 if tally.failed else 0


if __name__ == "__main__":
    sys.exit(main())
