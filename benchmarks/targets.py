"""The works that are measured, and how their figures are to compare with libjpeg-turbo's: at most so much."""

import collections

# wide: time with AVX2; narrow: without; arm: instructions.  None: nothing is aimed at.
Target = collections.namedtuple("Target", "label wide narrow arm arm_millions")

TARGETS = {
    "preview-444:8": Target("320x240 4:4:4, 24-bit", 0.55, 0.85, 0.60, 4.9),
    "preview-420:8": Target("320x240 4:2:0, 24-bit", 0.55, 0.85, 0.70, 3.3),
    "preview-444:9": Target("320x240 4:4:4 at 240x180", 0.50, 0.70, 0.45, 4.0),
    "preview-420:9": Target("320x240 4:2:0 at 240x180", 0.50, 0.70, 0.53, 2.9),
    "small-444:10": Target("160x120 4:4:4, 24-bit", 0.55, 0.85, 0.62, None),
    "preview-444:1": Target("320x240 4:4:4, RGB565", 0.40, None, 0.62, None),
    "preview-420:1": Target("320x240 4:2:0, RGB565", 0.40, None, 0.62, None),
    "still-422:8": Target("1280x960 4:2:2, reduction 4", 0.55, 0.60, 0.40, None),
    "still-420:8": Target("1280x960 4:2:0, reduction 4", 0.55, 0.60, 0.40, None),
    "still-422:10": Target("1280x960 4:2:2, reduction 8", 0.48, 0.55, 0.55, None),
    "still-420:10": Target("1280x960 4:2:0, reduction 8", 0.48, 0.55, 0.55, None),
    "vga-422:8": Target("640x480 4:2:2, reduction 2", 0.70, 0.85, 0.65, None),
}
