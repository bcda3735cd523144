// Stream drivers: "SIO1:" is a device of the driver library sio.dll beside the program.
#pragma once
#include <windows.h>

#include <memory>

namespace handheld {

// Three letters, a digit and a colon, in either case.
bool IsDeviceName(const wchar_t* name);

// A new handle of the device, or INVALID_HANDLE_VALUE with the last error set: ERROR_DEV_NOT_EXIST without a
// working driver, otherwise the driver's own reason to refuse.
HANDLE OpenDevice(const wchar_t* name, DWORD access, DWORD share);

// What stands behind an open device handle; destroying it closes the device.
class DeviceFile;

}  // namespace handheld
