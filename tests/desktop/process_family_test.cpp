// What a camera started ends with its run: a viewer that stayed would be found by the tests behind it.
#include <gtest/gtest.h>

#include "desktop/camera_process.h"

namespace {

class StartedViewer : public testing::Test {
  protected:
    ~StartedViewer() override { CloseHandle(viewer); }

    void AskForHelp(CameraProcess& camera) {
        ASSERT_NE(camera.Screen(), nullptr);
        HELPINFO request = {};
        request.cbSize = sizeof request;
        SendMessageW(camera.Screen(), WM_HELP, 0, reinterpret_cast<LPARAM>(&request));
        HWND window = nullptr;
        ASSERT_TRUE(
            WaitFor([&] { return (window = FindWindowW(L"HandheldHelpViewer", nullptr)) != nullptr; }));
        DWORD id = 0;
        GetWindowThreadProcessId(window, &id);
        viewer = OpenProcess(SYNCHRONIZE, FALSE, id);
        ASSERT_NE(viewer, nullptr);
        EXPECT_EQ(camera.Family().Started(), 2u);
        EXPECT_EQ(camera.Family().Running(), 2u);
    }
    bool ViewerHasEnded() const { return WaitForSingleObject(viewer, 0) == WAIT_OBJECT_0; }

    HANDLE viewer = nullptr;
};

TEST_F(StartedViewer, EndsWithTheRun) {
    {
        CameraProcess camera;
        ASSERT_NO_FATAL_FAILURE(AskForHelp(camera));
        EXPECT_FALSE(ViewerHasEnded());
    }
    EXPECT_TRUE(ViewerHasEnded());
}

TEST_F(StartedViewer, EndsWithTheRunThoughTheCameraWentBefore) {
    {
        CameraProcess camera;
        ASSERT_NO_FATAL_FAILURE(AskForHelp(camera));
        EXPECT_TRUE(camera.ExitsInOrder());
        EXPECT_FALSE(ViewerHasEnded());
        EXPECT_EQ(camera.Family().Running(), 1u);
    }
    EXPECT_TRUE(ViewerHasEnded());
}

}  // namespace
