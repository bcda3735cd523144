#include "capture/file_names.h"

namespace {

std::wstring FourDigits(int32_t number) {
    const bool negative = number < 0;
    std::wstring digits;
    for (uint32_t rest = negative ? 0u - static_cast<uint32_t>(number) : static_cast<uint32_t>(number);
         rest != 0 || digits.size() < 4; rest /= 10)
        digits.insert(digits.begin(), static_cast<wchar_t>(L'0' + rest % 10));
    return negative ? L"-" + digits : digits;
}

}  // namespace

std::wstring PicturePath(const CameraSettings& settings, int32_t number) {
    return settings.saveFolder + settings.filenamePrefix + FourDigits(number) + L".jpg";
}

std::wstring MoviePath(const CameraSettings& settings, int32_t number) {
    return settings.saveFolder + L"m" + FourDigits(number) + L".avi";
}
