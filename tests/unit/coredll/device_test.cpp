#include "fak_driver.h"
#include "store_fixture.h"

namespace {

HANDLE Open(const wchar_t* name = L"FAK1:", DWORD share = 3) {
    return CreateFileW(name, GENERIC_READ | GENERIC_WRITE, share, nullptr, OPEN_EXISTING, 0, nullptr);
}

FakCounts Counts(HANDLE device) {
    FakCounts counts = {};
    DWORD returned = 0;
    EXPECT_TRUE(DeviceIoControl(device, kFakGetCounts, nullptr, 0, &counts, 0, &returned, nullptr));
    EXPECT_EQ(returned, sizeof counts);
    return counts;
}

}  // namespace

TEST(Device, OpensThroughItsDriver) {
    HANDLE first = Open(), second = Open(L"fak1:", 0);
    ASSERT_NE(first, INVALID_HANDLE_VALUE);
    ASSERT_NE(second, INVALID_HANDLE_VALUE);
    EXPECT_NE(first, second);
    const FakCounts before = Counts(first);
    EXPECT_EQ(before.inits, 1u);
    EXPECT_EQ(before.lastDevice, kFakDevice);
    EXPECT_EQ(before.lastAccess, GENERIC_READ | GENERIC_WRITE);
    EXPECT_EQ(before.lastShare, 0u);
    EXPECT_EQ(before.lastFile, kFakFirstFile + before.opens - 1);
    EXPECT_EQ(Counts(second).lastFile, kFakFirstFile + before.opens);
    EXPECT_TRUE(CloseHandle(first));
    EXPECT_EQ(Counts(second).closes, before.closes + 1);
    EXPECT_TRUE(CloseHandle(second));
}

// Sizes and buffers reach the driver as they are: the camera's say something else than what they are.
TEST(Device, ControlPassesBuffersUnchanged) {
    HANDLE device = Open();
    char text[8] = {};
    DWORD returned = 0;
    EXPECT_TRUE(
        DeviceIoControl(device, kFakEcho, const_cast<char*>("frame"), 6, text, 0, &returned, nullptr));
    EXPECT_EQ(returned, 6u);
    EXPECT_STREQ(text, "frame");
    EXPECT_TRUE(DeviceIoControl(device, kFakEcho, const_cast<char*>("x"), 2, text, 0, nullptr, nullptr));
    EXPECT_FALSE(DeviceIoControl(device, 0x1234, nullptr, 0, nullptr, 0, &returned, nullptr));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_FUNCTION));
    CloseHandle(device);
}

TEST(Device, RefusalIsTheDrivers) {
    EXPECT_EQ(Open(L"FAK1:", kFakRefusedShare), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_SHARING_VIOLATION));
}

TEST(Device, NoDriverNoDevice) {
    EXPECT_EQ(Open(L"QQQ1:"), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_DEV_NOT_EXIST));
    // A library without a driver's entry points.
    EXPECT_EQ(Open(L"gdi1:"), INVALID_HANDLE_VALUE);
}

TEST(Device, ClosedAndInvalidHandlesFail) {
    HANDLE device = Open();
    CloseHandle(device);
    DWORD returned;
    for (HANDLE handle : {device, INVALID_HANDLE_VALUE, static_cast<HANDLE>(nullptr)}) {
        EXPECT_FALSE(DeviceIoControl(handle, kFakEcho, nullptr, 0, nullptr, 0, &returned, nullptr));
        EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_HANDLE));
    }
}
