#include "app/hot_keys.h"

#include "app/hardware_keys.h"

void CHotKeys::LoadCoreLibrary() {
    m_library = LoadLibraryW(L"coredll.dll");
    if (m_library == nullptr) return;
    m_release = reinterpret_cast<ReleaseFunction>(reinterpret_cast<void*>(GetProcAddressW(m_library, L"UnregisterFunc1")));
}

void CHotKeys::ReleaseCoreLibrary() {
    if (m_library != nullptr) FreeLibrary(m_library);
    m_library = nullptr;
    m_release = nullptr;
}

void CHotKeys::Register(HWND screen) const {
    for (UINT key = kFirstHotKey; key <= kLastHotKey; ++key) {
        if (m_release != nullptr) m_release(MOD_WIN, key);
        RegisterHotKey(screen, static_cast<int>(key), MOD_WIN, key);
    }
}

void CHotKeys::Unregister(HWND screen) const {
    for (UINT key = kFirstHotKey; key <= kLastHotKey; ++key) UnregisterHotKey(screen, static_cast<int>(key));
}
