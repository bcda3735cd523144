#include "capture/store_space.h"
#include "platform/ce.h"

// A word of the answer: with a little more than 4 GiB free there seems to be only a little.  A large memory card
// shows it.  (CaptureRoom.IsCountedInThirtyTwoBits)
bool FreeStoreBytes(uint32_t& bytes) {
    ULARGE_INTEGER available, total, unused;
    if (!GetDiskFreeSpaceExW(L"\\My Documents\\", &available, &total, &unused)) return false;
    bytes = available.u.LowPart;
    return true;
}
