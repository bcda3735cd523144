#include "handheld/coredll/devices.h"

#include <cwchar>
#include <cwctype>
#include <map>
#include <mutex>
#include <string>

#include "handheld/coredll/handle_table.h"
#include "handheld/coredll/module.h"

namespace handheld {
namespace {

// Entry points of a stream driver, each named with the device's prefix ("SIO_Open").  Contexts are as wide as
// a pointer, since drivers hand out addresses.
struct Driver {
    HMODULE library = nullptr;
    DWORD_PTR(WINAPI* init)(DWORD_PTR context) = nullptr;
    DWORD_PTR(WINAPI* open)(DWORD_PTR device, DWORD access, DWORD share) = nullptr;
    BOOL(WINAPI* close)(DWORD_PTR file) = nullptr;
    BOOL(WINAPI* control)
    (DWORD_PTR file, DWORD code, BYTE* in, DWORD inSize, BYTE* out, DWORD outSize, DWORD* returned) = nullptr;
    DWORD_PTR device = 0;  // what init gave; 0 until the driver has been started
};

template <class Entry>
bool Bind(Entry& entry, HMODULE library, const std::string& name) {
    entry = reinterpret_cast<Entry>(reinterpret_cast<void*>(GetProcAddress(library, name.c_str())));
    return entry != nullptr;
}

// Loads and starts the driver of a device name in capitals.  Drivers stay loaded to the end of the process,
// where the system takes them away without a farewell: SIO_Deinit belongs to a card driver's replacement,
// which a process does not live to see.
bool Start(Driver& driver, const std::wstring& name) {
    const std::wstring prefix = name.substr(0, 3);
    const std::string entries(prefix.begin(), prefix.end());
    const std::wstring path = OwnFolder() + L'\\' + prefix + L".dll";
    if (!driver.library) driver.library = LoadLibraryW(path.c_str());
    HMODULE library = driver.library;
    if (!library || !Bind(driver.init, library, entries + "_Init") ||
        !Bind(driver.open, library, entries + "_Open") || !Bind(driver.close, library, entries + "_Close") ||
        !Bind(driver.control, library, entries + "_IOControl"))
        return false;
    driver.device = driver.init(reinterpret_cast<DWORD_PTR>(name.c_str()));
    return driver.device != 0;
}

// The started driver of a device name in capitals, or null.  A driver that did not start is tried again.
const Driver* DriverFor(const std::wstring& name) {
    static auto* lock = new std::mutex;
    static auto* drivers = new std::map<std::wstring, Driver>;
    std::lock_guard guard(*lock);
    const auto entry = drivers->try_emplace(name).first;
    return entry->second.device || Start(entry->second, entry->first) ? &entry->second : nullptr;
}

}  // namespace

class DeviceFile {
  public:
    DeviceFile(const Driver& driver, DWORD_PTR file) : m_driver(driver), m_file(file) {}
    ~DeviceFile() { m_driver.close(m_file); }
    DeviceFile(const DeviceFile&) = delete;
    DeviceFile& operator=(const DeviceFile&) = delete;

    BOOL Control(DWORD code, void* in, DWORD inSize, void* out, DWORD outSize, DWORD* returned) {
        return m_driver.control(m_file, code, static_cast<BYTE*>(in), inSize, static_cast<BYTE*>(out),
                                outSize, returned);
    }

  private:
    const Driver& m_driver;
    const DWORD_PTR m_file;
};

bool IsDeviceName(const wchar_t* name) {
    return name && std::wcslen(name) == 5 && std::iswalpha(name[0]) && std::iswalpha(name[1]) &&
           std::iswalpha(name[2]) && std::iswdigit(name[3]) && name[4] == L':';
}

HANDLE OpenDevice(const wchar_t* name, DWORD access, DWORD share) {
    std::wstring capitals = name;
    for (wchar_t& c : capitals) c = static_cast<wchar_t>(std::towupper(c));
    const Driver* driver = DriverFor(capitals);
    if (!driver) {
        SetLastError(ERROR_DEV_NOT_EXIST);
        return INVALID_HANDLE_VALUE;
    }
    SetLastError(ERROR_OPEN_FAILED);
    const DWORD_PTR file = driver->open(driver->device, access, share);
    if (!file) return INVALID_HANDLE_VALUE;
    auto device = std::make_shared<DeviceFile>(*driver, file);
    // An event lends the device a handle value that nothing else in the process has.
    HANDLE handle = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    if (!handle) return INVALID_HANDLE_VALUE;
    Handles<DeviceFile>().Add(handle, std::move(device));
    return handle;
}

}  // namespace handheld

using namespace handheld;

extern "C" BOOL WINAPI HandheldDeviceIoControl(HANDLE handle, DWORD code, void* in, DWORD inSize, void* out,
                                               DWORD outSize, DWORD* returned, OVERLAPPED* overlapped) {
    const auto device = Handles<DeviceFile>().Find(handle);
    if (!device) {
        if (handle && handle != INVALID_HANDLE_VALUE)
            return DeviceIoControl(handle, code, in, inSize, out, outSize, returned, overlapped);
        SetLastError(ERROR_INVALID_HANDLE);
        return FALSE;
    }
    DWORD ignored = 0;
    return device->Control(code, in, inSize, out, outSize, returned ? returned : &ignored);
}
