#include "capture/capture_effects.h"

#include "app/camera_dlg.h"

#include <atomic>
#include <cstdio>

namespace {

constexpr DWORD kReviewStep = 20;  // milliseconds

// Set before a review's thread starts and not written while one that counts is running.
struct ReviewTimer {
    std::atomic<DWORD> start;     // tick count
    std::atomic<DWORD> duration;  // milliseconds
    std::atomic<DWORD> current;   // number of the review that counts; its thread is the only one to end it
    std::atomic<bool>* showing;
};

ReviewTimer g_reviewTimer;

DWORD WINAPI EndReview(void* parameter) {
    const auto number = static_cast<DWORD>(reinterpret_cast<uintptr_t>(parameter));
    while (g_reviewTimer.current == number && GetTickCount() - g_reviewTimer.start <= g_reviewTimer.duration)
        Sleep(kReviewStep);
    if (g_reviewTimer.current == number) *g_reviewTimer.showing = false;
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
    const DWORD number = ++g_reviewTimer.current;
    const HANDLE thread = CreateThread(nullptr, 0, EndReview,
                                       reinterpret_cast<void*>(static_cast<uintptr_t>(number)), 0, nullptr);
    if (thread != nullptr)
        CloseHandle(thread);
    else
        showing = false;  // nobody else would end the review, and the shutter waits for that
}

void StopReviewTimer() { ++g_reviewTimer.current; }

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
    const CCameraDlg* const screen = CCameraDlg::Current();
    if (screen == nullptr) return;
    InvalidateRect(screen->LiveViewHwnd(), nullptr, FALSE);
    // Otherwise the paint would wait for an empty queue, and frames may be waiting there all the time.
    PostMessageW(screen->LiveViewHwnd(), WM_PAINT, 0, 0);
}

uint32_t SoundModule() { return static_cast<uint32_t>(reinterpret_cast<uintptr_t>(GetModuleHandleW(nullptr))); }
