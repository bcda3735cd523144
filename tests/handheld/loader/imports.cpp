#include "handheld/loader/imports.h"

#include <cstring>

#include "handheld/loader/line.h"
#include "handheld/loader/system_calls.h"

struct Double {
    const char* library;
    const char* name;
    const void* function;
};

// Written by link_loader.py.
extern "C" const Double kDoubles[];
extern "C" const Double kDoublesEnd[];

namespace {

// A piece of code that knows which import it stands for.
constexpr uint32_t kLoadName = 0xE59F0000;  // ldr r0, name
constexpr uint32_t kJump = 0xE59FF000;      // ldr pc, handler
struct Refusal {
    uint32_t loadName;
    uint32_t jump;
    const Line* name;
    void (*handler)(const Line*);
};
static_assert(sizeof(Refusal) == 16);

constexpr uint32_t kMostRefusals = 256;

struct Refusals {
    Refusal* code = nullptr;
    Line* names = nullptr;
    uint32_t count = 0;
};
Refusals g_refusals;

void Refuse(const Line* name) {
    Stop(Line() << "the image calls " << name->Text() << ", for which there is no double");
}

uint32_t MakeRefusal(const Line& name) {
    constexpr uint32_t kCodeBytes = kMostRefusals * sizeof(Refusal);
    if (g_refusals.code == nullptr) {
        g_refusals.code = static_cast<Refusal*>(sys::Map(0, kCodeBytes, sys::kReadWrite));
        g_refusals.names = static_cast<Line*>(sys::Map(0, kMostRefusals * sizeof(Line), sys::kReadWrite));
    }
    if (g_refusals.count == kMostRefusals) Stop(Line() << "too many imports without a double");
    const uint32_t index = g_refusals.count++;
    g_refusals.names[index] = name;
    sys::Protect(g_refusals.code, kCodeBytes, sys::kReadWrite);
    g_refusals.code[index] = {kLoadName, kJump, &g_refusals.names[index], Refuse};
    sys::Protect(g_refusals.code, kCodeBytes, sys::kReadExecute);
    return reinterpret_cast<uint32_t>(&g_refusals.code[index]);
}

}  // namespace

uint32_t DoubleOf(const char* library, const char* name) {
    for (const Double* it = kDoubles; it != kDoublesEnd; ++it)
        if (std::strcmp(it->library, library) == 0 && std::strcmp(it->name, name) == 0)
            return reinterpret_cast<uint32_t>(it->function);
    return MakeRefusal(Line() << name << " of " << library);
}

uint32_t DoubleOfOrdinal(const char* library, uint32_t ordinal) {
    return DoubleOf(library, (Line() << "@" << ordinal).Text());
}
