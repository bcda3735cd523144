"""Where a decode's time and instructions go: entropy decoding, transform, colour.

Each instruction is told by the source line it was compiled from, however deep that was inlined, and a line by its file.
"""

import collections
import re
import subprocess

from instruction_counts import ARM, ROOT, emulate

FRAMES = 4   # counted of each set
SECONDS = 3  # sampled of each work

# Stage -> source files of jpeg/.  What the C library does, and the rest, is neither.
# At reductions 4 and 8 a coefficient is summed up, or skipped, while it is read.
STAGES = {
    "entropy": r"bit|huffman|scan|zigzag|symbol|codes|skips|reader|stuff|mcu|entropy|block|typical|sums|reduced",
    "transform": r"dct|transform",
    "colour": r"convert|color|pixel|rows",
}
ADDR2LINE = {"arm": "arm-linux-gnueabi-addr2line", "native": "addr2line"}


def stage_of(sources):
    """Of source files, innermost first, the first that belongs to a stage decides: some are shared by all."""
    for source in sources:
        for stage, pattern in STAGES.items():
            if re.search(pattern, source):
                return stage
    return "other"


def parse_lines(output):
    """addr2line -a -i -> address -> the files in jpeg/ that it came from, innermost first."""
    files = {}
    for line in output.splitlines():
        if line.startswith("0x"):
            sources = files[int(line, 16)] = []
        elif match := re.search(r"/jpeg/(?:\w+/)*(\w+\.\w+):", line):
            sources.append(match[1])
    return files


def shares(program, profile):
    """Stage -> share, of lines "address HEX N"; addresses are the program's."""
    words = [line.split() for line in profile if line.startswith("address ")]
    counts = {int(address, 16): int(count) for _, address, count in words}
    if not counts:
        raise RuntimeError(f"{program} was never seen at work")
    tool = ADDR2LINE[program.parent.name]
    result = subprocess.run([tool, "-a", "-i", "-e", program], check=True, text=True, stdout=subprocess.PIPE,
                            input="".join(f"{address:x}\n" for address in counts))
    files = parse_lines(result.stdout)
    stages = collections.Counter()
    for address, count in counts.items():
        stages[stage_of(files[address])] += count
    return {stage: stages[stage] / stages.total() for stage in [*STAGES, "other"]}


def counted_on_arm(corpus, work, decoder):
    """Shares of the instructions within the decode calls."""
    _, lines = emulate("count_decodes", [corpus, FRAMES, work, decoder], ",addresses=on")
    return shares(ARM / "count_decodes", lines)


def sampled_here(corpus, work, decoder):
    """Shares of the time."""
    program = ROOT / "build" / "native" / "sample_decodes"
    result = subprocess.run([program, corpus, str(SECONDS), work, decoder], check=True, text=True, stdout=subprocess.PIPE)
    return shares(program, result.stdout.splitlines())
