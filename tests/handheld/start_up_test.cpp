// The image's life from its entry on.
#include <gtest/gtest.h>

#include "app/camera_records.h"
#include "fakes/driver_fake.h"
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
    wchar_t commandLine[] = L"";
    TheSystem().onExit = [&](uint32_t code) {
        EXPECT_EQ(code, 0u);
        EXPECT_EQ(Records().settings.jpgNo, 4711);
        EXPECT_EQ(Records().settings.brightness, 50);
        EXPECT_EQ(OpenRegistryKeys(), 0u);
        sys::Exit(0);
    };
    const auto start = reinterpret_cast<EntryPoint>(TheImage().entry);
    start(TheImage().base, 0, commandLine, 1);
    EXPECT_TRUE(false);  // the entry never returns
}

}  // namespace
