#include "capture/capture_effects.h"

#include "app/camera_dlg.h"

#include <atomic>
#include <cstdio>

namespace {

struct ReviewTimer {
    std::atomic<DWORD> start;     // tick count; a later picture moves it on under a running thread
    std::atomic<DWORD> duration;  // milliseconds
    std::atomic<bool>* showing;
};

ReviewTimer g_reviewTimer;

DWORD WINAPI EndReview(void*) {
    while (GetTickCount() - g_reviewTimer.start <= g_reviewTimer.duration) Sleep(20);
    *g_reviewTimer.showing = false;
    return 0;
}

}  // namespace

void ShowCaptureMessage(CaptureMessage message) {
    const wchar_t* const text = message == CaptureMessage::noSpace
                                    ? L"Not enough space, can not take a snapshot!"
                                    : L"The folder and file name are too long, can not take a snapshot!";
    if (CCameraDlg* const screen = CCameraDlg::Current()) screen->ShowCaption(text, MB_ICONHAND);
}

void EnableCaptureMenus(bool enabled) {
    if (const CCameraDlg* const screen = CCameraDlg::Current()) screen->EnableCaptureMenus(enabled);
}

void StartReviewTimer(std::atomic<bool>& showing, uint32_t milliseconds) {
    g_reviewTimer.showing = &showing;
    g_reviewTimer.duration = milliseconds;
    g_reviewTimer.start = GetTickCount();
    const HANDLE thread = CreateThread(nullptr, 0, EndReview, nullptr, 0, nullptr);
    if (thread != nullptr) CloseHandle(thread);
}

bool ReadReviewFile(const std::wstring& path, uint8_t* room, uint32_t capacity, uint32_t& bytes) {
    FILE* const file = _wfopen(path.c_str(), L"rb");
    if (file == nullptr) return false;
    bool read = false;
    if (std::fseek(file, 0, SEEK_END) == 0) {
        const long length = std::ftell(file);
        if (length > 0 && static_cast<uint32_t>(length) <= capacity && std::fseek(file, 0, SEEK_SET) == 0) {
            bytes = static_cast<uint32_t>(std::fread(room, 1, static_cast<size_t>(length), file));
            read = bytes == static_cast<uint32_t>(length);
        }
    }
    std::fclose(file);
    return read;
}

void PaintLiveView() {
    if (const CCameraDlg* const screen = CCameraDlg::Current()) InvalidateRect(screen->LiveViewHwnd(), nullptr, FALSE);
}

uint32_t SoundModule() { return static_cast<uint32_t>(reinterpret_cast<uintptr_t>(GetModuleHandleW(nullptr))); }
