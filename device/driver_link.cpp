#include "device/driver_link.h"

#include "platform/ce.h"

DriverHandle OpenDriver(DriverShare share) {
    return CreateFileW(L"SIO1:", GENERIC_READ | GENERIC_WRITE, static_cast<DWORD>(share), nullptr, OPEN_EXISTING, 0,
                       nullptr);
}

void CloseDriver(DriverHandle handle) { CloseHandle(handle); }

bool ControlDriver(DriverHandle handle, uint32_t code, const void* input, uint32_t inputSize, void* output,
                   uint32_t& returned) {
    DWORD count = 0;
    // The output size is always 0, although the driver writes into the buffer: it knows how much belongs there,
    // and other sizes would be another request to it.  (CameraScreen.FrameRequestsGiveNoOutputSize)
    const bool accepted = DeviceIoControl(handle, code, const_cast<void*>(input), inputSize, output, 0, &count, nullptr);
    returned = count;
    return accepted;
}

void PauseMilliseconds(uint32_t milliseconds) { Sleep(milliseconds); }

void PostClose(void* window) { PostMessageW(static_cast<HWND>(window), WM_CLOSE, 0, 0); }
