#include "unit/viewer/program_fixture.h"

#include <cstdlib>
#include <functional>

#include "handheld/companion/own_folder.h"

namespace viewer {
namespace {

constexpr int kWidth = 240, kHeight = 320;
constexpr ULONGLONG kPatience = 20'000;  // milliseconds

bool Becomes(const std::function<bool()>& condition) {
    const ULONGLONG limit = GetTickCount64() + kPatience;
    while (!condition()) {
        if (GetTickCount64() > limit) return false;
        Sleep(10);
    }
    return true;
}

// Two channels as alike as JPEG leaves them.
bool Near(uint32_t a, int b) {
    constexpr int kJpegError = 8;
    return std::abs(static_cast<int>(a & 0xFF) - b) <= kJpegError;
}

struct Search {
    DWORD process;
    const wchar_t* windowClass;
    HWND found;
};

BOOL CALLBACK Look(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<Search*>(parameter);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    wchar_t name[64] = {};
    GetClassNameW(window, name, 64);
    if (process != search.process || lstrcmpW(name, search.windowClass) != 0 || !IsWindowVisible(window))
        return TRUE;
    search.found = window;
    return FALSE;
}

}  // namespace

CProgramFixture::~CProgramFixture() {
    EXPECT_TRUE(m_family.End());
    Forget();
}

void CProgramFixture::Forget() {
    if (!m_process.hProcess) return;
    CloseHandle(m_process.hProcess);
    CloseHandle(m_process.hThread);
    m_process = {};
}

void CProgramFixture::Start(const wchar_t* program, const std::wstring& arguments,
                            const wchar_t* windowClass) {
    std::wstring line = L'"' + handheld::ProgramFolder() + L"\\..\\" + program + L"\" " + arguments;
    ASSERT_FALSE(m_process.hProcess);
    ASSERT_TRUE(m_family.Start(nullptr, line.data(), nullptr, m_process));
    Search search = {m_process.dwProcessId, windowClass, nullptr};
    Becomes([&] {
        EnumWindows(Look, reinterpret_cast<LPARAM>(&search));
        return search.found || WaitForSingleObject(m_process.hProcess, 0) == WAIT_OBJECT_0;
    });
    m_window = search.found;
    ASSERT_TRUE(m_window);
}

std::wstring CProgramFixture::Title() const {
    wchar_t title[200] = {};
    GetWindowTextW(m_window, title, 200);
    return title;
}

bool CProgramFixture::HasTitle(const std::wstring& title) const {
    return Becomes([&] { return Title() == title; });
}

void CProgramFixture::Click(int x, int y) const {
    PostMessageW(m_window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
    PostMessageW(m_window, WM_LBUTTONUP, 0, MAKELPARAM(x, y));
}

Pixels CProgramFixture::Screen() const {
    Pixels pixels;
    pixels.Allocate(kWidth, kHeight);
    BITMAPINFO info = {};
    info.bmiHeader = {sizeof info.bmiHeader, kWidth, -kHeight, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    HDC window = GetDC(m_window), canvas = CreateCompatibleDC(window);
    HBITMAP picture = CreateCompatibleBitmap(window, kWidth, kHeight);
    HGDIOBJ before = SelectObject(canvas, picture);
    BitBlt(canvas, 0, 0, kWidth, kHeight, window, 0, 0, SRCCOPY);
    SelectObject(canvas, before);
    GetDIBits(canvas, picture, 0, kHeight, pixels.data.data(), &info, DIB_RGB_COLORS);
    DeleteObject(picture);
    DeleteDC(canvas);
    ReleaseDC(m_window, window);
    for (uint32_t& pixel : pixels.data) pixel &= 0xFFFFFF;
    return pixels;
}

bool CProgramFixture::Shows(COLORREF colour, int x, int y) const {
    return Becomes([&] {
        const uint32_t pixel = Screen().Row(y)[x];
        return Near(pixel >> 16, GetRValue(colour)) && Near(pixel >> 8, GetGValue(colour)) &&
               Near(pixel, GetBValue(colour));
    });
}

bool CProgramFixture::LooksLike(uint32_t look, const RECT& part) const {
    return Becomes([&] { return LookOf(part) == look; });
}

bool CProgramFixture::LooksOtherThan(uint32_t look, const RECT& part) const {
    return Becomes([&] { return LookOf(part) != look; });
}

uint32_t CProgramFixture::LookOf(const RECT& part) const {
    const Pixels screen = Screen();
    uint32_t look = 0;
    for (LONG y = part.top; y < part.bottom; ++y)
        for (LONG x = part.left; x < part.right; ++x) look = look * 31 + screen.Row(y)[x];
    return look;
}

bool CProgramFixture::Ends() {
    PostMessageW(m_window, WM_CLOSE, 0, 0);
    if (WaitForSingleObject(m_process.hProcess, static_cast<DWORD>(kPatience)) != WAIT_OBJECT_0) return false;
    DWORD code = 99;
    GetExitCodeProcess(m_process.hProcess, &code);
    Forget();
    return code == 0;
}

}  // namespace viewer
