// The image's life from its entry on.
#include <gtest/gtest.h>

#include "app/camera_records.h"
#include "fakes/driver_fake.h"
#include "handheld/doubles/object_store.h"
#include "handheld/doubles/registry.h"
#include "handheld/doubles/system.h"
#include "handheld/loader/guarded_memory.h"
#include "handheld/loader/image.h"
#include "handheld/loader/system_calls.h"

namespace {

using EntryPoint = int (*)(uint32_t module, uint32_t previous, wchar_t* commandLine, int show);

const CameraRecords& Records() {
    return *reinterpret_cast<const CameraRecords*>(FindInImage("_ZN12_GLOBAL__N_18g_cameraE").address);
}

// Constructors, settings, a screen whose resources are missing, destructors, the end of the first thread.
TEST(StartUp, FromTheEntryToTheEndOfTheFirstThread) {
    const int32_t jpgNo = 4711;
    const auto* const bytes = reinterpret_cast<const uint8_t*>(&jpgNo);
    RegistryValues().push_back({L"Software\\Zel\\Setting", L"JPGNO", 4, {bytes, bytes + sizeof jpgNo}});
    StoredFolders().push_back(L"\\My Documents\\My Pictures");
    DriverFake& driver = ResetDriverFake();
    driver.calls.reserve(100);
    TheSystem().onExit = [&driver, blocksBefore = GuardedBlocksInUse()](uint32_t code) {
        EXPECT_EQ(code, 0u);
        EXPECT_EQ(Records().settings.jpgNo, 4711);
        EXPECT_EQ(Records().settings.brightness, 50);
        EXPECT_EQ(OpenRegistryKeys(), 0u);
        EXPECT_EQ(GuardedBlocksInUse(), blocksBefore);  // nothing is left on the heap
        EXPECT_EQ(driver.calls, (std::vector<std::string>{"common controls", "find resource"}));
        sys::Exit(0);
    };
    wchar_t commandLine[] = L"";
    reinterpret_cast<EntryPoint>(TheImage().entry)(TheImage().base, 0, commandLine, 1);
    EXPECT_TRUE(false);  // the entry never returns
}

// The libraries leave anything above a result of 16 bits.
TEST(StartUp, NarrowResultsAreWidened) {
    const auto call = reinterpret_cast<uint32_t (*)(const void*)>(FindInImage("RegisterClassW").address);
    EXPECT_EQ(call(nullptr), 0x8001u);
}

TEST(StartUp, AtomicsGoThroughTheSystemsExchanges) {
    const auto compareExchange =
        reinterpret_cast<bool (*)(volatile int32_t*, int32_t*, int32_t, bool, int, int)>(
            FindInImage("__atomic_compare_exchange_4").address);
    int32_t word = 5, expected = 4;
    EXPECT_FALSE(compareExchange(&word, &expected, 6, false, 5, 5));
    EXPECT_EQ(expected, 5);
    EXPECT_EQ(word, 5);
    EXPECT_TRUE(compareExchange(&word, &expected, 6, false, 5, 5));
    EXPECT_EQ(word, 6);
}

}  // namespace

// A double that answers as the libraries may.
uint32_t RegisterClassWithRemains(const void*) __asm__("RegisterClassW");
uint32_t RegisterClassWithRemains(const void*) {
    return 0xDEAD8001;
}
