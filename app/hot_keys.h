// The handheld's four application keys, taken from the shell while the program runs.
#pragma once
#include "platform/ce.h"

// The core library's "UnregisterFunc1": takes a key from whoever holds it.
class CHotKeys {
  public:
    CHotKeys() = default;
    CHotKeys(const CHotKeys&) = delete;
    CHotKeys& operator=(const CHotKeys&) = delete;

    // Loads the core library and looks the function up; keeps the library.
    void LoadCoreLibrary();
    void ReleaseCoreLibrary();

    void Register(HWND screen) const;
    void Unregister(HWND screen) const;

  private:
    using ReleaseFunction = BOOL(WINAPI*)(UINT modifiers, UINT key);

    HMODULE m_library = nullptr;
    ReleaseFunction m_release = nullptr;
};
