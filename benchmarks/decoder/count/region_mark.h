// How a program tells region_counter where a region begins and ends: by a system call that every kernel
// refuses, getpriority(kRegionMark, kRegionBegins or kRegionEnds).
#pragma once

enum { kRegionMark = 0x7A65, kRegionBegins = 0, kRegionEnds = 1 };
