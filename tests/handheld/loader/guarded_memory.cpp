#include "handheld/loader/guarded_memory.h"

#include "handheld/loader/system_calls.h"

namespace {

constexpr uint32_t kHeapBytes = 0x20000000;
constexpr uint32_t kMostBlocks = 0x40000;
constexpr uint32_t kAlignment = 4;  // of every record that the handheld's convention knows
constexpr uint8_t kSlack = 0xA5;
constexpr uint32_t kStackGuard = 0x10000;  // wider than any frame, which may be entered at its far end

struct Block {
    uint32_t start, bytes;
    bool freed;
};

struct Heap {
    uint32_t next = 0, end = 0;
    Block* blocks = nullptr;  // by address
    uint32_t count = 0;
};
Heap g_heap;
uint32_t g_stackBottom, g_stackBytes;

uint32_t PagesOf(uint32_t bytes) {
    return (bytes + sys::kPage - 1) / sys::kPage * sys::kPage;
}

void OpenHeap() {
    g_heap.next = reinterpret_cast<uint32_t>(sys::Map(0, kHeapBytes, sys::kNone));
    g_heap.end = g_heap.next + kHeapBytes;
    g_heap.blocks = static_cast<Block*>(sys::Map(0, kMostBlocks * sizeof(Block), sys::kReadWrite));
    if (g_heap.next == 0 || g_heap.blocks == nullptr) Stop(Line() << "no memory for the heap");
}

// The last block that begins at or before the address.
Block* BlockBefore(uint32_t address) {
    uint32_t first = 0, count = g_heap.count;
    while (count != 0) {
        const uint32_t half = count / 2;
        if (g_heap.blocks[first + half].start <= address) {
            first += half + 1;
            count -= half + 1;
        } else {
            count = half;
        }
    }
    return first == 0 ? nullptr : &g_heap.blocks[first - 1];
}

uint8_t* EndOfPages(const Block& block) {
    return reinterpret_cast<uint8_t*>(PagesOf(block.start + (block.bytes != 0 ? block.bytes : 1)));
}

Block& BlockAt(const void* memory) {
    const auto address = reinterpret_cast<uint32_t>(memory);
    Block* const block = BlockBefore(address);
    if (block == nullptr || block->start != address || block->freed)
        Stop(Line() << "freed " << Hex{address} << ", which is no block in use");
    return *block;
}

}  // namespace

void* GuardedAlloc(uint32_t bytes) {
    if (g_heap.blocks == nullptr) OpenHeap();
    const uint32_t wanted = bytes != 0 ? bytes : 1;
    const uint32_t pages = PagesOf(wanted);
    if (pages < bytes || pages >= g_heap.end - g_heap.next || g_heap.count == kMostBlocks) return nullptr;
    auto* const first = reinterpret_cast<uint8_t*>(g_heap.next);
    if (!sys::Protect(first, pages, sys::kReadWrite)) return nullptr;
    g_heap.next += pages + sys::kPage;
    uint8_t* const start = first + pages - (wanted + kAlignment - 1) / kAlignment * kAlignment;
    for (uint8_t* at = first; at != first + pages; ++at) *at = kSlack;
    g_heap.blocks[g_heap.count++] = {reinterpret_cast<uint32_t>(start), bytes, false};
    return start;
}

void GuardedFree(void* memory) {
    if (memory == nullptr) return;
    Block& block = BlockAt(memory);
    auto* const start = static_cast<uint8_t*>(memory);
    for (const uint8_t* at = start + block.bytes; at != EndOfPages(block); ++at)
        if (*at != kSlack)
            Stop(Line() << "a block of " << block.bytes << " bytes was written behind its end");
    auto* const first = reinterpret_cast<uint8_t*>(block.start / sys::kPage * sys::kPage);
    for (const uint8_t* at = first; at != start; ++at)
        if (*at != kSlack)
            Stop(Line() << "a block of " << block.bytes << " bytes was written before its beginning");
    sys::Protect(first, static_cast<uint32_t>(EndOfPages(block) - first), sys::kNone);
    block.freed = true;
}

uint32_t GuardedBlocksInUse() {
    uint32_t count = 0;
    for (const Block* block = g_heap.blocks; block != g_heap.blocks + g_heap.count; ++block)
        count += !block->freed;
    return count;
}

GuardedStack::GuardedStack(uint32_t bytes) : m_bytes(PagesOf(bytes)) {
    auto* const guard =
        static_cast<uint8_t*>(sys::Map(0, m_bytes + 2 * kStackGuard, sys::kNone, sys::Sharing::withChildren));
    m_bottom = guard + kStackGuard;
    if (guard == nullptr || !sys::Protect(m_bottom, m_bytes, sys::kReadWrite))
        Stop(Line() << "no memory for a stack");
    g_stackBottom = reinterpret_cast<uint32_t>(m_bottom);
    g_stackBytes = m_bytes;
}

void GuardedStack::Run(void (*function)(void*), void* argument) {
    uint8_t* const top = m_bottom + m_bytes;
    __asm__ volatile(
        "mov r4, sp\n"
        "mov sp, %[top]\n"
        "mov r0, %[argument]\n"
        "mov lr, pc\n"
        "mov pc, %[function]\n"
        "mov sp, r4\n"
        :
        : [top] "r"(top), [argument] "r"(argument), [function] "r"(function)
        : "r0", "r1", "r2", "r3", "r4", "ip", "lr", "memory", "cc");
}

void GuardedStack::Clear() {
    for (uint8_t* at = m_bottom; at != m_bottom + m_bytes; ++at) *at = 0;
}

uint32_t GuardedStack::Used() const {
    const uint8_t* at = m_bottom;
    while (at != m_bottom + m_bytes && *at == 0) ++at;
    return static_cast<uint32_t>(m_bottom + m_bytes - at);
}

bool DescribeGuarded(uint32_t address, Line& line) {
    if (address >= g_stackBottom - kStackGuard && address < g_stackBottom) {
        line << "below the stack of " << g_stackBytes << " bytes";
        return true;
    }
    if (address >= g_stackBottom + g_stackBytes && address < g_stackBottom + g_stackBytes + kStackGuard) {
        line << "above the stack";
        return true;
    }
    if (address - g_stackBottom < g_stackBytes) {
        line << "on the stack";
        return true;
    }
    const Block* const block = address < g_heap.end ? BlockBefore(address) : nullptr;
    if (block == nullptr || address >= g_heap.next) return false;
    if (address < block->start + block->bytes) {
        line << "in a block of " << block->bytes << (block->freed ? " bytes that was freed" : " bytes");
    } else {
        line << address - block->start - block->bytes << " bytes behind the end of a block of "
             << block->bytes;
    }
    return true;
}
