#include "handheld/doubles/card.h"

#include <windows.h>

#include <cstring>
#include <string>

#include "device/control_codes.h"
#include "fakes/driver_fake.h"
#include "handheld/doubles/object_store.h"

namespace {

DriverFake g_driver;
CardDouble g_card;
const HANDLE kCardHandle = reinterpret_cast<HANDLE>(0xCA4D);

std::string HexOf(uint32_t value) {
    std::string text(8, '0');
    for (int i = 7; i >= 0; --i, value >>= 4) text[static_cast<size_t>(i)] = "0123456789ABCDEF"[value & 15];
    return text;
}

void TakeStill() {
    if (g_card.stillRequest.size() != sizeof(StillRequest) || g_card.picture.empty()) return;
    wchar_t path[kStillPathCharacters];
    std::memcpy(path, g_card.stillRequest.data() + offsetof(StillRequest, path), sizeof path);
    StoredFiles().push_back({path, g_card.picture});
}

void NoteInput(DWORD code, const void* input, DWORD size) {
    g_driver.lastInput = input;
    g_driver.lastInputBytes.clear();
    // The size of a preview request is its mode.
    if (code == IOCTL_CAMERA_START_PREVIEW || input == nullptr) return;
    const auto* const bytes = static_cast<const uint8_t*>(input);
    g_driver.lastInputBytes.assign(bytes, bytes + size);
}

}  // namespace

DriverFake& ResetDriverFake() {
    return g_driver = {};
}

void RecordCall(const std::string& call) {
    g_driver.calls.push_back(call);
}

CardDouble& TheCard() {
    return g_card;
}

extern "C" {

HANDLE WINAPI CreateFileW(LPCWSTR name, DWORD access, DWORD share, LPSECURITY_ATTRIBUTES, DWORD disposition,
                          DWORD, HANDLE) {
    const bool readsAndWrites = access == (GENERIC_READ | GENERIC_WRITE) && disposition == OPEN_EXISTING;
    RecordCall(std::wstring(name) == L"SIO1:" && readsAndWrites ? "open share=" + std::to_string(share)
                                                                : "open of something else");
    return g_driver.cardPresent ? kCardHandle : INVALID_HANDLE_VALUE;
}

BOOL WINAPI CloseHandle(HANDLE handle) {
    if (handle == kCardHandle) RecordCall("close");
    return TRUE;
}

BOOL WINAPI DeviceIoControl(HANDLE, DWORD code, LPVOID input, DWORD inputSize, LPVOID output,
                            DWORD outputSize, LPDWORD returned, LPOVERLAPPED) {
    RecordCall("control " + HexOf(code) + " in=" + std::to_string(inputSize) +
               (outputSize != 0 ? " out=" + std::to_string(outputSize) : ""));
    NoteInput(code, input, inputSize);
    *returned = 0;
    if (!g_driver.acceptControls) return FALSE;
    if (code == IOCTL_CAMERA_CAPTURE_STILL) {
        g_card.stillRequest = g_driver.lastInputBytes;
        TakeStill();
    }
    if (code == IOCTL_CAMERA_READ_FRAME) {
        if (!g_driver.frame.empty()) std::memcpy(output, g_driver.frame.data(), g_driver.frame.size());
        const auto bytes = static_cast<uint32_t>(g_driver.frame.size());
        *returned = g_driver.reportedLength != UINT32_MAX ? g_driver.reportedLength : bytes;
    }
    return TRUE;
}
}
