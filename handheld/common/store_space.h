// Room in the object store.
#pragma once
#include <cstdint>

namespace handheld {

// Bytes still free: HANDHELD_STORE_KB KiB less the sizes of all stored files, never below 0.
uint64_t StoreFreeBytes();

}  // namespace handheld
