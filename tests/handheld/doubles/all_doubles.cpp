// Which of this program's functions the image's imports are bound to.
#include "handheld/loader/imports.h"

// Only addresses are wanted here, so that one kind of function does for all.
#define CORE(name) extern "C" void double_##name() __asm__(#name);
#include "handheld/doubles/core_names.h"
#undef CORE
extern "C" void double_InitCommonControlsEx() __asm__("InitCommonControlsEx");

namespace {

const Double kDoubles[] = {
#define CORE(name) {"coredll.dll", #name, reinterpret_cast<const void*>(&double_##name)},
#include "handheld/doubles/core_names.h"
#undef CORE
    {"commctrl.dll", "InitCommonControlsEx", reinterpret_cast<const void*>(&double_InitCommonControlsEx)},
};

}  // namespace

Doubles AllDoubles() {
    return {kDoubles, sizeof kDoubles / sizeof kDoubles[0]};
}
