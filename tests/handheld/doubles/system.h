// The rest of the handheld that the tests can see or set: its clock, its threads, the end of the program.
#pragma once
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

struct StartedThread {
    unsigned long (*body)(void*);
    void* argument;
};

struct SystemDouble {
    uint32_t ticks = 0;  // milliseconds; a sleep moves them on
    std::string standardOutput;
    std::vector<StartedThread> threads;    // started, but run only when a test does
    std::function<void(uint32_t)> onExit;  // what the end of the first thread leads to
};

SystemDouble& TheSystem();
