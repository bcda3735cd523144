// A store whose free room the test sets.
#pragma once
#include <cstdint>

struct StoreFake {
    bool readable = true;
    uint32_t freeBytes = 64u << 20;
    int questions = 0;  // so far
};

StoreFake& ResetStoreFake();
