#include "framework/start_process.h"

#include "platform/ce.h"

bool StartProcess(const wchar_t* program, const wchar_t* arguments) {
    PROCESS_INFORMATION process = {};
    if (!CreateProcessW(program, const_cast<wchar_t*>(arguments), nullptr, nullptr, FALSE, 0, nullptr,
                        nullptr, nullptr, &process))
        return false;
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return true;
}
