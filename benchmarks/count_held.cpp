// Prints what the running camera program holds:  count_held
// "handles N gdi N user N"; see tests/desktop/process_counts.h.
#include <windows.h>

#include <tlhelp32.h>

#include <cstdio>
#include <vector>

#include "desktop/process_counts.h"

namespace {

constexpr wchar_t kProgram[] = L"zelcamera.exe";

DWORD FindProgram() {
    const HANDLE processes = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    PROCESSENTRY32W entry = {};
    entry.dwSize = sizeof(entry);
    DWORD id = 0;
    for (BOOL more = Process32FirstW(processes, &entry); more && id == 0;
         more = Process32NextW(processes, &entry))
        if (lstrcmpiW(entry.szExeFile, kProgram) == 0) id = entry.th32ProcessID;
    CloseHandle(processes);
    return id;
}

// Whether ten more of each are counted as ten.  The tables are Wine's own affair and may change with it.
bool CountsAreRight() {
    constexpr int kMore = 10;
    const HANDLE self =
        OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, GetCurrentProcessId());
    const ProcessCounts before = CountHeld(self);
    std::vector<HANDLE> events;
    std::vector<HPEN> pens;
    std::vector<HMENU> menus;
    for (int i = 0; i < kMore; ++i) {
        events.push_back(CreateEventW(nullptr, FALSE, FALSE, nullptr));
        pens.push_back(CreatePen(PS_SOLID, 1, RGB(i, 0, 0)));
        menus.push_back(CreateMenu());
    }
    const ProcessCounts after = CountHeld(self);
    for (const HANDLE event : events) CloseHandle(event);
    for (const HPEN pen : pens) DeleteObject(pen);
    for (const HMENU menu : menus) DestroyMenu(menu);
    CloseHandle(self);
    return after.handles == before.handles + kMore && after.gdiObjects == before.gdiObjects + kMore &&
           after.userObjects >= before.userObjects + kMore;  // others' count, too, and may grow meanwhile
}

}  // namespace

int main() {
    if (!CountsAreRight()) {
        std::fputs("this system's tables are not as expected: objects cannot be counted\n", stderr);
        return 2;
    }
    const HANDLE program = OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, FindProgram());
    if (program == nullptr) {
        std::fputs("the camera program does not run\n", stderr);
        return 1;
    }
    const ProcessCounts held = CountHeld(program);
    std::printf("handles %ld gdi %ld user %ld\n", held.handles, held.gdiObjects, held.userObjects);
    CloseHandle(program);
    return 0;
}
