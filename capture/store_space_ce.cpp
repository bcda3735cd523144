#include "capture/store_space.h"
#include "platform/ce.h"

bool FreeStoreBytes(uint32_t& bytes) {
    ULARGE_INTEGER available, total, unused;
    if (!GetDiskFreeSpaceExW(L"\\My Documents\\", &available, &total, &unused)) return false;
    bytes = available.u.LowPart;
    return true;
}
