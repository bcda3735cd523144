// Memory with pages around it that nobody may touch.
#pragma once
#include <cstdint>

#include "handheld/loader/line.h"

// The heap of image and tests. A block ends at a guard page, but for the up to three bytes that keep its
// beginning aligned; those are looked at when it is freed. Addresses are never used a second time, so a block
// that was freed is a guard as well.
void* GuardedAlloc(uint32_t bytes);
void GuardedFree(void* block);
uint32_t GuardedBlocksInUse();

// A stack between two guards, which a test's own process leaves its traces in.
class GuardedStack {
  public:
    explicit GuardedStack(uint32_t bytes);
    // Calls the function on this stack.
    void Run(void (*function)(void*), void* argument);
    void Clear();
    // How much of it was used since it was cleared.
    uint32_t Used() const;

  private:
    uint8_t* m_bottom;
    uint32_t m_bytes;
};

// Says of an address how it lies to a block or a stack; false when it is far from any.
bool DescribeGuarded(uint32_t address, Line& line);
