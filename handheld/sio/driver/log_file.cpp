#include "handheld/sio/driver/log_file.h"

namespace sio {

CLogFile::CLogFile(const std::wstring& path) {
    if (path.empty()) return;
    m_file =
        CreateFileW(path.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                    nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
}

CLogFile::~CLogFile() {
    if (m_file != INVALID_HANDLE_VALUE) CloseHandle(m_file);
}

void CLogFile::write(const std::string& line) {
    if (m_file == INVALID_HANDLE_VALUE) return;
    const DWORD error = GetLastError();
    const std::string whole = line + '\n';
    DWORD written;
    WriteFile(m_file, whole.data(), static_cast<DWORD>(whole.size()), &written, nullptr);
    SetLastError(error);
}

}  // namespace sio
