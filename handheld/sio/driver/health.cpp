#include "handheld/sio/driver/health.h"

namespace sio {
namespace {

// Far more than all words together; the rest of a longer file is not read.
constexpr DWORD kMostBytes = 4096;

}  // namespace

CHealth::Stamp CHealth::stampNow() const {
    WIN32_FILE_ATTRIBUTE_DATA data;
    if (!GetFileAttributesExW(m_path.c_str(), GetFileExInfoStandard, &data)) return {};
    return {data.ftLastWriteTime, uint64_t{data.nFileSizeHigh} << 32 | data.nFileSizeLow, true};
}

std::string CHealth::readFile() const {
    HANDLE file =
        CreateFileW(m_path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                    nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return {};
    std::string text(kMostBytes, '\0');
    DWORD length = 0;
    ReadFile(file, text.data(), kMostBytes, &length, nullptr);
    CloseHandle(file);
    text.resize(length);
    return text;
}

void CHealth::change(Faults faults) {
    for (const std::string& event : faultEvents(m_faults, faults)) m_log.write(event);
    m_faults = faults;
}

void CHealth::followFile() {
    if (!isWatching()) return;
    const Stamp stamp = stampNow();
    if (stamp == m_stamp) return;
    m_stamp = stamp;
    const ControlFile file = parseControlFile(readFile());
    for (const std::string& word : file.unknownWords) m_log.write("card does not know the word " + word);
    change(file.faults);
}

Faults CHealth::check() {
    std::lock_guard guard(m_lock);
    followFile();
    return m_faults;
}

void CHealth::set(Fault fault, bool present) {
    std::lock_guard guard(m_lock);
    followFile();
    change(present ? m_faults | fault : m_faults & ~fault);
}

}  // namespace sio
