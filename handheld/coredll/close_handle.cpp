// CloseHandle closes whatever this library handed out, searches included, as on the handheld.
#include "handheld/coredll/devices.h"
#include "handheld/coredll/handle_table.h"
#include "handheld/coredll/search.h"
#include "handheld/coredll/store_space.h"

using namespace handheld;

extern "C" BOOL WINAPI HandheldCloseHandle(HANDLE handle) {
    // The desktop takes INVALID_HANDLE_VALUE for the process itself and reports success.
    if (!handle || handle == INVALID_HANDLE_VALUE) {
        SetLastError(ERROR_INVALID_HANDLE);
        return FALSE;
    }
    if (Handles<Search>().Take(handle)) return TRUE;
    Handles<DeviceFile>().Take(handle);
    Handles<StoreFile>().Take(handle);
    return CloseHandle(handle);
}
