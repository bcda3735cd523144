"""The benchmark's result as Markdown tables."""

import figures
from targets import TARGETS

OURS = "ours-"
PEER = "turbo"


def engines(decoders):
    """Of ours, slowest first: names without their prefix."""
    return [name[len(OURS):] for name in decoders if name.startswith(OURS)]


def widest(names):
    return names[-1]


def without_avx(names):
    return [name for name in names if not name.startswith("avx")][-1]


def table(header, rows):
    lines = [header, ["---"] * len(header), *rows]
    return "\n".join("| " + " | ".join(row) + " |" for row in lines)


def ratio_cells(times, engine, target):
    ratio = figures.ratios(times[OURS + engine], times[PEER])
    missed = target is not None and ratio.median > target
    text = f"{ratio.median:.2f} ({ratio.lower:.2f}–{ratio.upper:.2f})"
    return [f"**{text}**" if missed else text, "–" if target is None else f"≤ {target:.2f}"]


def ratio_table(times):
    names = engines(next(iter(times.values())))
    chosen = [(widest(names), "wide"), (without_avx(names), "narrow")]
    header = ["work"]
    for engine, _ in chosen:
        header += [f"{engine}: ours / turbo", "at most"]
    rows = [[TARGETS[work].label] + [cell for engine, column in chosen
                                     for cell in ratio_cells(by_decoder, engine, getattr(TARGETS[work], column))]
            for work, by_decoder in times.items()]
    return table(header, rows)


def time_table(times, frames):
    """Microseconds per frame of everybody."""
    decoders = list(next(iter(times.values())))
    rows = []
    for work, by_decoder in times.items():
        cells = [f"{figures.quartiles(by_decoder[name]).median / frames[work.split(':')[0]] / 1000:.0f}"
                 if name in by_decoder else "–" for name in decoders]
        rows.append([TARGETS[work].label, *cells])
    return table(["work", *decoders], rows)


def arm_table(counts):
    names = engines(dict.fromkeys(decoder for _, decoder in counts))
    engine = widest(names)
    rows = []
    for work, target in TARGETS.items():
        ours, peer = counts[work, OURS + engine], counts[work, PEER]
        ratio = f"{ours / peer:.2f}"
        aim = f"≤ {target.arm:.2f}" + (f" (≤ {target.arm_millions} M)" if target.arm_millions else "")
        rows.append([target.label, f"{ours / 1e6:.2f} M", f"{peer / 1e6:.2f} M",
                     f"**{ratio}**" if ours / peer > target.arm else ratio, aim,
                     f"{figures.frames_per_second(ours):.1f}", f"{figures.frames_per_second(peer):.1f}"])
    return table(["work", f"ours ({engine})", "turbo", "ours / turbo", "at most", "ours at 206 MHz, 1/s", "turbo, 1/s"], rows)


def stage_table(shares):
    """Of (what is shared out, engine) -> work -> stage -> share."""
    stages = list(next(iter(next(iter(shares.values())).values())))
    rows = [[TARGETS[work].label, what, engine, *(f"{by_stage[stage]:.0%}" for stage in stages)]
            for (what, engine), works in shares.items() for work, by_stage in works.items()]
    return table(["work", "share of", "engine", *stages], rows)
