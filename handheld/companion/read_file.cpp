#include "handheld/companion/read_file.h"

#include <windows.h>

namespace handheld {

ReadResult ReadWholeFile(const std::wstring& path, size_t most, std::vector<uint8_t>& bytes) {
    HANDLE file =
        CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                    nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) return ReadResult::missing;
    LARGE_INTEGER size;
    ReadResult result = ReadResult::missing;
    if (GetFileSizeEx(file, &size)) {
        result = ReadResult::tooLarge;
        if (static_cast<uint64_t>(size.QuadPart) <= most) {
            bytes.resize(static_cast<size_t>(size.QuadPart));
            DWORD read = 0;
            const bool ok = ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr);
            bytes.resize(ok ? read : 0);
            result = ok ? ReadResult::ok : ReadResult::missing;
        }
    }
    CloseHandle(file);
    return result;
}

}  // namespace handheld
