#include "handheld/keypad/card_slot.h"

#include <windows.h>

namespace handheld {
namespace {

// The card's driver is loaded by the first program that opens it, and stays.
template <class Entry>
Entry DriverEntry(const char* name) {
    const HMODULE driver = GetModuleHandleW(L"SIO.dll");
    return driver ? reinterpret_cast<Entry>(reinterpret_cast<void*>(GetProcAddress(driver, name))) : nullptr;
}

}  // namespace

bool IsCardIn() {
    const auto ask = DriverEntry<BOOL(WINAPI*)()>("SIO_IsCardIn");
    return !ask || ask();
}

void MoveCard(bool in) {
    if (const auto move = DriverEntry<void(WINAPI*)(BOOL)>("SIO_MoveCard")) move(in);
}

}  // namespace handheld
