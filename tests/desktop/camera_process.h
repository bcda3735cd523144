// One run of the real program in a store and with a profile of its own, worked and watched from outside.
#pragma once
#include <windows.h>

#include <filesystem>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "support/process_family.h"

// Waits for a condition; false when it has not come true within the limit.
bool WaitFor(const std::function<bool()>& condition, DWORD milliseconds = 20000);

struct CameraOptions {
    std::vector<std::pair<std::wstring, std::wstring>> variables;  // beside those that every run gets
    std::vector<std::pair<std::wstring, DWORD>> settings;          // profile values before the start
    std::string card;                                              // first content of the control file
    std::filesystem::path program;                                 // another copy of the program than the build's
    std::vector<std::pair<std::wstring, std::wstring>> texts = {};  // profile texts before the start
};

class CameraProcess {
  public:
    explicit CameraProcess(const CameraOptions& options = {});
    ~CameraProcess();  // ends the program and all that it started, if they still run, and removes the store
    CameraProcess(const CameraProcess&) = delete;
    CameraProcess& operator=(const CameraProcess&) = delete;

    // The camera screen; waits for it to show live frames first.  Null when it does not come.
    HWND Screen();
    HWND LiveView() const;
    // The camera screen of whatever process, once there is one: a viewer may have started it.
    static HWND ScreenOfAny();

    bool IsRunning() const;
    bool WaitForEnd(DWORD milliseconds = 20000) const;
    // Whether it has ended with code 0.
    bool EndedInOrder() const;
    // Gives the Exit command and waits; whether that was an end in order.
    bool ExitsInOrder();
    DWORD Id() const { return m_process.dwProcessId; }
    HANDLE Handle() const { return m_process.hProcess; }
    // The program and the viewers that it started.
    const ProcessFamily& Family() const { return m_family; }

    void Command(UINT id) { PostMessageW(m_screen, WM_COMMAND, id, 0); }
    void ReleaseKey(UINT key) { PostMessageW(m_screen, WM_KEYUP, key, 0); }

    // Stops the program's main thread, so that several messages are waiting when it goes on.
    void Freeze() { SuspendThread(m_process.hThread); }
    void Thaw() { ResumeThread(m_process.hThread); }

    // The message box that is open, or null; its text, and a press of one of its buttons.
    HWND MessageBox() const;
    static std::wstring MessageText(HWND box);
    static void Press(HWND box, int button) { PostMessageW(box, WM_COMMAND, button, 0); }

    // The dialog that covers the screen, or null.
    HWND Dialog() const;

    // Control file of the card: one word a line.
    void SetCard(const std::string& words) const;

    // The card's log so far.  `Calls` leaves out the frame requests.
    std::vector<std::string> Log() const;
    std::filesystem::path LogFile() const { return m_folder / "log"; }
    std::vector<std::string> Calls() const;
    // The calls behind the first `before` ones, once there are `count` of them or the limit is reached.
    std::vector<std::string> CallsSince(size_t before, size_t count) const;
    // How many of them begin with a text.
    size_t CountCalls(const std::string& beginning) const;
    size_t Frames() const;
    bool WaitForFrames(size_t more) const;

    const std::filesystem::path& Store() const { return m_store; }
    static std::filesystem::path BuildFolder();

  private:
    std::filesystem::path m_folder, m_store;
    ProcessFamily m_family;
    PROCESS_INFORMATION m_process = {};
    HWND m_screen = nullptr;
};

// A copy of the program's folder, to be run with some of its files missing or exchanged; removed in the end.
class ProgramCopy {
  public:
    explicit ProgramCopy(const std::vector<std::string>& without = {});
    ~ProgramCopy();
    ProgramCopy(const ProgramCopy&) = delete;
    ProgramCopy& operator=(const ProgramCopy&) = delete;

    const std::filesystem::path& Folder() const { return m_folder; }
    std::filesystem::path Program() const { return m_folder / "zelcamera.exe"; }

  private:
    const std::filesystem::path m_folder;
};

// Values of the profile's section.
DWORD ProfileValue(const wchar_t* name, DWORD otherwise);
