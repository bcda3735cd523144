#include "fakes/driver_fake.h"

#include <cstdio>
#include <cstring>

#include "device/control_codes.h"

namespace {

DriverFake g_fake;
int g_handleTarget;

template <typename... Arguments>
void Record(const char* format, Arguments... arguments) {
    char line[80];
    std::snprintf(line, sizeof(line), format, arguments...);
    g_fake.calls.push_back(line);
}

}  // namespace

DriverFake& ResetDriverFake() {
    g_fake = {};
    return g_fake;
}

void RecordCall(const std::string& call) { g_fake.calls.push_back(call); }

DriverHandle OpenDriver(DriverShare share) {
    Record("open share=%u", static_cast<unsigned>(share));
    return g_fake.cardPresent ? &g_handleTarget : kNoDriver;
}

void CloseDriver(DriverHandle) { Record("close%s", ""); }

bool ControlDriver(DriverHandle, uint32_t code, const void* input, uint32_t inputSize, void* output,
                   uint32_t& returned) {
    Record("control %08X in=%u", static_cast<unsigned>(code), static_cast<unsigned>(inputSize));
    g_fake.lastInput = input;
    const bool inputIsBuffer = code != IOCTL_CAMERA_START_PREVIEW && input != nullptr;
    const auto* bytes = static_cast<const uint8_t*>(input);
    g_fake.lastInputBytes.clear();
    if (inputIsBuffer) g_fake.lastInputBytes.assign(bytes, bytes + inputSize);
    returned = 0;
    if (!g_fake.acceptControls) return false;
    if (code == IOCTL_CAMERA_READ_FRAME) {
        if (!g_fake.frame.empty()) std::memcpy(output, g_fake.frame.data(), g_fake.frame.size());
        returned = g_fake.reportedLength != UINT32_MAX ? g_fake.reportedLength : static_cast<uint32_t>(g_fake.frame.size());
    }
    return true;
}

void PauseMilliseconds(uint32_t milliseconds) { Record("pause %u", static_cast<unsigned>(milliseconds)); }

void PostClose(void*) { Record("post close%s", ""); }
