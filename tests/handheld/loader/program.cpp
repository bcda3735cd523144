// Runs the code of the handheld's own executable on an emulated processor of its kind:
//     image_tests IMAGE BASE [PATTERN]        every test whose name begins so; "Deliberate" ones only when
//     asked for image_tests IMAGE BASE --decodes FILE MODE...      pictures for a counter of instructions,
//     see decodes.h
// BASE: where the image is put, in hexadecimal.
#include <cstring>

#include "handheld/loader/decodes.h"
#include "handheld/loader/faults.h"
#include "handheld/loader/image.h"
#include "handheld/loader/line.h"
#include "handheld/loader/system_calls.h"
#include "handheld/loader/test_runner.h"

namespace {

using Step = void (*)();

uint32_t FromHex(const char* text) {
    uint32_t value = 0;
    for (; *text != 0; ++text) {
        const char* const digits = "0123456789abcdef";
        const char* const digit = std::strchr(digits, *text);
        if (digit == nullptr) Stop(Line() << "a base is told in hexadecimal digits");
        value = value << 4 | static_cast<uint32_t>(digit - digits);
    }
    return value;
}

}  // namespace

// Laid out by the linker.
extern "C" const Step __init_array_start[];
extern "C" const Step __init_array_end[];

extern "C" [[noreturn]] void RunLoader(int count, const char** arguments) {
    HandleFaults();
    const bool decodes = count > 3 && std::strcmp(arguments[3], "--decodes") == 0;
    if (count < 3 || (count > 4 && !decodes))
        Stop(Line() << "usage: image_tests IMAGE BASE [PATTERN | --decodes FILE MODE...]");
    LoadImage(arguments[1], FromHex(arguments[2]));
    // Tests may call the image while they are made.
    for (const Step* step = __init_array_start; step != __init_array_end; ++step) (*step)();
    sys::Exit(decodes ? CountDecodes(count - 4, arguments + 4) : RunTests(count == 4 ? arguments[3] : ""));
}

// The system enters with the arguments on the stack.
__asm__(
    ".globl LoaderStart\n"
    "LoaderStart:\n"
    "ldr r0, [sp]\n"
    "add r1, sp, #4\n"
    "mov fp, #0\n"
    "b RunLoader\n");
