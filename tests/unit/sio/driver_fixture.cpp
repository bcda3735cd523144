#include "driver_fixture.h"

#include <cstring>

namespace {

std::wstring besideTest(const wchar_t* name) {
    wchar_t path[MAX_PATH];
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    std::wstring folder = path;
    folder.resize(folder.find_last_of(L'\\'));
    return folder + L"\\..\\" + name;
}

void removeTree(const std::wstring& folder) {
    WIN32_FIND_DATAW entry;
    HANDLE search = FindFirstFileW((folder + L"\\*").c_str(), &entry);
    if (search == INVALID_HANDLE_VALUE) return;
    do {
        const std::wstring name = entry.cFileName;
        if (name == L"." || name == L"..") continue;
        const std::wstring path = folder + L'\\' + name;
        if (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) {
            removeTree(path);
        } else {
            DeleteFileW(path.c_str());
        }
    } while (FindNextFileW(search, &entry));
    FindClose(search);
    RemoveDirectoryW(folder.c_str());
}

template <class Entry>
void bind(Entry& entry, HMODULE library, const char* name) {
    entry = reinterpret_cast<Entry>(reinterpret_cast<void*>(GetProcAddress(library, name)));
    ASSERT_NE(nullptr, entry) << name;
}

}  // namespace

void DriverTest::SetUp() {
    wchar_t temporary[MAX_PATH];
    GetTempPathW(MAX_PATH, temporary);
    m_root = std::wstring(temporary) + L"zel_card_test_" + std::to_wstring(GetCurrentProcessId());
    removeTree(m_root);
    m_store = m_root + L"\\store";
    CreateDirectoryW(m_root.c_str(), nullptr);
    CreateDirectoryW(m_store.c_str(), nullptr);
    CreateDirectoryW((m_store + L"\\My Documents").c_str(), nullptr);
    setEnvironment(L"HANDHELD_ROOT", m_store);
    setEnvironment(L"HANDHELD_LOG", m_root + L"\\log.txt");
    setEnvironment(L"HANDHELD_CARD", m_root + L"\\card.txt");
    for (const wchar_t* name : {L"HANDHELD_CAMERA", L"HANDHELD_FPS", L"HANDHELD_STORE_KB"}) {
        setEnvironment(name, L"");
    }
    m_window = CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    ASSERT_NE(nullptr, m_window);
    m_library = LoadLibraryW(besideTest(L"sio.dll").c_str());
    ASSERT_NE(nullptr, m_library);
    bind(m_init, m_library, "SIO_Init");
    bind(m_deinit, m_library, "SIO_Deinit");
    bind(m_open, m_library, "SIO_Open");
    bind(m_close, m_library, "SIO_Close");
    bind(m_control, m_library, "SIO_IOControl");
}

void DriverTest::TearDown() {
    if (m_device) m_deinit(m_device);
    FreeLibrary(m_library);
    DestroyWindow(m_window);
    for (const wchar_t* name : m_variables) SetEnvironmentVariableW(name, nullptr);
    removeTree(m_root);
}

void DriverTest::start() {
    m_device = m_init(0);
    ASSERT_NE(0u, m_device);
    m_file = open();
    ASSERT_NE(0u, m_file);
}

bool DriverTest::control(DWORD code, const void* in, DWORD inSize, void* out, DWORD* returned) {
    return m_control(m_file, code, static_cast<BYTE*>(const_cast<void*>(in)), inSize, static_cast<BYTE*>(out),
                     0, returned);
}

DriverTest::Frame DriverTest::readFrame() {
    constexpr uint8_t guard = 0xA5;
    Frame frame;
    frame.bytes.assign(kMaxScanBytes + 64, guard);
    const uint32_t feedback = 0;
    frame.succeeded = control(IOCTL_CAMERA_READ_FRAME, &feedback, 4, frame.bytes.data(), &frame.returned);
    for (size_t i = kMaxScanBytes; i < frame.bytes.size(); ++i) frame.guardIntact &= frame.bytes[i] == guard;
    frame.bytes.resize(frame.returned < kMaxScanBytes ? frame.returned : kMaxScanBytes);
    return frame;
}

DriverTest::Frame DriverTest::firstFrame(DWORD mode) {
    EXPECT_TRUE(startPreview(mode));
    EXPECT_EQ(1, announcements(5000, 1));
    return readFrame();
}

int DriverTest::announcements(DWORD milliseconds, int enough) {
    const DWORD start = GetTickCount();
    int count = 0;
    while (count < enough) {
        const DWORD passed = GetTickCount() - start;
        if (passed >= milliseconds) break;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, milliseconds - passed, QS_ALLINPUT);
        MSG message;
        while (count < enough && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            count += message.hwnd == m_window && message.message == kMsgFrameReady;
        }
    }
    return count;
}

bool DriverTest::capture(uint8_t mode, const std::wstring& path, uint8_t quality, uint32_t soundModule) {
    StillRequest request{};
    request.mode = mode;
    request.quality = quality;
    request.soundModule = soundModule;
    std::memcpy(reinterpret_cast<char*>(&request) + offsetof(StillRequest, path), path.c_str(),
                (path.size() + 1) * sizeof(wchar_t));
    return control(IOCTL_CAMERA_CAPTURE_STILL, &request, sizeof request);
}

void DriverTest::setEnvironment(const wchar_t* name, const std::wstring& value) {
    SetEnvironmentVariableW(name, value.empty() ? nullptr : value.c_str());
    m_variables.push_back(name);
}

void DriverTest::writeFile(const std::wstring& path, const std::string& text) {
    HANDLE file =
        CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_ALWAYS, 0, nullptr);
    ASSERT_NE(INVALID_HANDLE_VALUE, file);
    DWORD written;
    WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
    CloseHandle(file);
}

std::string DriverTest::readFile(const std::wstring& path) {
    std::string text;
    HANDLE file = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                              OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) return text;
    text.resize(GetFileSize(file, nullptr));
    DWORD length;
    ReadFile(file, text.data(), static_cast<DWORD>(text.size()), &length, nullptr);
    CloseHandle(file);
    return text;
}

bool DriverTest::exists(const std::wstring& path) {
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

std::vector<std::string> DriverTest::logLines() const {
    std::vector<std::string> lines(1);
    for (char c : readFile(m_root + L"\\log.txt")) {
        if (c == '\n') {
            lines.emplace_back();
        } else {
            lines.back() += c;
        }
    }
    lines.pop_back();
    return lines;
}
