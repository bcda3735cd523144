#!/usr/bin/python3
"""What the decoder's benchmark makes of its programs' lines, and what the guard of its instruction counts lets pass."""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path[:0] = [str(ROOT / "benchmarks"), str(ROOT / "tests" / "support")]

import figures  # noqa: E402
import instruction_guard  # noqa: E402
import stages  # noqa: E402
import tables  # noqa: E402
from targets import TARGETS  # noqa: E402

TIMES = ["likeness a:8 turbo 0.5", "time a:8 0 ours-portable 30", "time a:8 0 turbo 10", "time a:8 1 ours-portable 80",
         "time a:8 1 turbo 40", "time a:8 2 ours-portable 100", "time a:8 2 turbo 100"]


def refuses(function, *arguments):
    try:
        function(*arguments)
    except ValueError:
        return True
    return False


def times_are_read_by_round():
    return figures.parse_times(TIMES) == {"a:8": {"ours-portable": [30, 80, 100], "turbo": [10, 40, 100]}}


def a_missing_round_is_refused():
    return refuses(figures.parse_times, TIMES[:3] + TIMES[5:])


def ratios_are_taken_within_rounds():
    times = figures.parse_times(TIMES)["a:8"]
    return figures.ratios(times["ours-portable"], times["turbo"]) == (1.5, 2, 2.5) and refuses(figures.ratios, [1], [1, 2])


def quartiles_are_those_of_the_values():
    return figures.quartiles([5, 1, 3, 2, 4]) == (2, 3, 4) and figures.quartiles([7]) == (7, 7, 7)


def counts_are_means_per_frame():
    decoded = ["decoded a:8 turbo 0", "decoded a:8 turbo 1", "decoded b:1 turbo 0"]
    return (figures.parse_counts(decoded, ["region 10", "region 20", "address 8000 3", "region 7"]) ==
            {("a:8", "turbo"): 15, ("b:1", "turbo"): 7} and refuses(figures.parse_counts, decoded, ["region 10"]))


def the_handheld_makes_158_million_instructions_a_second():
    return abs(figures.frames_per_second(1585000) - 100) < 0.1


def missed_targets_are_bold():
    times = {"ours-portable": [30, 80, 100], "turbo": [10, 40, 100]}
    return (tables.ratio_cells(times, "portable", 1.9) == ["**2.00 (1.50–2.50)**", "≤ 1.90"] and
            tables.ratio_cells(times, "portable", 2.0) == ["2.00 (1.50–2.50)", "≤ 2.00"])


def the_second_column_is_the_best_without_avx():
    return (tables.without_avx(["portable", "sse4.1", "avx2"]), tables.widest(["portable", "sse4.1", "avx2"])) == ("sse4.1", "avx2")


def lines_are_told_to_the_innermost_that_has_a_stage():
    output = ("0x00010\n/usr/include/string.h:3\n/x/jpeg/simd/lanes.h:7\n/x/jpeg/inverse_dct.cpp:9\n/x/jpeg/scan.cpp:4\n"
              "0x00014\n??:0\n")
    files = stages.parse_lines(output)
    return (files == {16: ["lanes.h", "inverse_dct.cpp", "scan.cpp"], 20: []} and
            [stages.stage_of(sources) for sources in files.values()] == ["transform", "other"])


def every_work_has_a_target():
    source = (ROOT / "benchmarks" / "decoder" / "work.cpp").read_text()
    return [f"{name}:{mode}" for name, mode in re.findall(r'\{"([\w-]+)", (\d+)\}', source)] == list(TARGETS)


def counts_may_differ_by_two_hundredths():
    recorded = {"same": 1000, "near": 1000, "more": 1000, "less": 1000, "gone": 1}
    actual = {"same": 1000, "near": 1020, "more": 1021, "less": 979, "new": 1}
    return [name for name, problem in instruction_guard.compare(recorded, actual) if problem] == ["more", "less", "gone", "new"]


CASES = [times_are_read_by_round, a_missing_round_is_refused, ratios_are_taken_within_rounds,
         quartiles_are_those_of_the_values, counts_are_means_per_frame,
         the_handheld_makes_158_million_instructions_a_second, missed_targets_are_bold,
         the_second_column_is_the_best_without_avx, lines_are_told_to_the_innermost_that_has_a_stage, every_work_has_a_target,
         counts_may_differ_by_two_hundredths]


def main():
    failed = False
    for case in CASES:
        passed = case()
        print(f"{'ok' if passed else 'FAILED'} benchmark: {case.__name__.replace('_', ' ')}")
        failed |= not passed
    return failed


if __name__ == "__main__":
    sys.exit(main())
