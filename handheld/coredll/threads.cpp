// Threads: the handheld's eight priorities, and a process that ends with its first thread.
#include <iterator>

#include "handheld/coredll/module.h"

using namespace handheld;

namespace {

// The desktop's value for each of the handheld's priorities, most urgent first.  The handheld has two steps
// below "lowest"; the desktop only "idle".
constexpr int kPriorities[] = {
    THREAD_PRIORITY_TIME_CRITICAL,  // 0
    THREAD_PRIORITY_HIGHEST,        // 1
    THREAD_PRIORITY_ABOVE_NORMAL,   // 2
    THREAD_PRIORITY_NORMAL,         // 3
    THREAD_PRIORITY_BELOW_NORMAL,   // 4
    THREAD_PRIORITY_LOWEST,         // 5
    THREAD_PRIORITY_LOWEST,         // 6: above idle
    THREAD_PRIORITY_IDLE,           // 7
};
constexpr int kLevels = static_cast<int>(std::size(kPriorities));
// The kernel counts 256 priorities; the program's eight are the last of them.
constexpr int kKernelOffset = 248;

}  // namespace

extern "C" {

// Values outside 0..7 are refused as on the handheld: the desktop's negative ones would go unnoticed here.
BOOL WINAPI HandheldSetThreadPriority(HANDLE thread, int priority) {
    if (priority >= 0 && priority < kLevels) return SetThreadPriority(thread, kPriorities[priority]);
    SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
}

int WINAPI HandheldGetThreadPriority(HANDLE thread) {
    const int priority = GetThreadPriority(thread);
    for (int level = 0; level < kLevels; ++level)
        if (kPriorities[level] == priority) return level;
    return THREAD_PRIORITY_ERROR_RETURN;
}

BOOL WINAPI HandheldCeSetThreadPriority(HANDLE thread, int priority) {
    if (priority >= 0 && priority < kKernelOffset) return HandheldSetThreadPriority(thread, 0);
    return HandheldSetThreadPriority(thread, priority - kKernelOffset);
}

int WINAPI HandheldCeGetThreadPriority(HANDLE thread) {
    const int priority = HandheldGetThreadPriority(thread);
    return priority == THREAD_PRIORITY_ERROR_RETURN ? priority : priority + kKernelOffset;
}

void WINAPI HandheldExitThread(DWORD code) {
    if (GetCurrentThreadId() == MainThreadId()) ExitProcess(code);
    ExitThread(code);
}

}  // extern "C"
