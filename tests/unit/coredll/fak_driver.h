// What the tests and the driver of "FAK1:" agree on.
#pragma once
#include <cstdint>

inline constexpr uint64_t kFakDevice = 0x123456789ABCDEF0;
inline constexpr uint64_t kFakFirstFile = 0x7000000000000000;
inline constexpr uint32_t kFakRefusedShare = 7;
inline constexpr uint32_t kFakEcho = 0x80000013;
inline constexpr uint32_t kFakGetCounts = 0x80000001;

struct FakCounts {
    uint32_t inits, opens, closes;
    uint64_t lastDevice;
    uint64_t lastFile;
    uint32_t lastAccess, lastShare;
};
