#include "desktop/process_counts.h"

#include <winternl.h>

#include <algorithm>
#include <cstdint>
#include <vector>

// Wine answers 0 to GetProcessHandleCount and GetGuiResources, so there the tables behind them are counted.
namespace {

constexpr int kLooks = 20;
constexpr DWORD kLookPeriod = 3;  // milliseconds: the looks together last longer than a frame

struct SystemHandle {
    void* object;
    ULONG_PTR process, value;
    ULONG access;
    USHORT backTrace, type;
    ULONG attributes, reserved;
};
struct SystemHandles {
    ULONG_PTR count, reserved;
    SystemHandle handles[1];
};

long CountHandles(HANDLE process) {
    constexpr auto kExtendedHandles = static_cast<SYSTEM_INFORMATION_CLASS>(64);
    constexpr NTSTATUS kTooSmall = static_cast<NTSTATUS>(0xC0000004);
    std::vector<ULONG_PTR> buffer(1 << 14);
    NTSTATUS status;
    while ((status = NtQuerySystemInformation(kExtendedHandles, buffer.data(),
                                              static_cast<ULONG>(buffer.size() * sizeof(buffer[0])),
                                              nullptr)) == kTooSmall)
        buffer.resize(buffer.size() * 2);
    if (status != 0) return -1;
    const auto* const all = reinterpret_cast<const SystemHandles*>(buffer.data());
    const ULONG_PTR id = GetProcessId(process);
    return static_cast<long>(std::count_if(all->handles, all->handles + all->count,
                                           [&](const SystemHandle& handle) { return handle.process == id; }));
}

// An entry of the table that every process shares with the graphics system.
struct GdiEntry {
    uint64_t object;
    uint32_t owner;
    uint16_t unique;
    uint8_t type;  // 0: free
    uint8_t flags;
    uint64_t userPointer;
};
constexpr size_t kGdiEntries = 16384, kGdiTableInPeb = 0xF8;

long CountGdiObjects(HANDLE process) {
    if (const DWORD told = GetGuiResources(process, GR_GDIOBJECTS)) return static_cast<long>(told);
    PROCESS_BASIC_INFORMATION basic;
    if (NtQueryInformationProcess(process, ProcessBasicInformation, &basic, sizeof(basic), nullptr) != 0)
        return -1;
    const char* const peb = reinterpret_cast<const char*>(basic.PebBaseAddress);
    const void* table = nullptr;
    std::vector<GdiEntry> entries(kGdiEntries);
    if (!ReadProcessMemory(process, peb + kGdiTableInPeb, &table, sizeof(table), nullptr) ||
        !ReadProcessMemory(process, table, entries.data(), entries.size() * sizeof(GdiEntry), nullptr))
        return -1;
    return static_cast<long>(
        std::count_if(entries.begin(), entries.end(), [](const GdiEntry& entry) { return entry.type != 0; }));
}

// Wine's table of windows, menus and icons gives places out again before it grows, and a handle's high word
// tells how often its place has been given.  So menus are made until one has a new place: then none is free,
// and those that are not ours are everybody else's.
long CountUserObjects(HANDLE process) {
    if (const DWORD told = GetGuiResources(process, GR_USEROBJECTS)) return static_cast<long>(told);
    constexpr ULONG_PTR kFirst = 0x20, kStep = 2;  // low word of the first handle, and from one to the next
    constexpr size_t kMost = 10000;
    std::vector<HMENU> menus;
    long others = -1;
    while (others < 0 && menus.size() < kMost) {
        menus.push_back(CreateMenu());
        const auto handle = reinterpret_cast<ULONG_PTR>(menus.back());
        if (handle == 0) break;
        if (HIWORD(handle) == 1)
            others = static_cast<long>((LOWORD(handle) - kFirst) / kStep + 1 - menus.size());
    }
    for (const HMENU menu : menus) DestroyMenu(menu);
    return others;
}

}  // namespace

ProcessCounts CountHeld(HANDLE process) {
    ProcessCounts least;
    for (int look = 0; look < kLooks; ++look) {
        const ProcessCounts now = {CountHandles(process), CountGdiObjects(process),
                                   CountUserObjects(process)};
        const auto keep = [&](long ProcessCounts::*count) {
            least.*count = look == 0 ? now.*count : std::min(least.*count, now.*count);
        };
        keep(&ProcessCounts::handles);
        keep(&ProcessCounts::gdiObjects);
        keep(&ProcessCounts::userObjects);
        Sleep(kLookPeriod);
    }
    return least;
}
