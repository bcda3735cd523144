#!/usr/bin/python3
"""Runs the code of the handheld's finished executable on an emulated processor of its kind; see docs/testing.md."""

import concurrent.futures
import pathlib
import struct
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path[:0] = [str(ROOT / folder) for folder in ("tests/support", "tools/handheld", "benchmarks")]

import figures  # noqa: E402
from elf import Elf  # noqa: E402
from pe_file import IMPORTS, RELOCATIONS, PeFile  # noqa: E402

HANDHELD = ROOT / "build" / "handheld"
NATIVE = ROOT / "build" / "native"
IMAGE = HANDHELD / "zelcamera.exe"
LOADER = HANDHELD / "tests" / "image_tests"
RECORDED_COUNTS = ROOT / "tests" / "instructions.txt"

BASE = 0x10000       # where the handheld puts it
ELSEWHERE = 0xA70000
LIMIT = 300          # seconds for one run of the loader
FRAMES = 3           # of each set, as in the recorded counts
MOST_BEYOND = 0.05   # of the recorded count: compilers' options differ a little

# What each of the tests that must be stopped is stopped with.
STOPPED = {
    "APictureBufferIsTooSmall": "0 bytes behind the end of a block of 38396",
    "AWorkingBufferIsFreedUnderTheDecoder": "bytes that was freed",
    "TheStackIsTooSmall": "below the stack of 65536 bytes",
    "ARecordLiesAmongTheConstants": "(kKeyPictureNumber of the image)",
    "ARecordLiesInTheCode": "HandheldStart of the image",
    "DataIsCalled": "a jump to what is no code",
    "AnImportHasNoDouble": "the image calls SHInitDialog of aygshell.dll, for which there is no double",
    "ARecordIsMisaligned": "misaligned access to 0x",
    "AnExpectationFails": "NextNumber(1) == 3: 2 against 3"}


def emulate(image, base, *arguments, plugin=None):
    """The loader's exit status and what it printed."""
    options = ["-plugin", plugin] if plugin else []
    result = subprocess.run(["qemu-arm", "-cpu", "sa1110", *options, LOADER, image, f"{base:x}", *map(str, arguments)],
                            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=LIMIT, cwd=ROOT)
    return result.returncode, result.stdout.decode(errors="replace")


def alignment_watch(base):
    code = PeFile(IMAGE).section(".text")
    return f"{NATIVE / 'alignment_watch.so'},from={base + code.rva:x},to={base + code.rva + code.memory:x}"


def whole_run(name, base, outcomes, plugin=None):
    """Every line of the loader that counts, under its own name and the run's."""
    code, output = emulate(IMAGE, base, plugin=plugin)
    lines = [line for line in output.splitlines() if line.partition(" ")[0] in outcomes]
    for line in lines:
        outcome, _, rest = line.partition(" ")
        yield f"{outcome} {name}: {rest}"
    if not lines or (code != 0 and not any(line.startswith("FAILED") for line in lines)):
        yield f"FAILED {name}: ended with {code}: {output[-1000:]}"


def stopped(name, wanted, image, base, *arguments, plugin=None):
    """One line: the run failed, and said so with this sentence."""
    code, output = emulate(image, base, *arguments, plugin=plugin)
    if code == 0 or wanted not in output:
        return f'FAILED {name}: "{wanted}" was expected, but it ended with {code}: {" ".join(output.split())[-600:]}'
    return f"ok {name}"


class DamagedCopy:
    """A copy of the image with some bytes changed."""

    def __init__(self, folder, name):
        self.path = pathlib.Path(folder, name + ".exe")
        self.pe = PeFile(IMAGE)
        self.data = bytearray(self.pe.data)
        self.symbols = {symbol.name: symbol for symbol in Elf((HANDHELD / "zelcamera.elf").read_bytes()).symbols}

    def place(self, symbol):
        return self.pe.at(self.symbols[symbol].value - BASE)

    def word(self, at, value):
        struct.pack_into("<I", self.data, at, value)

    def rename(self, old, new):
        at = self.data.index(old.encode() + b"\0")
        self.data[at:at + len(old)] = new.encode()

    def drop_relocation(self, function):
        """Of the first word in that function that holds an address."""
        symbol = self.symbols[function]
        first = min(rva for rva in self.pe.relocated_words() if 0 <= rva + BASE - symbol.value < symbol.size)
        at = self.pe.at(self.pe.directory(RELOCATIONS)[0])
        while (block := struct.unpack_from("<II", self.data, at))[0] != first & ~0xFFF:
            at += block[1]
        entry = self.data.index(struct.pack("<H", 0x3000 | first & 0xFFF), at + 8)
        struct.pack_into("<H", self.data, entry, 0)

    def number_imports(self, number):
        """The first library's, all by the same ordinal."""
        at = self.pe.at(struct.unpack_from("<I", self.data, self.pe.at(self.pe.directory(IMPORTS)[0]))[0])
        while struct.unpack_from("<I", self.data, at)[0]:
            self.word(at, 0x80000000 | number)
            at += 4

    def written(self):
        self.path.write_bytes(self.data)
        return self.path


def damaged(folder):
    """(name, sentence, copy, base, tests): what a damaged image comes to."""
    code = DamagedCopy(folder, "code")
    code.data[code.place("_ZN4jpeg9fillChunkER14DecoderContext") + 1] ^= 1
    yield "a byte of code changed", "FAILED Golden.tiny-444", code, BASE, "Golden.tiny-444"

    table = DamagedCopy(folder, "table")
    table.data[table.place("_ZN4jpeg7kZigzagE") + 5] ^= 1
    yield "a byte of a table changed", "FAILED Golden.small-444: golden_test.cpp", table, BASE, "Golden.small-444"

    late = DamagedCopy(folder, "late")
    late.word(late.place("_Z16AdvanceCountdownR11ScreenStateji"), 0xE16F0F10)  # clz
    yield "a late instruction", "an instruction that the processor does not know", late, BASE, "Countdown.IdleNeverFires"

    relocation = DamagedCopy(folder, "relocation")
    relocation.drop_relocation("_Z18buildHuffmanTablesR14DecoderContext")
    yield "a relocation missing", "a base relocation is missing", relocation, ELSEWHERE, "Golden.tiny-444"

    unknown = DamagedCopy(folder, "unknown")
    unknown.rename("GetDiskFreeSpaceExW", "GetDiskFreeSpaceExQ")
    yield ("an import that nobody knows", "the image calls GetDiskFreeSpaceExQ of coredll.dll, for which there is no double",
           unknown, BASE, "StoreSpace.AnAnswerIsKeptUntilItIsForgotten")

    ordinal = DamagedCopy(folder, "ordinal")
    ordinal.number_imports(1234)
    yield "an import by ordinal", "the image calls @1234 of aygshell.dll", ordinal, BASE, "Deliberate.AnImportHasNoDouble"

    machine = DamagedCopy(folder, "machine")
    machine.word(struct.unpack_from("<I", machine.data, 0x3C)[0] + 4, 0x0006014C)
    yield "an image for another machine", "the file is no executable for ARM", machine, BASE, ""

    cut = DamagedCopy(folder, "cut")
    del cut.data[len(cut.data) // 2:]
    yield "an image cut short", "a section lies behind the end of the file", cut, BASE, ""


def deliberate():
    for name, sentence in STOPPED.items():
        yield stopped(f"stopped: {name}", sentence, IMAGE, BASE, f"Deliberate.{name}", plugin=alignment_watch(BASE))


def damages():
    with tempfile.TemporaryDirectory(prefix="zel-image-") as folder:
        for name, sentence, copy, base, tests in damaged(folder):
            yield stopped(f"noticed: {name}", sentence, copy.written(), base, *([tests] if tests else []))


def recorded_counts():
    """{(work, engine): instructions per frame of the benchmark's build}"""
    rows = (line.split() for line in RECORDED_COUNTS.read_text().splitlines() if line.startswith("instructions "))
    return {(work, decoder.removeprefix("ours-")): int(count) for _, work, decoder, count in rows}


def image_counts(works):
    """The same of the image's own code."""
    with tempfile.TemporaryDirectory(prefix="zel-corpus-") as folder:
        subprocess.run([NATIVE / "make_corpus", folder, str(FRAMES)], check=True, stdout=subprocess.DEVNULL)
        pairs = [part for work in works for frame in range(FRAMES)
                 for part in (f"{folder}/{work.split(':')[0]}-{frame:02}.jpg", work.split(":")[1])]
        counts = pathlib.Path(folder, "counts")
        code, output = emulate(IMAGE, BASE, "--decodes", *pairs, plugin=f"{NATIVE / 'region_counter.so'},out={counts}")
        if code != 0:
            raise ValueError(output[-1000:])
        means = figures.parse_counts(output.splitlines(), counts.read_text().splitlines())
    return {(work, decoder.removeprefix("image-")): round(mean) for (work, decoder), mean in means.items()}


def instruction_counts():
    recorded = recorded_counts()
    counted = image_counts(sorted({work for work, _ in recorded}))
    for (work, engine), count in counted.items():
        name = f"instructions of the image {work} {engine}"
        if (work, engine) not in recorded:
            yield f"FAILED {name}: the benchmark has no such engine"
            continue
        ratio = count / recorded[work, engine]
        verdict = f"{count}, {ratio:.3f} of the benchmark's {recorded[work, engine]}"
        yield f"FAILED {name}: {verdict}" if ratio > 1 + MOST_BEYOND else f"ok {name}: {verdict}"


def guarded(name, lines):
    try:
        return list(lines())
    except (OSError, KeyError, ValueError, subprocess.SubprocessError) as error:
        return [f"FAILED {name}: {type(error).__name__}: {error}"]


def main():
    parts = {
        "image at its base": lambda: whole_run("image at its base", BASE, ("ok", "skipped", "FAILED"), alignment_watch(BASE)),
        "image relocated": lambda: whole_run("image relocated", ELSEWHERE, ("ok", "FAILED")),
        "misuse is stopped": deliberate,
        "damage is noticed": damages,
        "instructions of the image": instruction_counts}
    with concurrent.futures.ThreadPoolExecutor(max_workers=2) as pool:
        results = list(pool.map(guarded, parts, parts.values()))
    lines = [line for result in results for line in result]
    print("\n".join(lines))
    return any(line.startswith("FAILED") for line in lines)


if __name__ == "__main__":
    sys.exit(main())
