// The camera program with timers around the steps of a frame:  live_path MODE FRAMES
// MODE is the preview's: 4 (320x240, 4:4:4), 9 (320x240, 4:2:0, zoomed once) or 6 (160x120).  Runs the whole
// program on the card, prints the times of FRAMES frames (see CFrameRecorder::Print) and ends.
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <iterator>

#include "app/camera_app.h"
#include "benchmarks/frame_times.h"
#include "device/control_codes.h"
#include "liveview/live_view_window.h"
#include "resources/resource.h"
#include "settings/settings_keys.h"

namespace {

struct Stream {
    int mode;
    int videoResolution;  // setting
    int zoom;
};
constexpr Stream kStreams[] = {{4, 0, 0}, {9, 0, 1}, {6, 1, 0}};

constexpr UINT kLookPeriod = 20;  // milliseconds

CameraRecords g_camera;
CCameraApp g_application(g_camera);
const Stream* g_stream = nullptr;
size_t g_frames = 0;
HWND g_screen = nullptr;
WNDPROC g_liveView = nullptr;

LRESULT CALLBACK TimedLiveView(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto handle = [&] { return CallWindowProcW(g_liveView, window, message, wParam, lParam); };
    if (message == kMsgFrameReady) Recorder().BeginFrame();
    if (message != WM_PAINT) return handle();
    const CSpanTimer timer(Span::paint);
    return handle();
}

BOOL CALLBACK FindScreen(HWND window, LPARAM liveView) {
    auto* const found = reinterpret_cast<HWND*>(liveView);
    *found = FindWindowExW(window, nullptr, kLiveViewClass, nullptr);
    if (*found != nullptr) g_screen = window;
    return *found == nullptr;
}

// The camera screen runs its own message loop; this timer is how the benchmark gets a word in.
void CALLBACK Look(HWND, UINT, UINT_PTR timer, DWORD) {
    if (g_screen == nullptr) {
        HWND liveView = nullptr;
        EnumThreadWindows(GetCurrentThreadId(), FindScreen, reinterpret_cast<LPARAM>(&liveView));
        if (liveView == nullptr) return;
        for (int i = 0; i < g_stream->zoom; ++i) SendMessageW(g_screen, WM_COMMAND, IDC_ZOOM_IN, 0);
        g_liveView = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrW(liveView, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(TimedLiveView)));
    } else if (Recorder().Count() >= g_frames) {
        KillTimer(nullptr, timer);
        PostMessageW(g_screen, WM_COMMAND, ID_FILE_EXIT, 0);
    }
}

bool ReadArguments(int count, wchar_t** arguments) {
    if (count != 3) return false;
    const int mode = _wtoi(arguments[1]), frames = _wtoi(arguments[2]);
    for (const Stream& stream : kStreams)
        if (stream.mode == mode) g_stream = &stream;
    g_frames = frames > 0 ? static_cast<size_t>(frames) : 0;
    return g_stream != nullptr && g_frames != 0;
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    if (!ReadArguments(count, arguments)) {
        std::fputs("usage: live_path 4|9|6 FRAMES\n", stderr);
        return 2;
    }
    WriteProfileInt({kRegistryKey}, kSettingsSection, L"aviresolution", g_stream->videoResolution);
    SetTimer(nullptr, 0, kLookPeriod, Look);
    RunApplication(g_application, L"");
    if (g_camera.device.lastMode != static_cast<uint32_t>(g_stream->mode)) {
        std::fputs("the card did not run in this mode\n", stderr);
        return 1;
    }
    Recorder().Print();
    return 0;
}
