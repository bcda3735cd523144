#include "handheld/sio/card/still_request.h"

#include <cstring>

namespace sio {

bool readStillRequest(const uint8_t* data, uint32_t size, StillRequest& request) {
    if (!data || size < sizeof request) return false;
    std::memcpy(&request, data, sizeof request);
    return true;
}

std::u16string stillPath(const StillRequest& request) {
    // The record is packed, so its path may lie at an odd address.
    std::u16string path(kStillPathCharacters, u'\0');
    std::memcpy(path.data(), reinterpret_cast<const char*>(&request) + offsetof(StillRequest, path),
                kStillPathCharacters * sizeof(char16_t));
    const size_t end = path.find(u'\0');
    if (end != std::u16string::npos) path.resize(end);
    return path;
}

bool hasUsablePath(const StillRequest& request) {
    const size_t length = stillPath(request).size();
    return length > 0 && length < kStillPathCharacters;
}

}  // namespace sio
