// Where the handheld's loader enters the program: with the four arguments of wWinMain, and before any
// constructor.
#include "platform/ce.h"

using Step = void (*)();

extern "C" {

// Laid out by tools/handheld/image.ld.
extern const Step kConstructorsBegin[];
extern const Step kConstructorsEnd[];
extern const Step kDestructorsBegin[];
extern const Step kDestructorsEnd[];

int HandheldStart(HINSTANCE module, HINSTANCE previous, LPWSTR commandLine, int show) {
    for (const Step* step = kConstructorsBegin; step != kConstructorsEnd; ++step) (*step)();
    const int result = wWinMain(module, previous, commandLine, show);
    for (const Step* step = kDestructorsEnd; step != kDestructorsBegin;) (*--step)();
    ExitThread(static_cast<DWORD>(result));  // the first thread's end is the process's
}
}
