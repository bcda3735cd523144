#include "desktop/camera_process.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>

namespace {

constexpr wchar_t kProfile[] = L"Software\\Zel";
constexpr wchar_t kSection[] = L"Software\\Zel\\Setting";
constexpr char kReadFrame[] = "control 0x80000013";

void WriteProfile(const CameraOptions& options) {
    RegDeleteTreeW(HKEY_CURRENT_USER, kProfile);
    for (const auto& [name, value] : options.settings)
        RegSetKeyValueW(HKEY_CURRENT_USER, kSection, name.c_str(), REG_DWORD, &value, sizeof(value));
    for (const auto& [name, text] : options.texts)
        RegSetKeyValueW(HKEY_CURRENT_USER, kSection, name.c_str(), REG_SZ, text.c_str(),
                        static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
}

// The block that CreateProcess wants: this process's variables less its HANDHELD_ ones, and the run's own, which
// replace those of the same name.
std::wstring EnvironmentBlock(const std::vector<std::pair<std::wstring, std::wstring>>& variables) {
    std::map<std::wstring, std::wstring> own;
    for (const auto& [name, value] : variables) own[name] = value;
    std::wstring block;
    wchar_t* const inherited = GetEnvironmentStringsW();
    for (const wchar_t* item = inherited; *item != 0; item += wcslen(item) + 1) {
        const std::wstring name(item, wcscspn(item, L"="));
        if (name.compare(0, 9, L"HANDHELD_") != 0 && own.count(name) == 0) block.append(item).push_back(0);
    }
    FreeEnvironmentStringsW(inherited);
    for (const auto& [name, value] : own) block.append(name).append(L"=").append(value).push_back(0);
    block.push_back(0);
    return block;
}

struct Search {
    DWORD process;  // 0: any
    HWND screen, found;
};

bool BelongsTo(HWND window, DWORD process) {
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    return owner == process;
}

BOOL CALLBACK FindScreen(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<Search*>(parameter);
    if ((search.process != 0 && !BelongsTo(window, search.process)) || !IsWindowVisible(window)) return TRUE;
    if (FindWindowExW(window, nullptr, L"ZelCameraVideoWindow", nullptr) == nullptr) return TRUE;
    search.found = window;
    return FALSE;
}

BOOL CALLBACK FindMessageBox(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<Search*>(parameter);
    if (!BelongsTo(window, search.process) || !IsWindowVisible(window)) return TRUE;
    if (GetDlgItem(window, 0xFFFF) == nullptr) return TRUE;
    search.found = window;
    return FALSE;
}

BOOL CALLBACK FindDialog(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<Search*>(parameter);
    if (GetWindow(window, GW_OWNER) != search.screen || !IsWindowVisible(window)) return TRUE;
    search.found = window;
    return FALSE;
}

}  // namespace

bool WaitFor(const std::function<bool()>& condition, DWORD milliseconds) {
    const DWORD start = GetTickCount();
    while (!condition()) {
        if (GetTickCount() - start > milliseconds) return false;
        Sleep(10);
    }
    return true;
}

ProgramCopy::ProgramCopy(const std::vector<std::string>& without)
    : m_folder(std::filesystem::temp_directory_path() / ("zel-copy-" + std::to_string(GetCurrentProcessId()))) {
    std::filesystem::create_directories(m_folder);
    for (const char* name : {"zelcamera.exe", "coredll.dll", "aygshell.dll", "commctrl.dll", "sio.dll",
                             "Localization.dll", "korvoimgview.exe"})
        if (std::find(without.begin(), without.end(), name) == without.end())
            std::filesystem::copy_file(CameraProcess::BuildFolder() / name, m_folder / name,
                                       std::filesystem::copy_options::overwrite_existing);
}

ProgramCopy::~ProgramCopy() {
    std::error_code ignored;
    std::filesystem::remove_all(m_folder, ignored);
}

std::filesystem::path CameraProcess::BuildFolder() {
    wchar_t path[MAX_PATH];
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return std::filesystem::path(path).parent_path().parent_path();
}

CameraProcess::CameraProcess(const CameraOptions& options) {
    static int count = 0;
    m_folder = std::filesystem::temp_directory_path() /
               ("zel-camera-" + std::to_string(GetCurrentProcessId()) + "-" + std::to_string(++count));
    m_store = m_folder / "store";
    std::filesystem::create_directories(m_folder);
    SetCard(options.card);
    WriteProfile(options);
    std::vector<std::pair<std::wstring, std::wstring>> variables = {{L"HANDHELD_ROOT", m_store.wstring()},
                                                                    {L"HANDHELD_LCID", L"1033"},
                                                                    {L"HANDHELD_KEYPAD", L"off"},
                                                                    {L"HANDHELD_LOG", LogFile().wstring()},
                                                                    {L"HANDHELD_CARD", (m_folder / "card").wstring()}};
    variables.insert(variables.end(), options.variables.begin(), options.variables.end());
    std::wstring environment = EnvironmentBlock(variables);
    const std::filesystem::path program =
        options.program.empty() ? BuildFolder() / "zelcamera.exe" : options.program;
    m_family.Start(program.c_str(), nullptr, environment.data(), m_process);
}

CameraProcess::~CameraProcess() {
    EXPECT_TRUE(m_family.End());
    if (m_process.hProcess != nullptr) {
        CloseHandle(m_process.hThread);
        CloseHandle(m_process.hProcess);
    }
    std::error_code ignored;
    std::filesystem::remove_all(m_folder, ignored);
}

HWND CameraProcess::Screen() {
    Search search = {m_process.dwProcessId, nullptr, nullptr};
    WaitFor([&] {
        EnumWindows(FindScreen, reinterpret_cast<LPARAM>(&search));
        return search.found != nullptr || !IsRunning();
    });
    return m_screen = search.found;
}

HWND CameraProcess::ScreenOfAny() {
    Search search = {};
    WaitFor([&] {
        EnumWindows(FindScreen, reinterpret_cast<LPARAM>(&search));
        return search.found != nullptr;
    });
    return search.found;
}

HWND CameraProcess::LiveView() const { return FindWindowExW(m_screen, nullptr, L"ZelCameraVideoWindow", nullptr); }

bool CameraProcess::IsRunning() const {
    return m_process.hProcess != nullptr && WaitForSingleObject(m_process.hProcess, 0) == WAIT_TIMEOUT;
}

bool CameraProcess::WaitForEnd(DWORD milliseconds) const {
    return WaitForSingleObject(m_process.hProcess, milliseconds) == WAIT_OBJECT_0;
}

bool CameraProcess::EndedInOrder() const {
    DWORD code = 1;
    return GetExitCodeProcess(m_process.hProcess, &code) && code == 0;
}

bool CameraProcess::ExitsInOrder() {
    constexpr UINT kExit = 32827;
    Command(kExit);
    return WaitForEnd() && EndedInOrder();
}

HWND CameraProcess::MessageBox() const {
    Search search = {m_process.dwProcessId, m_screen, nullptr};
    EnumWindows(FindMessageBox, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

HWND CameraProcess::Dialog() const {
    Search search = {m_process.dwProcessId, m_screen, nullptr};
    EnumWindows(FindDialog, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

std::wstring CameraProcess::MessageText(HWND box) {
    wchar_t text[512] = {};
    SendMessageW(GetDlgItem(box, 0xFFFF), WM_GETTEXT, std::size(text), reinterpret_cast<LPARAM>(text));
    return text;
}

void CameraProcess::SetCard(const std::string& words) const {
    std::ofstream(m_folder / "card", std::ios::trunc) << words << "\n";
}

std::vector<std::string> CameraProcess::Log() const {
    std::vector<std::string> lines;
    std::ifstream log(LogFile());
    for (std::string line; std::getline(log, line);) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        lines.push_back(line);
    }
    return lines;
}

std::vector<std::string> CameraProcess::Calls() const {
    std::vector<std::string> lines = Log();
    lines.erase(std::remove_if(lines.begin(), lines.end(),
                               [](const std::string& line) { return line.compare(0, std::size(kReadFrame) - 1, kReadFrame) == 0; }),
                lines.end());
    return lines;
}

std::vector<std::string> CameraProcess::CallsSince(size_t before, size_t count) const {
    WaitFor([&] { return Calls().size() >= before + count; });
    const std::vector<std::string> all = Calls();
    return {all.begin() + static_cast<ptrdiff_t>(std::min(before, all.size())), all.end()};
}

size_t CameraProcess::CountCalls(const std::string& beginning) const {
    const std::vector<std::string> calls = Calls();
    return static_cast<size_t>(std::count_if(calls.begin(), calls.end(), [&](const std::string& line) {
        return line.compare(0, beginning.size(), beginning) == 0;
    }));
}

size_t CameraProcess::Frames() const { return Log().size() - Calls().size(); }

bool CameraProcess::WaitForFrames(size_t more) const {
    const size_t goal = Frames() + more;
    return WaitFor([&] { return Frames() >= goal || !IsRunning(); }) && IsRunning();
}

DWORD ProfileValue(const wchar_t* name, DWORD otherwise) {
    DWORD value = 0, size = sizeof(value);
    return RegGetValueW(HKEY_CURRENT_USER, kSection, name, RRF_RT_REG_DWORD, nullptr, &value, &size) == ERROR_SUCCESS
               ? value
               : otherwise;
}
