#include "handheld/coredll/module.h"

namespace handheld {
namespace {
HMODULE ownModule;
DWORD mainThreadId;
}  // namespace

HMODULE OwnModule() {
    return ownModule;
}

DWORD MainThreadId() {
    return mainThreadId;
}

std::wstring OwnFolder() {
    std::wstring path(MAX_PATH, L'\0');
    DWORD length;
    while ((length = GetModuleFileNameW(ownModule, path.data(), static_cast<DWORD>(path.size()))) ==
           path.size())
        path.resize(path.size() * 2);
    path.resize(length);
    return path.substr(0, path.find_last_of(L'\\'));
}

}  // namespace handheld

extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, void*) {
    if (reason == DLL_PROCESS_ATTACH) {
        handheld::ownModule = module;
        // The program links this library, so it is attached on the thread that starts the process.
        handheld::mainThreadId = GetCurrentThreadId();
    }
    return TRUE;
}
