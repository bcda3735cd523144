#include "benchmarks/thread_clock.h"

#include <windows.h>

namespace {

constexpr int64_t kClockGetTime = 228, kThreadProcessorTime = 3;  // Linux, x86-64
constexpr uint64_t kSecond = 1000000000;

bool IsWine() {
    return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

uint64_t LinuxThreadTime() {
    int64_t time[2] = {};  // seconds, nanoseconds
    int64_t result;
    asm volatile("syscall"
                 : "=a"(result)
                 : "a"(kClockGetTime), "D"(kThreadProcessorTime), "S"(time)
                 : "rcx", "r11", "memory");
    return static_cast<uint64_t>(time[0]) * kSecond + static_cast<uint64_t>(time[1]);
}

uint64_t ElapsedTime() {
    LARGE_INTEGER count, perSecond;
    QueryPerformanceCounter(&count);
    QueryPerformanceFrequency(&perSecond);
    const auto ticks = static_cast<uint64_t>(count.QuadPart),
               rate = static_cast<uint64_t>(perSecond.QuadPart);
    return ticks / rate * kSecond + ticks % rate * kSecond / rate;
}

}  // namespace

uint64_t ThreadNanoseconds() {
    static const bool wine = IsWine();
    return wine ? LinuxThreadTime() : ElapsedTime();
}
