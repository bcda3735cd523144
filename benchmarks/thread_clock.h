// Processor time of the calling thread.
#pragma once
#include <cstdint>

// Nanoseconds.  Wine passes on a thread's processor time in steps of 10 ms only, far more than a frame takes,
// so Linux itself is asked; on Windows, which cannot say it finely either, this is the time that went by.
uint64_t ThreadNanoseconds();
