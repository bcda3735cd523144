#include <gtest/gtest.h>
#include <windows.h>

extern "C" BOOL WINAPI CeSetThreadPriority(HANDLE thread, int priority);
extern "C" int WINAPI CeGetThreadPriority(HANDLE thread);

namespace {

// The desktop's own, past the stand-in.
int DesktopPriority() {
    using Get = int WINAPI(HANDLE);
    auto* get = reinterpret_cast<Get*>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "GetThreadPriority")));
    return get(GetCurrentThread());
}

class ThreadPriority : public testing::Test {
  protected:
    ~ThreadPriority() override { SetThreadPriority(GetCurrentThread(), 3); }
};

}  // namespace

TEST_F(ThreadPriority, EightLevelsMapToTheDesktops) {
    constexpr int kDesktop[] = {15, 2, 1, 0, -1, -2, -2, -15};
    constexpr int kReadBack[] = {0, 1, 2, 3, 4, 5, 5, 7};
    for (int level = 0; level < 8; ++level) {
        EXPECT_TRUE(SetThreadPriority(GetCurrentThread(), level));
        EXPECT_EQ(DesktopPriority(), kDesktop[level]) << level;
        EXPECT_EQ(GetThreadPriority(GetCurrentThread()), kReadBack[level]) << level;
    }
}

TEST_F(ThreadPriority, OtherLevelsAreRefused) {
    for (int level : {-15, -1, 8, 15, 255}) {
        EXPECT_FALSE(SetThreadPriority(GetCurrentThread(), level)) << level;
        EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
    }
}

TEST_F(ThreadPriority, KernelLevelsEndWithTheEight) {
    EXPECT_TRUE(CeSetThreadPriority(GetCurrentThread(), 252));
    EXPECT_EQ(GetThreadPriority(GetCurrentThread()), 4);
    EXPECT_EQ(CeGetThreadPriority(GetCurrentThread()), 252);
    EXPECT_TRUE(CeSetThreadPriority(GetCurrentThread(), 100));
    EXPECT_EQ(GetThreadPriority(GetCurrentThread()), 0);
    EXPECT_FALSE(CeSetThreadPriority(GetCurrentThread(), 256));
    EXPECT_FALSE(CeSetThreadPriority(GetCurrentThread(), -1));
}
