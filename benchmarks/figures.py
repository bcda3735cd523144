"""What is made of the benchmark programs' lines: medians, quartiles, ratios."""

import collections
import statistics

Quartiles = collections.namedtuple("Quartiles", "lower median upper")

# The handheld's processor: 206 MHz, and 1.3 cycles for an instruction, without waiting for memory.
INSTRUCTIONS_PER_SECOND = 206e6 / 1.3


def quartiles(values):
    if len(values) == 1:
        return Quartiles(values[0], values[0], values[0])
    return Quartiles(*statistics.quantiles(values, n=4, method="inclusive"))


def parse_times(lines):
    """"time WORK ROUND DECODER NANOSECONDS" -> work -> decoder -> nanoseconds by round; other lines are passed over."""
    times = {}
    for line in lines:
        kind, *words = line.split()
        if kind != "time":
            continue
        work, round_number, decoder, nanoseconds = words
        by_round = times.setdefault(work, {}).setdefault(decoder, [])
        if int(round_number) != len(by_round):
            raise ValueError(f"round {len(by_round)} of {decoder} at {work} is missing")
        by_round.append(int(nanoseconds))
    return times


def ratios(ours, peer):
    """Quartiles of the ratios within each round: what slows the machine for a while slows both."""
    if len(ours) != len(peer):
        raise ValueError("not the same rounds")
    return quartiles([mine / other for mine, other in zip(ours, peer)])


def parse_counts(decoded, regions):
    """Lines "decoded WORK DECODER NUMBER" and as many "region N" -> (work, decoder) -> mean instructions per frame."""
    names = [tuple(line.split()[1:3]) for line in decoded if line.startswith("decoded ")]
    counts = [int(line.split()[1]) for line in regions if line.startswith("region ")]
    if len(names) != len(counts):
        raise ValueError(f"{len(names)} frames were decoded, but {len(counts)} counted")
    frames = collections.defaultdict(list)
    for name, count in zip(names, counts):
        frames[name].append(count)
    return {name: statistics.mean(values) for name, values in frames.items()}


def frames_per_second(instructions):
    return INSTRUCTIONS_PER_SECOND / instructions
