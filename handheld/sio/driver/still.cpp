#include "handheld/sio/driver/still.h"

#include <windows.h>

#include "handheld/common/store_path.h"
#include "handheld/common/store_space.h"
#include "handheld/sio/card/modes.h"
#include "handheld/sio/card/still_request.h"
#include "handheld/sio/driver/shutter_sound.h"
#include "handheld/sio/driver/text.h"
#include "handheld/sio/encoder/still_encoder.h"

namespace sio {
namespace {

bool fail(DWORD error) {
    SetLastError(error);
    return false;
}

bool writeAll(const std::wstring& path, const std::vector<uint8_t>& data) {
    HANDLE file =
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return false;
    DWORD written = 0;
    const BOOL succeeded = WriteFile(file, data.data(), static_cast<DWORD>(data.size()), &written, nullptr);
    CloseHandle(file);
    return succeeded && written == data.size();
}

bool isWriteProtected(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && attributes & FILE_ATTRIBUTE_READONLY;
}

// Whole or not at all: the name appears only once everything is written.  Asked first, since not every
// desktop's renaming cares for a file's protection.
bool writeFile(const std::wstring& path, const std::vector<uint8_t>& data) {
    if (isWriteProtected(path)) return fail(ERROR_ACCESS_DENIED);
    const std::wstring unfinished = path + L".part";
    if (writeAll(unfinished, data) &&
        MoveFileExW(unfinished.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING)) {
        return true;
    }
    const DWORD error = GetLastError();
    DeleteFileW(unfinished.c_str());
    return fail(error);
}

}  // namespace

bool takeStill(CCamera& camera, const StillRequest& request) {
    const StillMode* mode = findStillMode(request.mode);
    if (!mode || !hasUsablePath(request)) return fail(ERROR_INVALID_PARAMETER);
    const auto path = handheld::StoreToDesktop(toWide(stillPath(request)));
    if (!path) return fail(ERROR_PATH_NOT_FOUND);

    Picture picture;
    camera.take(mode->view, picture);
    if (request.soundModule != 0) playShutterSound(request.soundModule);
    const uint32_t quality = request.quality < 3 ? request.quality : 0;
    const std::vector<uint8_t> file =
        encodeStill(picture, quality, size_t{mode->kilobytes} * 1024 << quality);
    const auto used = handheld::MeasureStoredBytes();
    if (!used) return false;
    if (*used + file.size() > handheld::StoreTotalBytes()) return fail(ERROR_DISK_FULL);
    return writeFile(*path, file);
}

}  // namespace sio
