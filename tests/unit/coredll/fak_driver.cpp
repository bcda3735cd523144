// A stream driver that remembers how it was called.
#include "fak_driver.h"

#include <windows.h>

namespace {

FakCounts counts;

}  // namespace

extern "C" {

__declspec(dllexport) DWORD_PTR WINAPI FAK_Init(DWORD_PTR) {
    ++counts.inits;
    return kFakDevice;
}

__declspec(dllexport) DWORD_PTR WINAPI FAK_Open(DWORD_PTR device, DWORD access, DWORD share) {
    counts.lastDevice = device;
    counts.lastAccess = access;
    counts.lastShare = share;
    if (share == kFakRefusedShare) {
        SetLastError(ERROR_SHARING_VIOLATION);
        return 0;
    }
    // As wide as a pointer: a truncated context would not come back.
    return kFakFirstFile + ++counts.opens;
}

__declspec(dllexport) BOOL WINAPI FAK_Close(DWORD_PTR file) {
    ++counts.closes;
    counts.lastFile = file;
    return TRUE;
}

__declspec(dllexport) BOOL WINAPI FAK_IOControl(DWORD_PTR file, DWORD code, BYTE* in, DWORD inSize, BYTE* out,
                                                DWORD outSize, DWORD* returned) {
    counts.lastFile = file;
    switch (code) {
        case kFakEcho:  // the output size says nothing, as with the camera's frames
            for (DWORD i = 0; i < inSize; ++i) out[i] = in[i];
            *returned = inSize;
            return outSize == 0;
        case kFakGetCounts:
            *reinterpret_cast<FakCounts*>(out) = counts;
            *returned = sizeof counts;
            return TRUE;
        default:
            SetLastError(ERROR_INVALID_FUNCTION);
            return FALSE;
    }
}

}  // extern "C"
