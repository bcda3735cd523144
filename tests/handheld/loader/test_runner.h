// Runs tests, each in a process and on a guarded stack of its own.
#pragma once

// Those whose "Suite.Name" begins with the pattern. Prints "ok NAME", "skipped NAME: why" or "FAILED NAME:
// why" for each, then how much of the stack they used at most. The result is the program's: 0 when all
// passed.
int RunTests(const char* pattern);

// Ends the test that needs a function which the image does not have.
extern "C" [[noreturn]] void SkipWithout(const char* function);
