// CApplication: the base of the program's one application object.
#pragma once
#include "framework/profile.h"
#include "framework/window.h"

#include <string>

class CApplication {
  public:
    CApplication() = default;
    CApplication(const CApplication&) = delete;
    CApplication& operator=(const CApplication&) = delete;
    virtual ~CApplication() = default;

    const std::wstring& CommandLine() const { return m_commandLine; }

    // The window that stands for the program, or null.  Not owned.
    CWindow* MainWindow() const { return m_mainWindow; }
    void SetMainWindow(CWindow* window) { m_mainWindow = window; }

    // Under which key the profile lies; see profile.h.
    void SetRegistryKey(const wchar_t* key) { m_profile.key = key; }
    Profile& AppProfile() { return m_profile; }

  protected:
    // Starts the program.  True: Run follows.  False: the program has done its work and ends with result 0.
    virtual bool InitInstance() = 0;

    // Handles messages until WM_QUIT; its result is the program's.
    virtual int Run();

  private:
    friend int RunApplication(CApplication& application, const wchar_t* commandLine);

    std::wstring m_commandLine;
    CWindow* m_mainWindow = nullptr;
    Profile m_profile;
};

// The program's whole life, for wWinMain; the result is the process's.
int RunApplication(CApplication& application, const wchar_t* commandLine);
