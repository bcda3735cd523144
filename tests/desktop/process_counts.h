// What a process holds, counted from outside.
#pragma once
#include <windows.h>

struct ProcessCounts {
    long handles = -1;  // kernel handles; -1: could not be counted
    long gdiObjects = -1;
    long userObjects = -1;  // windows, menus, icons: of the whole desktop session under Wine
};

// The least of several looks at a process that comes and goes with some objects while it works.
// `process` needs the right to be asked and read.
ProcessCounts CountHeld(HANDLE process);
