// Room in the object store.
#pragma once
#include <cstdint>
#include <optional>

namespace handheld {

// What the store may hold, bytes: HANDHELD_STORE_KB KiB.
uint64_t StoreTotalBytes();

// The sizes of all stored files together; links lead elsewhere and are left out.  Nothing, with the last
// error set, when a folder of the store cannot be read.
std::optional<uint64_t> MeasureStoredBytes();

}  // namespace handheld
