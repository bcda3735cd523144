// This library as a loaded module, and the folder of the program it lies beside.
#pragma once
#include <windows.h>

#include <string>

namespace handheld {

HMODULE OwnModule();

// Folder of this library and so of the program and the other stand-ins; no trailing backslash.
std::wstring OwnFolder();

// Thread that loaded the process; on the handheld the process ends with it.
DWORD MainThreadId();

// The desktop's function of a library already loaded, or null.
template <class Function>
Function* DesktopFunction(const wchar_t* library, const char* name) {
    return reinterpret_cast<Function*>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(library), name)));
}

}  // namespace handheld
