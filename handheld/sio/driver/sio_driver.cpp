// Entry points of the stream driver "SIO1:". Contexts are as wide as a pointer; this driver hands out small
// numbers.
#include <windows.h>

#include <atomic>

#include "handheld/sio/driver/card.h"

namespace {

constexpr DWORD_PTR kDevice = 1;  // there is one slot

// Lives from SIO_Init to SIO_Deinit; not destroyed when the library just goes away with its process, because
// its thread has been ended by then.
std::atomic<sio::CCard*> card;

// What goes wrong inside must not unwind into the caller.
template <class Result, class Call>
Result guarded(const Call& call) {
    try {
        return call();
    } catch (...) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return Result{};
    }
}

}  // namespace

extern "C" {

// Fails while a card is in use and when the slot is empty.
DWORD_PTR WINAPI SIO_Init(DWORD_PTR) {
    return guarded<DWORD_PTR>([]() -> DWORD_PTR {
        const sio::CardOptions options = sio::readCardOptions();
        if (card || sio::isSlotEmpty(options)) return 0;
        card = new sio::CCard(options);
        return kDevice;
    });
}

BOOL WINAPI SIO_Deinit(DWORD_PTR device) {
    if (!card || device != kDevice) return FALSE;
    delete card;
    card = nullptr;
    return TRUE;
}

DWORD_PTR WINAPI SIO_Open(DWORD_PTR device, DWORD access, DWORD share) {
    if (!card || device != kDevice) return 0;
    return guarded<DWORD_PTR>([&]() -> DWORD_PTR { return card.load()->open(access, share); });
}

BOOL WINAPI SIO_Close(DWORD_PTR file) {
    if (!card) return FALSE;
    return guarded<BOOL>([&]() -> BOOL { return card.load()->close(static_cast<DWORD>(file)); });
}

BOOL WINAPI SIO_IOControl(DWORD_PTR file, DWORD code, BYTE* in, DWORD inSize, BYTE* out, DWORD outSize,
                          DWORD* returned) {
    if (!card) return FALSE;
    return guarded<BOOL>([&]() -> BOOL {
        return card.load()->control(static_cast<DWORD>(file), {code, in, inSize, out, outSize}, returned);
    });
}

BOOL WINAPI SIO_IsCardIn() {
    return card && guarded<BOOL>([]() -> BOOL { return card.load()->isIn(); });
}

void WINAPI SIO_MoveCard(BOOL in) {
    if (!card) return;
    guarded<BOOL>([in]() -> BOOL {
        card.load()->move(in != FALSE);
        return TRUE;
    });
}
}
