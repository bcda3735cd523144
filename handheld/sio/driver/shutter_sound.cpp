#include "handheld/sio/driver/shutter_sound.h"

#include <windows.h>

#include <mmsystem.h>

namespace sio {

void playShutterSound(uint32_t module) {
    // The request has 32 bits for the module; on a 64-bit desktop they are the handle's lower half.
    const HMODULE program = GetModuleHandleW(nullptr);
    if (static_cast<uint32_t>(reinterpret_cast<DWORD_PTR>(program)) != module) return;
    PlaySoundW(L"SNAP", program, SND_RESOURCE | SND_ASYNC | SND_NODEFAULT);
}

}  // namespace sio
