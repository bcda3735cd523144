#include "handheld/doubles/system.h"

#include <windows.h>
// The controls' header after the system's.
#include <commctrl.h>

#include <cstdio>
#include <string>

#include "fakes/driver_fake.h"
#include "handheld/loader/image.h"
#include "handheld/loader/line.h"
#include "platform/handheld/end_program.h"

namespace {

SystemDouble g_system;

}  // namespace

SystemDouble& TheSystem() {
    return g_system;
}

// What the C++ library's templates come to when they would throw: in a test's own code.
void EndProgram() {
    Stop(Line() << "the C++ library gives up");
}

extern "C" {

int puts(const char* text) {
    g_system.standardOutput += std::string(text) + "\n";
    return 0;
}

DWORD WINAPI GetTickCount() {
    return g_system.ticks;
}

void WINAPI Sleep(DWORD milliseconds) {
    RecordCall("pause " + std::to_string(milliseconds));
    g_system.ticks += milliseconds;
}

HANDLE WINAPI CreateThread(LPSECURITY_ATTRIBUTES, SIZE_T, LPTHREAD_START_ROUTINE body, LPVOID argument, DWORD,
                           LPDWORD) {
    g_system.threads.push_back({body, argument});
    return reinterpret_cast<HANDLE>(0x7EAD);
}

void WINAPI ExitThread(DWORD code) {
    if (g_system.onExit) g_system.onExit(code);
    Stop(Line() << "a thread ends with " << code);
}

BOOL WINAPI TerminateProcess(HANDLE, UINT) {
    Stop(Line() << "the image gives up");
}

HMODULE WINAPI GetModuleHandleW(LPCWSTR name) {
    return name == nullptr ? reinterpret_cast<HMODULE>(TheImage().base) : nullptr;
}

BOOL WINAPI PostMessageW(HWND, UINT message, WPARAM, LPARAM) {
    RecordCall(message == WM_CLOSE ? "post close" : "post " + std::to_string(message));
    return TRUE;
}

BOOL WINAPI InitCommonControlsEx(const INITCOMMONCONTROLSEX* controls) {
    RecordCall("common controls");
    return controls->dwSize == sizeof *controls;
}

HICON WINAPI LoadIconW(HINSTANCE, LPCWSTR) {
    return nullptr;
}

BOOL WINAPI IsWindow(HWND) {
    return FALSE;
}

// A handheld whose resources cannot be found: a program without its screen.
HRSRC WINAPI FindResourceW(HMODULE, LPCWSTR, LPCWSTR) {
    RecordCall("find resource");
    return nullptr;
}

// The headers know these as built-ins; the names are the library's.
int32_t Exchange(volatile int32_t* word, int32_t value) __asm__("InterlockedExchange");
int32_t ExchangeIf(volatile int32_t* word, int32_t old, int32_t value) __asm__("InterlockedTestExchange");

int32_t Exchange(volatile int32_t* word, int32_t value) {
    const int32_t found = *word;
    *word = value;
    return found;
}

int32_t ExchangeIf(volatile int32_t* word, int32_t old, int32_t value) {
    const int32_t found = *word;
    if (found == old) *word = value;
    return found;
}
}
