// How much the object store holds.
#pragma once
#include <windows.h>

#include <cstdint>
#include <optional>
#include <string>

namespace handheld {

// A file of the store that is open for writing.
struct StoreFile {
    std::wstring desktopPath;
};

struct StoreSpace {
    uint64_t total;  // bytes: HANDHELD_STORE_KB KiB
    uint64_t free;   // total less the sizes of all files, never below 0
};

// Nothing, with the last error set, when a folder of the store cannot be read.
// The camera asks for every frame it paints, so a result may be a little old when other programs change the
// store; what this process does itself is always counted.
std::optional<StoreSpace> MeasureStore();

// Forgets the last result: the store was changed in a way that has to be looked up.
void ForgetStoreSpace();

// Counts bytes that were just added to the store, without another look at it.
void AddStoredBytes(uint64_t bytes);

}  // namespace handheld
