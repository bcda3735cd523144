// A program that the tests start: its first argument says what to do.
#include <windows.h>

#include <cstdlib>
#include <cwchar>
#include <string>

int WINAPI wWinMain(HINSTANCE, HINSTANCE, LPWSTR arguments, int) {
    const std::wstring line = arguments;
    if (line == L"exit thread") {
        // Without the handheld's rule the process would live as long as this thread.
        CreateThread(
            nullptr, 0,
            [](void*) -> DWORD {
                Sleep(INFINITE);
                return 0;
            },
            nullptr, 0, nullptr);
        ExitThread(23);
    }
    if (line == L"exit other thread") {
        HANDLE thread = CreateThread(
            nullptr, 0, [](void*) -> DWORD { ExitThread(5); }, nullptr, 0, nullptr);
        WaitForSingleObject(thread, INFINITE);
        DWORD code = 0;
        GetExitCodeThread(thread, &code);
        return static_cast<int>(code) + 30;
    }
    // Any other line is kept in the store, for the test to read.
    HANDLE file = CreateFileW(L"\\child.txt", GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    DWORD written = 0;
    WriteFile(file, line.data(), static_cast<DWORD>(line.size() * sizeof(wchar_t)), &written, nullptr);
    CloseHandle(file);
    return 42;
}
