"""Where a decode's instructions go: entropy decoding, transform, colour.

Each instruction is told by the source line it was compiled from, however deep that was inlined.
"""

import collections
import re
import subprocess

from instruction_counts import ROOT, emulate

# Stage -> source files of jpeg/.  What the C library does, and the rest, is neither.
STAGES = {
    "entropy": r"bit_reader|bit_|huffman|scan|zigzag|symbol|stuff|mcu_loop|entropy|coefficient",
    "transform": r"dct|transform",
    "colour": r"convert|color|pixel",
}
ADDR2LINE = {"arm": "arm-linux-gnueabi-addr2line", "native": "addr2line"}


def stage_of(source):
    return next((stage for stage, pattern in STAGES.items() if re.search(pattern, source)), "other")


def parse_lines(output):
    """addr2line -a -i -> address -> the innermost line's file in jpeg/, or ""."""
    files, address = {}, None
    for line in output.splitlines():
        if line.startswith("0x"):
            address = int(line, 16)
            files[address] = ""
        elif not files[address] and (match := re.search(r"/jpeg/([\w.]+):", line)):
            files[address] = match[1]
    return files


def shares(preset, corpus, work, decoder, frames=4):
    """Stage -> share of the instructions within the decode calls."""
    _, lines = emulate(preset, "count_decodes", [corpus, frames, work, decoder], ",addresses=on")
    words = [line.split() for line in lines if line.startswith("address ")]
    counts = {int(address, 16): int(count) for _, address, count in words}
    result = subprocess.run([ADDR2LINE[preset], "-a", "-i", "-e", ROOT / "build" / preset / "count_decodes"], check=True,
                            text=True, stdout=subprocess.PIPE, input="".join(f"{address:x}\n" for address in counts))
    files = parse_lines(result.stdout)
    stages = collections.Counter()
    for address, count in counts.items():
        stages[stage_of(files[address])] += count
    return {stage: stages[stage] / stages.total() for stage in [*STAGES, "other"]}
