#include "handheld/korvoimgview/start_camera.h"

#include <windows.h>

#include <string>

#include "handheld/companion/own_folder.h"

namespace viewer {

bool StartCamera() {
    const std::wstring program = handheld::ProgramFolder() + L"\\zelcamera.exe";
    STARTUPINFOW start = {};
    start.cb = sizeof start;
    PROCESS_INFORMATION process;
    if (!CreateProcessW(program.c_str(), nullptr, nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                        &process))
        return false;
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return true;
}

}  // namespace viewer
