#include "handheld/coredll/store_space.h"

#include <algorithm>
#include <mutex>
#include <set>

#include "handheld/common/store_space.h"
#include "handheld/coredll/handle_table.h"

namespace handheld {
namespace {

// A result holds this long, and long enough for looking it up to take at most a twentieth of the time.
constexpr ULONGLONG kShortestHoldMs = 200;
constexpr ULONGLONG kHoldPerLook = 20;

struct Measured {
    std::mutex lock;
    bool known = false;
    uint64_t used = 0;
    ULONGLONG validUntil = 0;
};
Measured& State() {
    static auto* state = new Measured;
    return *state;
}

uint64_t Size(DWORD high, DWORD low) {
    return (static_cast<uint64_t>(high) << 32) | low;
}

// A folder's listing shows a growing file at an old size until it is closed; its handle knows better.
void CorrectOpenFiles(uint64_t& used) {
    std::set<std::wstring> counted;
    for (const auto& [handle, file] : Handles<StoreFile>().All()) {
        if (!counted.insert(file->desktopPath).second) continue;
        WIN32_FILE_ATTRIBUTE_DATA listed;
        LARGE_INTEGER real;
        if (!GetFileAttributesExW(file->desktopPath.c_str(), GetFileExInfoStandard, &listed) ||
            !GetFileSizeEx(handle, &real))
            continue;
        used = used + real.QuadPart - std::min(used, Size(listed.nFileSizeHigh, listed.nFileSizeLow));
    }
}

}  // namespace

std::optional<StoreSpace> MeasureStore() {
    Measured& state = State();
    std::lock_guard guard(state.lock);
    const ULONGLONG start = GetTickCount64();
    if (!state.known || start >= state.validUntil) {
        const std::optional<uint64_t> listed = MeasureStoredBytes();
        state.known = listed.has_value();
        if (!state.known) return std::nullopt;
        state.used = *listed;
        CorrectOpenFiles(state.used);
        const ULONGLONG end = GetTickCount64();
        state.validUntil = end + std::max(kShortestHoldMs, (end - start) * kHoldPerLook);
    }
    const uint64_t total = StoreTotalBytes();
    return StoreSpace{total, total - std::min(total, state.used)};
}

void ForgetStoreSpace() {
    std::lock_guard guard(State().lock);
    State().known = false;
}

void AddStoredBytes(uint64_t bytes) {
    std::lock_guard guard(State().lock);
    State().used += bytes;
}

}  // namespace handheld
