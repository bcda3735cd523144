// Wide text between the desktop's type and the card's.
#pragma once
#include <string>

#include "handheld/sio/card/control_log.h"

namespace sio {

static_assert(sizeof(wchar_t) == sizeof(char16_t));

inline std::string toUtf8(const std::wstring& text) {
    return toUtf8(std::u16string(text.begin(), text.end()));
}

inline std::wstring toWide(const std::u16string& text) {
    return std::wstring(text.begin(), text.end());
}

}  // namespace sio
