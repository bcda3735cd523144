#!/usr/bin/python3
"""The decoder's golden bytes with each compiler at each level of optimisation: what a compiler makes of the
sources must not show in a picture.  Prints a line for each, exit status 1 when anything differs."""

import pathlib
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor

ROOT = pathlib.Path(__file__).resolve().parents[2]
COMPILERS = {"g++": "gcc", "clang++": "clang"}
LEVELS = ["-O0", "-O1", "-O2", "-O3"]


def run(command):
    result = subprocess.run(command, cwd=ROOT, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    if result.returncode != 0:
        raise RuntimeError(result.stdout[-3000:])


def golden(compiler, level):
    folder = ROOT / "build" / "compilers" / f"{compiler}{level}"
    try:
        run(["cmake", "-S", ROOT, "-B", folder, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=None", f"-DCMAKE_CXX_FLAGS={level}",
             f"-DCMAKE_CXX_COMPILER={compiler}", f"-DCMAKE_C_COMPILER={COMPILERS[compiler]}"])
        run(["cmake", "--build", folder, "--target", "golden_decoder", "-j1"])
        run([folder / "tests" / "golden_decoder", ROOT / "tests" / "golden" / "decoder.txt"])
    except RuntimeError as failure:
        return f"FAILED golden bytes {compiler} {level}: {failure}"
    return f"ok golden bytes {compiler} {level}"


def main():
    with ThreadPoolExecutor(max_workers=2) as workers:
        results = list(workers.map(lambda pair: golden(*pair), [(c, level) for c in COMPILERS for level in LEVELS]))
    print("\n".join(results))
    return 1 if any(line.startswith("FAILED") for line in results) else 0


if __name__ == "__main__":
    sys.exit(main())
