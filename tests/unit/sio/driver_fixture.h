// sio.dll as the core library drives it, with a window that receives its messages and a store of its own.
#pragma once
#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <vector>

#include "device/control_codes.h"

class DriverTest : public ::testing::Test {
  protected:
    // The most that one frame may write; a guard behind it shows whether that was kept.
    struct Frame {
        bool succeeded = false;
        DWORD returned = 0xDEAD;
        std::vector<uint8_t> bytes;
        bool guardIntact = true;
    };

    void SetUp() override;
    void TearDown() override;

    // Starts the driver with what the environment says now.
    void start();
    DWORD_PTR open() { return m_open(m_device, GENERIC_READ | GENERIC_WRITE, 3); }

    bool control(DWORD code, const void* in = nullptr, DWORD inSize = 0, void* out = nullptr,
                 DWORD* returned = nullptr);
    bool startPreview(DWORD mode) { return control(IOCTL_CAMERA_START_PREVIEW, &m_window, mode); }
    Frame readFrame();
    // Starts a mode and reads its first frame.
    Frame firstFrame(DWORD mode);
    // Announcements that arrive within a time, taken out of the queue; stops early at `enough`.
    int announcements(DWORD milliseconds, int enough = 1000);
    bool capture(uint8_t mode, const std::wstring& path, uint8_t quality = 1, uint32_t soundModule = 0);

    void setEnvironment(const wchar_t* name, const std::wstring& value);
    void writeCard(const std::string& words) { writeFile(m_root + L"\\card.txt", words); }
    static void writeFile(const std::wstring& path, const std::string& text);
    static std::string readFile(const std::wstring& path);
    static bool exists(const std::wstring& path);
    std::vector<std::string> logLines() const;

    std::wstring m_root;   // private folder of the test
    std::wstring m_store;  // object store in it
    HWND m_window = nullptr;
    DWORD_PTR m_file = 0;  // the open that control() uses

    DWORD_PTR(WINAPI* m_init)(DWORD_PTR) = nullptr;
    BOOL(WINAPI* m_deinit)(DWORD_PTR) = nullptr;
    DWORD_PTR(WINAPI* m_open)(DWORD_PTR, DWORD, DWORD) = nullptr;
    BOOL(WINAPI* m_close)(DWORD_PTR) = nullptr;
    BOOL(WINAPI* m_control)(DWORD_PTR, DWORD, BYTE*, DWORD, BYTE*, DWORD, DWORD*) = nullptr;
    DWORD_PTR m_device = 0;

  private:
    HMODULE m_library = nullptr;
    std::vector<const wchar_t*> m_variables;
};
